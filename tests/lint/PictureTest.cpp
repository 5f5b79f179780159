#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/Process.h"
#include "support/TempFolder.h"

namespace quillon::lint {
namespace {

using test::ProcessResult;

ProcessResult DrawFolders(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), {"-B", QUILLON_SOURCE_DIR "/scripts/folder-picture.py"});
  return test::RunProcess("/usr/bin/python3", arguments);
}

/// A tree of two folders, "upper" above "lower".
class SmallTree : public testing::Test {
 protected:
  SmallTree() {
    folder_.Write("tests/lint/Rules.cpp", R"({{{"lower/", 0}, {"upper/", 1}}};)");
    folder_.Write("src/lower/a.h", "#pragma once\n");
    folder_.Write("src/upper/b.cpp", "#include \"lower/a.h\"\n");
  }

  [[nodiscard]] ProcessResult Draw() const { return DrawFolders({"--root", folder_.Path()}); }
  [[nodiscard]] ProcessResult Check() const { return DrawFolders({"--check", "--root", folder_.Path()}); }

  test::TempFolder folder_;
};

TEST(FolderPicture, IsWhatTheSourcesSay) {
  const ProcessResult result = DrawFolders({"--check"});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
}

TEST_F(SmallTree, IsDrawnWithItsArrow) {
  EXPECT_EQ(Check().exitCode, 1);  // not drawn yet
  const ProcessResult drawn = Draw();
  ASSERT_EQ(drawn.exitCode, 0) << drawn.errors;
  EXPECT_NE(folder_.Read("docs/folders.svg").find("<title>upper includes lower</title>"), std::string::npos);
  const ProcessResult checked = Check();
  EXPECT_EQ(checked.exitCode, 0) << checked.errors;
}

TEST_F(SmallTree, PictureOfOtherIncludesIsRefused) {
  ASSERT_EQ(Draw().exitCode, 0);
  folder_.Write("src/upper/b.cpp", "int b = 0;\n");
  const ProcessResult result = Check();
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_NE(result.errors.find("run scripts/folder-picture.py"), std::string::npos) << result.errors;
}

TEST_F(SmallTree, ArrowUpwardsIsRefused) {
  ASSERT_EQ(Draw().exitCode, 0);
  folder_.Write("src/lower/a.h", "#pragma once\n#include \"upper/c.h\"\n");
  for (const ProcessResult& result : {Draw(), Check()}) {
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.errors.find("would not point down"), std::string::npos) << result.errors;
  }
}

TEST_F(SmallTree, FolderWithoutAFloorIsRefused) {
  folder_.Write("src/other/d.cpp");
  EXPECT_NE(Draw().errors.find("src/other/d.cpp is in no folder"), std::string::npos);
}

}  // namespace
}  // namespace quillon::lint
