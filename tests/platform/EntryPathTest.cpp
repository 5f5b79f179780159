#include <gtest/gtest.h>

#include <string>

#include "platform/EntryPath.h"

namespace quillon::test {
namespace {

TEST(EntryPath, ThePathIsCutBehindItsLastSeparator) {
  struct Row {
    const char* path;
    PathStyle style;
    const char* folder;
    const char* name;
  };
  for (const Row& row : {Row{"/a/b", PathStyle::kLinux, "/a/", "b"},
                         {"/a/", PathStyle::kLinux, "/a/", ""},
                         {"b", PathStyle::kLinux, "", "b"},
                         {"/a/b\\c:d", PathStyle::kLinux, "/a/", "b\\c:d"},
                         {"C:\\a\\b", PathStyle::kWindows, "C:\\a\\", "b"},
                         {"C:\\a/b", PathStyle::kWindows, "C:\\a/", "b"},
                         {"C:\\a\\b:c", PathStyle::kWindows, "C:\\a\\", "b:c"}}) {
    SCOPED_TRACE(row.path);
    const EntryPath split = SplitPath(row.path, row.style);
    EXPECT_EQ(split.folder, row.folder);
    EXPECT_EQ(split.name, row.name);
  }
}

TEST(EntryPath, SomeNamesAreInvalidOnEverySystem) {
  for (const std::string& name : {std::string(), std::string("."), std::string(".."), std::string("a\0", 2)}) {
    EXPECT_FALSE(CanNameFile(name));
  }
  for (const char* name : {"...", " ", "a", ".a", "曲"}) EXPECT_TRUE(CanNameFile(name)) << name;
}

}  // namespace
}  // namespace quillon::test
