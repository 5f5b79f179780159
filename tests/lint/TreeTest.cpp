#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "lint/Rules.h"

namespace quillon::lint {
namespace {

namespace fs = std::filesystem;

bool IsLeftOut(const fs::directory_entry& entry) {
  static constexpr std::array<std::string_view, 4> kFolders = {".git", "build", "dist", ".cache"};
  const std::string name = entry.path().filename().string();
  return entry.is_symlink() ||
         (entry.is_directory() && std::find(kFolders.begin(), kFolders.end(), name) != kFolders.end());
}

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << "cannot read " << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Reads every text file of the checkout. Files with a NUL are not text.
std::vector<SourceFile> ReadTree() {
  const fs::path root = QUILLON_SOURCE_DIR;
  std::vector<SourceFile> files;
  for (auto entry = fs::recursive_directory_iterator(root); entry != fs::recursive_directory_iterator(); ++entry) {
    if (IsLeftOut(*entry)) {
      entry.disable_recursion_pending();
    } else if (entry->is_regular_file()) {
      SourceFile file{fs::relative(entry->path(), root).generic_string(), ReadFile(entry->path())};
      if (file.text.find('\0') == std::string::npos) files.push_back(std::move(file));
    }
  }
  return files;
}

class Tree : public testing::Test {
 protected:
  static const std::vector<SourceFile>& Files() {
    static const std::vector<SourceFile> files = ReadTree();
    return files;
  }

  static void ExpectClean(Findings (*rule)(const SourceFile&)) {
    for (const SourceFile& file : Files()) {
      for (const Finding& finding : rule(file)) {
        ADD_FAILURE() << finding.path << ":" << finding.line << ": " << finding.what;
      }
    }
  }
};

TEST_F(Tree, IsReadWhole) {
  const auto has = [](std::string_view path) {
    return std::any_of(Files().begin(), Files().end(), [path](const SourceFile& file) { return file.path == path; });
  };
  EXPECT_TRUE(has("CMakeLists.txt"));
  EXPECT_TRUE(has("src/base/Text.h"));
  EXPECT_TRUE(has("src/paths/basFileControl.cpp"));
  EXPECT_TRUE(has("tests/lint/TreeTest.cpp"));
}

TEST_F(Tree, SystemMacrosStandInThePlatformFolder) {
  ExpectClean(FindSystemMacros);
}
TEST_F(Tree, SystemHeadersStandInThePlatformFolder) {
  ExpectClean(FindSystemHeaders);
}
TEST_F(Tree, WindowHeadersStandInWindows) {
  ExpectClean(FindWindowHeaders);
}
TEST_F(Tree, IncludesPointDownwards) {
  ExpectClean(FindUpwardIncludes);
}
TEST_F(Tree, HeadersHavePragmaOnce) {
  ExpectClean(FindMissingPragmaOnce);
}
TEST_F(Tree, SourcesAreShort) {
  ExpectClean(FindLongFiles);
}
TEST_F(Tree, NoForbiddenWords) {
  ExpectClean(FindForbiddenWords);
}

}  // namespace
}  // namespace quillon::lint
