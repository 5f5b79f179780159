#include <gtest/gtest.h>

#include <string>

#include "platform/WindowsPath.h"

namespace quillon::test {
namespace {

TEST(WindowsPath, FullPathsDependOnNoCurrentFolder) {
  for (const char* path : {R"(C:\)", R"(c:\a\b)", "C:/a", R"(\\server\share\a)", "//server/share", R"(\\?\C:\a)"}) {
    EXPECT_TRUE(IsFullWindowsPath(path)) << path;
  }
  for (const char* path : {"", "a", R"(a\b)", R"(\a)", "C:", "C:a", "/a", "1:\\a"}) {
    EXPECT_FALSE(IsFullWindowsPath(path)) << path;
  }
}

TEST(WindowsPath, TidyingRemovesDotsAndDoubledSeparators) {
  struct Row {
    const char* path;
    const char* tidy;
  };
  for (const Row& row : {Row{R"(C:\a\b)", R"(C:\a\b)"},
                         {"C:/a/b", R"(C:\a\b)"},
                         {R"(C:\a\\b\)", R"(C:\a\b\)"},
                         {R"(C:\a\.\b)", R"(C:\a\b)"},
                         {R"(C:\a\..\b)", R"(C:\b)"},
                         {R"(C:\..\..\b)", R"(C:\b)"},
                         {R"(C:\)", R"(C:\)"},
                         {R"(C:\a\..)", R"(C:\)"},
                         {R"(\\server\share\a\..\..\b)", R"(\\server\share\b)"},
                         {R"(C:\a. \b. )", R"(C:\a. \b. )"},
                         {R"(\\?\C:\a\.\b)", R"(\\?\C:\a\.\b)"}}) {
    SCOPED_TRACE(row.path);
    EXPECT_EQ(TidyWindowsPath(row.path), row.tidy);
  }
}

TEST(WindowsPath, LiteralPathsAndBack) {
  struct Row {
    const char* plain;
    const char* literal;
  };
  for (const Row& row : {Row{R"(C:\a\b)", R"(\\?\C:\a\b)"}, {R"(\\server\share\a)", R"(\\?\UNC\server\share\a)"}}) {
    EXPECT_EQ(LiteralWindowsPath(row.plain), row.literal);
    EXPECT_EQ(PlainWindowsPath(row.literal), row.plain);
    EXPECT_EQ(LiteralWindowsPath(row.literal), row.literal) << "as it is";
    EXPECT_EQ(PlainWindowsPath(row.plain), row.plain) << "as it is";
  }
}

TEST(WindowsPath, DotsAndBlanksAtTheEndAreDropped) {
  EXPECT_EQ(StoredWindowsName("song."), "song");
  EXPECT_EQ(StoredWindowsName("song. . "), "song");
  EXPECT_EQ(StoredWindowsName(" .song"), " .song");
  EXPECT_EQ(StoredWindowsName("song\t"), "song\t");
  EXPECT_EQ(StoredWindowsName("song　"), "song　") << "the ideographic blank is none";
  EXPECT_EQ(StoredWindowsName("..."), "");
}

TEST(WindowsPath, DevicesAndStreamsAreNoFileNames) {
  for (const char* name : {"CON", "con", "NUL", "aux.mid", "PRN.tar.gz", "COM1", "lpt9.txt", "COM¹", "NUL .mid",
                           "CONIN$", "song:stream", "C:"}) {
    EXPECT_FALSE(CanNameWindowsFile(name)) << name;
  }
  for (const char* name :
       {"CONE", "NULL", "aux1", "COM", "COM0", "COM10", "LPT", "my NUL", "console.mid", "song.con"}) {
    EXPECT_TRUE(CanNameWindowsFile(name)) << name;
  }
}

}  // namespace
}  // namespace quillon::test
