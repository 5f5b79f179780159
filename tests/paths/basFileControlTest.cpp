#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "paths/basFileControl.h"

namespace quillon {
namespace {

constexpr PathStyle kWin = PathStyle::kWindows;
constexpr PathStyle kLin = PathStyle::kLinux;

struct PathRow {
  const char* name;
  PathStyle style;
  std::string_view path;
  std::string_view expected;
};

template <class Helper>
void ExpectEach(const std::vector<PathRow>& rows, Helper helper) {
  for (const PathRow& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(std::string(helper(row.path, row.style)), row.expected);
  }
}

std::vector<std::string> Unquoted(std::string_view commandLine) {
  std::vector<std::string> paths;
  for (const std::string& argument : SplitCommandLine(commandLine)) paths.push_back(UnquoteArgument(argument));
  return paths;
}

TEST(PathSeparator, IsTheStylesOwn) {
  EXPECT_EQ(PathSeparator(kWin), '\\');
  EXPECT_EQ(PathSeparator(kLin), '/');
  EXPECT_EQ(PathSeparator(), PathSeparator(SystemPathStyle()));
}

TEST(Extension, IsTheTextAfterTheLastDotInUpperCase) {
  ExpectEach(
      {
          {"upper already", kWin, "song.MID", "MID"},
          {"lower", kWin, "x.mid", "MID"},
          {"last of two dots", kWin, "C:\\x\\a.tar.gz", "GZ"},
          {"dot only in the folder", kWin, "folder.v2\\song", ""},
          {"dot only in the folder, short", kWin, "a.b\\c", ""},
          {"dot only before a slash", kWin, "a.b/c", ""},
          {"a colon does not end the scan", kWin, "a.b:c", "B:C"},
          {"name that ends in a dot", kWin, "C:\\x\\song.", ""},
          {"no dot", kWin, "C:\\x\\song", ""},
          {"only a dot", kWin, ".", ""},
          {"leading dot", kWin, "C:\\x\\.mid", "MID"},
          {"empty", kWin, "", ""},
          {"beyond ASCII", kWin, "C:\\曲.ｍｉｄé", "ＭＩＤÉ"},
          {"bytes that are not UTF-8 stay", kLin, "/x/a.m\xFFz", "M\xFFZ"},
          {"Linux", kLin, "/x/song.Mid", "MID"},
          {"Linux, dot only in the folder", kLin, "/folder.v2/song", ""},
          {"Linux, a backslash is a letter", kLin, "/x/a.b\\c", "B\\C"},
      },
      [](std::string_view path, PathStyle style) { return Extension(path, style); });
}

TEST(FileName, IsTheTextAfterTheLastSeparator) {
  ExpectEach(
      {
          {"full path", kWin, "C:\\x\\y.mid", "y.mid"},
          {"no separator gives nothing", kWin, "y.mid", ""},
          {"after the colon", kWin, "C:name.mid", "name.mid"},
          {"a colon after the last backslash", kWin, "C:\\x\\a:b.mid", "b.mid"},
          {"a slash is no separator", kWin, "C:\\x/y.mid", "x/y.mid"},
          {"trailing separator", kWin, "C:\\x\\", ""},
          {"empty", kWin, "", ""},
          {"Japanese", kWin, "C:\\音楽\\表.mid", "表.mid"},
          {"Linux", kLin, "/x/y.mid", "y.mid"},
          {"Linux, no separator gives nothing", kLin, "y.mid", ""},
          {"Linux, colon and backslash are letters", kLin, "/x/a:b\\c.mid", "a:b\\c.mid"},
          {"Linux, any bytes", kLin, "/x/\xFF\xFE.mid", "\xFF\xFE.mid"},
      },
      FileName);
}

TEST(BaseName, IsTheFileNameUpToItsLastDot) {
  ExpectEach(
      {
          {"full path", kWin, "C:\\x\\y.mid", "y"},
          {"last of two dots", kWin, "C:\\x\\a.b.mid", "a.b"},
          {"after the colon", kWin, "C:name.mid", "name"},
          {"no dot in the name", kWin, "C:\\x.y\\name", ""},
          {"no separator", kWin, "y.mid", ""},
          {"name that ends in a dot", kWin, "C:\\x\\y.", "y"},
          {"leading dot", kWin, "C:\\x\\.mid", ""},
          {"Linux", kLin, "/x/y.mid", "y"},
          {"Linux, no separator", kLin, "y.mid", ""},
          {"Linux, no dot in the name", kLin, "/x.y/name", ""},
      },
      BaseName);
}

TEST(FolderPart, KeepsTheTrailingSeparator) {
  ExpectEach(
      {
          {"full path", kWin, "C:\\x\\y.mid", "C:\\x\\"},
          {"after the colon", kWin, "C:name.mid", "C:"},
          {"root", kWin, "C:\\y.mid", "C:\\"},
          {"folder only", kWin, "C:\\x\\", "C:\\x\\"},
          {"no separator, so no file name to take away", kWin, "y.mid", "y.mid"},
          {"empty", kWin, "", ""},
          {"Linux", kLin, "/x/y.mid", "/x/"},
          {"Linux, root", kLin, "/y.mid", "/"},
          {"Linux, backslash is a letter", kLin, "/x/a\\b.mid", "/x/"},
      },
      FolderPart);
}

TEST(FolderPart, PlusFileNameIsThePath) {
  for (const PathStyle style : {kWin, kLin}) {
    for (const std::string_view path : {"", "a", "C:\\x\\y.mid", "C:y", "/x/y", "/x/", "\\", "a:b\\c/d"}) {
      SCOPED_TRACE(path);
      EXPECT_EQ(std::string(FolderPart(path, style)) + std::string(FileName(path, style)), path);
    }
  }
}

TEST(WithTrailingSeparator, AddsOneWhereNoneIs) {
  ExpectEach(
      {
          {"added", kWin, "C:\\x", "C:\\x\\"},
          {"kept", kWin, "C:\\x\\", "C:\\x\\"},
          {"drive root keeps its single one", kWin, "C:\\", "C:\\"},
          {"drive alone", kWin, "C:", "C:\\"},
          {"a slash is none", kWin, "C:/x/", "C:/x/\\"},
          {"empty", kWin, "", "\\"},
          {"Linux, added", kLin, "/x", "/x/"},
          {"Linux, root", kLin, "/", "/"},
          {"Linux, a backslash is none", kLin, "/x\\", "/x\\/"},
          {"Linux, empty", kLin, "", "/"},
      },
      [](std::string_view path, PathStyle style) { return WithTrailingSeparator(path, style); });
}

TEST(InvalidCharacterPosition, NamesTheFirstOfTheTenCharacters) {
  const struct {
    const char* name;
    std::string_view text;
    int expected;
  } rows[] = {
      {"double quote", "a\"b", 2},
      {"asterisk", "a*b", 2},
      {"slash", "a/b", 2},
      {"colon", "a:b", 2},
      {"less than", "a<b", 2},
      {"greater than", "a>b", 2},
      {"question mark", "a?b", 2},
      {"backslash", "a\\b", 2},
      {"bar", "a|b", 2},
      {"carriage return", "a\rb", 2},
      {"line feed alone is allowed", "a\nb", 0},
      {"tab is allowed", "a\tb", 0},
      {"NUL is allowed", std::string_view("a\0b", 3), 0},
      {"trailing dot and blank are allowed", "a. ", 0},
      {"empty", "", 0},
      {"the first one in the text, whatever its kind", "ab|c\"", 3},
      {"first character", "?", 1},
      {"counted in characters", "音楽?", 3},
      {"counted in characters beyond the first plane", "😀😀?", 3},
      {"full-width twins are allowed", "？＊：＜＞￥｜”", 0},
      {"a byte that is not UTF-8 is one character", "\xFF\xFE*", 3},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(InvalidCharacterPosition(row.text), row.expected);
  }
}

TEST(AddedInvalidCharacterPosition, PassesOverThoseThatThePresentNameHas) {
  EXPECT_EQ(AddedInvalidCharacterPosition("a?b", ""), 2);
  EXPECT_EQ(AddedInvalidCharacterPosition("a?b", "x?"), 0);
  EXPECT_EQ(AddedInvalidCharacterPosition("a?b?", "x?"), 4) << "one of them is there already";
  EXPECT_EQ(AddedInvalidCharacterPosition("あ?:?", "x?"), 3);
  EXPECT_EQ(AddedInvalidCharacterPosition("ab", "x?"), 0);
}

TEST(SplitCommandLine, SplitsAtBlanksAndKeepsQuotedRunsTogether) {
  const struct {
    const char* name;
    std::string_view commandLine;
    std::vector<std::string> expected;
  } rows[] = {
      {"empty", "", {}},
      {"one", "C:\\a.mid", {"C:\\a.mid"}},
      {"two", "C:\\a.mid D:\\b", {"C:\\a.mid", "D:\\b"}},
      {"blanks around and doubled give no arguments", "  a   b ", {"a", "b"}},
      {"quoted with blanks", "\"C:\\My Music\\a b.mid\"", {" \"C:\\My Music\\a b.mid\""}},
      {"quoted without blanks", "\"abc\"", {" \"abc\""}},
      {"quoted between plain ones", "x \"a b\" y", {"x", " \"a b\"", "y"}},
      {"two quoted ones", "\"a b\" \"c d\"", {" \"a b\"", " \"c d\""}},
      {"doubled blanks inside are kept", "\"a  b\"", {" \"a  b\""}},
      {"a lone quote opens a run", "\" a b\"", {" \" a b\""}},
      {"a lone quote closes a run", "\"a b \" c", {" \"a b \"", "c"}},
      {"an unclosed run goes to the end", "x \"a b c", {"x", " \"a b c\""}},
      {"an unclosed lone quote names nothing", "x \"", {"x"}},
      {"an empty pair names nothing", "\"\" x", {"x"}},
      {"a quote inside a run does not close it", "\"a\"b c\" d", {" \"a\"b c\"", "d"}},
      {"a quote inside a plain piece opens no run", "a\"b c", {" \"a\"b\"", "c"}},
      {"a tab does not split", "a\tb", {"a\tb"}},
      {"Japanese", "\"C:\\音 楽\\表.mid\" 竹.mid", {" \"C:\\音 楽\\表.mid\"", "竹.mid"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(SplitCommandLine(row.commandLine), row.expected);
  }
}

TEST(UnquoteArgument, CutsTwoCharactersInFrontAndOneBehind) {
  const struct {
    const char* name;
    std::string_view argument;
    std::string_view expected;
  } rows[] = {
      {"the splitter's form", " \"C:\\a b.mid\"", "C:\\a b.mid"},
      {"no quote, unchanged", " C:\\a.mid", " C:\\a.mid"},
      {"one quote anywhere is enough", "abc\"def", "c\"de"},
      {"counted in characters", "音\"楽曲\"", "楽曲"},
      {"nothing left", " \"\"", ""},
      {"shorter than what is cut", "\"", ""},
      {"two characters", "\"\"", ""},
      {"empty", "", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(UnquoteArgument(row.argument), row.expected);
  }
}

TEST(UnquoteArgument, AgreesWithTheSplitter) {
  using Paths = std::vector<std::string>;
  EXPECT_EQ(Unquoted("\"C:\\My Music\\a b.mid\" D:\\c.mid \"abc\""),
            (Paths{"C:\\My Music\\a b.mid", "D:\\c.mid", "abc"}));
  EXPECT_EQ(Unquoted("\"/tmp/open"), (Paths{"/tmp/open"}));
  EXPECT_EQ(Unquoted("/tmp/6\"disc.mid"), (Paths{"/tmp/6\"disc.mid"}));
  EXPECT_EQ(Unquoted("\"/tmp/6\" disc.mid\""), (Paths{"/tmp/6", "disc.mid\""})) << "a quote before a blank closes";
}

TEST(MatchesExtensionFilter, ComparesWithEveryEntry) {
  const struct {
    const char* name;
    PathStyle style;
    std::string_view path;
    std::string_view list;
    bool expected;
  } rows[] = {
      {"case does not matter", kWin, "A.MIDI", "mid midi wav", true},
      {"not in the list", kWin, "a.mp3", "mid midi wav", false},
      {"an empty list matches everything", kWin, "a.mp3", "", true},
      {"an empty list matches a file without extension", kWin, "C:\\a", "", true},
      {"upper case in the list", kWin, "a.mid", "WAV MID", true},
      {"first entry", kWin, "a.mid", "mid wav", true},
      {"whole entries only", kWin, "a.mi", "mid midi", false},
      {"longer than the entry", kWin, "a.midi", "mid wav", false},
      {"no extension needs an empty entry", kWin, "C:\\a", "mid wav", false},
      {"two blanks are an empty entry", kWin, "C:\\a", "mid  wav", true},
      {"a trailing blank is an empty entry", kWin, "C:\\a", "mid ", true},
      {"a leading blank is an empty entry", kWin, "C:\\a", " mid", true},
      {"one blank", kWin, "C:\\a", " ", true},
      {"an empty entry matches no other file", kWin, "a.mid", "wav  mp3", false},
      {"a name that ends in a dot has no extension", kWin, "a.", "mid  wav", true},
      {"an entry with its dot matches nothing", kWin, "a.mid", ".mid", false},
      {"a tab does not separate", kWin, "a.mid", "wav\tmid", false},
      {"beyond ASCII", kWin, "a.Ｍｐ３", "mid ｍＰ３", true},
      {"Linux", kLin, "/x/a.Mid", "mid", true},
      {"Linux, a dot in the folder", kLin, "/x.mid/a", "mid", false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(MatchesExtensionFilter(row.path, row.list, row.style), row.expected);
  }
}

TEST(ShortenPath, ReplacesTheFirstFoldersWithDots) {
  const struct {
    const char* name;
    PathStyle style;
    std::string_view path;
    std::size_t maximum;
    std::string_view expected;
  } rows[] = {
      {"one folder left out", kWin, "C:\\aaa\\bbb\\ccc.mid", 15, "C:\\...\\bbb\\ccc.mid"},
      {"as long as the maximum", kWin, "C:\\aaa\\bbb\\ccc.mid", 18, "C:\\aaa\\bbb\\ccc.mid"},
      {"one longer than the maximum", kWin, "C:\\aaa\\bbb\\ccc.mid", 17, "C:\\...\\bbb\\ccc.mid"},
      {"the result may be longer than the path", kWin, "C:\\a.mid", 7, "C:\\...\\a.mid"},
      {"a long name stays whole", kWin, "C:\\aaa\\bbb\\ccccccccccccccc.mid", 12, "C:\\...\\ccccccccccccccc.mid"},
      {"no separator", kWin, "abcdefghij", 5, "...abcdefghij"},
      {"maximum 0", kWin, "C:\\aaa\\b", 0, "C:\\...\\b"},
      {"trailing separator", kWin, "C:\\aaa\\bbb\\", 3, "C:\\...\\"},
      {"separators in a row", kWin, "C:\\\\\\\\\\", 6, "C:\\...\\\\\\"},
      {"only a separator", kWin, "\\", 0, "\\...\\"},
      {"empty", kWin, "", 0, ""},
      {"a slash is no separator", kWin, "C:/aaa/bbb/ccc", 8, "...C:/aaa/bbb/ccc"},
      {"share", kWin, "\\\\server\\share\\folder\\a.mid", 20, "\\...\\folder\\a.mid"},
      {"counted in characters", kWin, "C:\\あああ\\いいい\\ううう.mid", 15, "C:\\...\\いいい\\ううう.mid"},
      {"characters, not bytes, reach the maximum", kWin, "C:\\ああああ.mid", 11, "C:\\ああああ.mid"},
      {"Linux", kLin, "/home/aaa/bbb/ccc.mid", 17, "/.../bbb/ccc.mid"},
      {"Linux, a backslash is a letter", kLin, "a\\b\\c\\d\\e", 3, "...a\\b\\c\\d\\e"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(ShortenPath(row.path, row.maximum, row.style), row.expected);
  }
}

TEST(PathIdentity, IgnoresLetterCaseOnWindowsOnly) {
  EXPECT_EQ(PathIdentity("C:\\Music\\A.mid", kWin), PathIdentity("c:\\MUSIC\\a.MID", kWin));
  EXPECT_EQ(PathIdentity("C:\\ａ\\É", kWin), PathIdentity("C:\\Ａ\\é", kWin));
  EXPECT_NE(PathIdentity("C:\\a", kWin), PathIdentity("C:\\b", kWin));
  EXPECT_NE(PathIdentity("C:\\\xFF", kWin), PathIdentity("C:\\\xFE", kWin));
  EXPECT_NE(PathIdentity("/Music/a", kLin), PathIdentity("/music/a", kLin));
  EXPECT_EQ(PathIdentity("/Music/\xFF", kLin), "/Music/\xFF");
}

}  // namespace
}  // namespace quillon
