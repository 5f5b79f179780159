#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "settings/basINIControl.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// A folder with one INI file, and helpers to check its content.
class IniFileTest : public testing::Test {
 protected:
  IniFile Loaded(std::string_view bytes) {
    IniFile file(folder_.Write("Quillon.ini", bytes));
    EXPECT_TRUE(file.Load());
    return file;
  }

  /// The file's bytes after one value was written.
  std::string AfterWriting(std::string_view bytes, std::string_view section, std::string_view key,
                           std::string_view value) {
    IniFile file = Loaded(bytes);
    file.WriteString(section, key, value);
    EXPECT_TRUE(file.Save());
    return folder_.Read("Quillon.ini");
  }

  /// The value after it was written, saved, loaded and read.
  std::string RoundTrip(std::string_view value) {
    AfterWriting("", "S", "k", value);
    IniFile file(folder_.At("Quillon.ini"));
    EXPECT_TRUE(file.Load());
    return file.ReadString("S", "k", "missing");
  }

  test::TempFolder folder_;
};

TEST_F(IniFileTest, MissingFileReadsAsDefaults) {
  IniFile file(folder_.At("none.ini"));
  EXPECT_TRUE(file.Load());
  EXPECT_EQ(file.ReadString("System", "DirPath", "fallback"), "fallback");
  EXPECT_EQ(file.ReadInteger("Window", "Top", -7), -7);
  EXPECT_EQ(file.FindString("System", "DirPath"), std::nullopt);
  EXPECT_EQ(file.FindInteger("Window", "Top"), std::nullopt);
  EXPECT_FALSE(folder_.Exists("none.ini")) << "loading makes no file";
}

TEST_F(IniFileTest, AFolderAtTheFilesPathIsNoEmptyFile) {
  folder_.MakeFolder("Quillon.ini");
  IniFile file(folder_.At("Quillon.ini"));
  EXPECT_FALSE(file.Load());
  EXPECT_EQ(file.ReadString("S", "k", "fallback"), "fallback");
  file.WriteString("S", "k", "v");
  EXPECT_FALSE(file.Save());
}

TEST_F(IniFileTest, AFileThatIsTooLargeIsNeitherReadNorWritten) {
  const std::string bytes = "[S]\r\nk=v\r\n";
  const std::string largest = bytes + std::string(IniFile::kLargestFile - bytes.size(), '\n');
  EXPECT_EQ(Loaded(largest).ReadString("S", "k", ""), "v");
  IniFile file(folder_.Write("Quillon.ini", largest + "\n"));
  EXPECT_FALSE(file.Load());
  EXPECT_EQ(file.ReadString("S", "k", "fallback"), "fallback");
  file.WriteString("S", "k", "new");
  EXPECT_FALSE(file.Save());
  EXPECT_TRUE(folder_.Read("Quillon.ini") == largest + "\n");
}

TEST_F(IniFileTest, AFileThatCouldNotBeReloadedIsNotWritten) {
  const std::string bytes = "[S]\r\nk=v\r\n";
  const std::string largest = bytes + std::string(IniFile::kLargestFile - bytes.size(), '\n');
  IniFile file = Loaded(largest);
  file.WriteString("S", "k", "longer");
  EXPECT_FALSE(file.Save());
  EXPECT_TRUE(folder_.Read("Quillon.ini") == largest);
  file.WriteString("S", "k", "w");
  EXPECT_TRUE(file.Save());
}

TEST_F(IniFileTest, AFileThatIsReloadedIsWrittenAgain) {
  folder_.MakeFolder("Quillon.ini");
  IniFile file(folder_.At("Quillon.ini"));
  EXPECT_FALSE(file.Load());
  std::filesystem::remove(folder_.At("Quillon.ini"));
  EXPECT_TRUE(file.Load());
  file.WriteString("S", "k", "v");
  EXPECT_TRUE(file.Save());
  EXPECT_EQ(folder_.Read("Quillon.ini"), "[S]\r\nk=v\r\n");
}

TEST_F(IniFileTest, IntegersAreReadLikeThePlatformReadsThem) {
  const struct {
    const char* name;
    std::string_view value;
    std::int32_t expected;
  } rows[] = {
      {"plain", "42", 42},
      {"minus", "-42", -42},
      {"plus", "+42", 42},
      {"blanks around", "  42  ", 42},
      {"a tab in front", "\t42", 42},
      {"digits, then text", "42abc", 42},
      {"a fraction is left off", "1800.75", 1800},
      {"text without digits", "abc", 0},
      {"only a sign", "-", 0},
      {"a blank behind the sign", "- 5", 0},
      {"two signs", "--5", 0},
      {"a word", "True", 0},
      {"hexadecimal is no number", "0x10", 0},
      {"in quotes", "\"5\"", 0},
      {"leading zeros", "007", 7},
      {"empty gives the default", "", 99},
      {"blanks only give the default", "   ", 99},
      {"largest", "2147483647", 2147483647},
      {"smallest", "-2147483648", -2147483647 - 1},
      {"wraps around", "2147483648", -2147483647 - 1},
      {"wraps around all 32 bits", "4294967297", 1},
      {"many digits", "99999999999999999999", 1661992959},
      {"full-width digits are text", "\x82\x54", 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Loaded("[S]\r\nk=" + std::string(row.value) + "\r\n").ReadInteger("S", "k", 99), row.expected);
  }
}

TEST_F(IniFileTest, StringsLoseSurroundingBlanksOnly) {
  const struct {
    const char* name;
    std::string_view line;
    std::string_view expected;
  } rows[] = {
      {"plain", "k=value", "value"},
      {"blanks around the value", "k=  a b  ", "a b"},
      {"blanks around the key", "  k  =v", "v"},
      {"tabs around the key", "\tk\t=v", "v"},
      {"a tab is part of the value", "k=\tv\t", "\tv\t"},
      {"empty is not missing", "k=", ""},
      {"blanks only", "k=   ", ""},
      {"double quotes stay", "k=\"a b\"", "\"a b\""},
      {"single quotes stay", "k='a'", "'a'"},
      {"further equals signs", "k=a=b=c", "a=b=c"},
      {"a semicolon is part of the value", "k=a;b", "a;b"},
      {"brackets in the value", "k=[x]", "[x]"},
      {"ends at a NUL", std::string_view("k=a\0b", 5), "a"},
      {"Shift_JIS", "k=\x89\xB9\x8A\x79", "音楽"},
      {"a second byte that looks like a backslash", "k=\x95\x5C", "表"},
      {"a byte that stands for nothing", "k=a\x81", "a・"},
      {"no equals sign", "k", "fallback"},
      {"a comment", ";k=v", "fallback"},
      {"a comment behind a blank", "  ;k=v", "fallback"},
      {"no key", "=v", "fallback"},
      {"another key", "kk=v", "fallback"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Loaded("[S]\r\n" + std::string(row.line) + "\r\n").ReadString("S", "k", "fallback"), row.expected);
  }
}

TEST_F(IniFileTest, ValuesAreCutTo127Characters) {
  const std::string kana = "\x82\xA0";
  std::string long127;
  std::string text127;
  for (int i = 0; i < 127; ++i) {
    long127 += kana;
    text127 += "あ";
  }
  EXPECT_EQ(Loaded("[S]\nk=" + std::string(200, 'x')).ReadString("S", "k", ""), std::string(127, 'x'));
  EXPECT_EQ(Loaded("[S]\nk=" + std::string(127, 'x')).ReadString("S", "k", ""), std::string(127, 'x'));
  EXPECT_EQ(Loaded("[S]\nk=" + long127 + kana).ReadString("S", "k", ""), text127) << "characters, not bytes";
  EXPECT_EQ(Loaded("[S]\n").ReadString("S", "k", std::string(200, 'd')), std::string(200, 'd')) << "default uncut";
}

TEST_F(IniFileTest, NamesIgnoreLetterCase) {
  const IniFile file = Loaded("[sYSTEM]\r\ndIRpATH=x\r\n");
  EXPECT_EQ(file.ReadString("System", "DirPath", ""), "x");
  EXPECT_EQ(AfterWriting("[sYSTEM]\r\ndIRpATH=x\r\n", "System", "DirPath", "y"), "[sYSTEM]\r\ndIRpATH=y\r\n")
      << "the names stay as they were written";
}

TEST_F(IniFileTest, FirstOccurrenceOfAKeyCounts) {
  const std::string bytes = "[S]\r\nk=1\r\nk=2\r\n[T]\r\nk=3\r\n[S]\r\nk=4\r\nlate=5\r\n";
  EXPECT_EQ(Loaded(bytes).ReadInteger("S", "k", 0), 1);
  EXPECT_EQ(Loaded(bytes).ReadInteger("T", "k", 0), 3);
  EXPECT_EQ(Loaded(bytes).ReadInteger("S", "late", 0), 5) << "a section may be continued";
  EXPECT_EQ(AfterWriting(bytes, "S", "k", "9"), "[S]\r\nk=9\r\nk=2\r\n[T]\r\nk=3\r\n[S]\r\nk=4\r\nlate=5\r\n");
}

TEST_F(IniFileTest, KeysBelongToTheirSectionOnly) {
  const IniFile file = Loaded("k=before\r\n[S]\r\na=1\r\n[SS]\r\nk=other\r\n");
  EXPECT_EQ(file.ReadString("S", "k", "fallback"), "fallback");
  EXPECT_EQ(file.ReadString("", "k", "fallback"), "fallback");
}

TEST_F(IniFileTest, SectionLinesAreReadWithTolerance) {
  EXPECT_EQ(Loaded("  [ S ] ; remark\nk=1\n").ReadInteger("S", "k", 0), 1);
  EXPECT_EQ(Loaded("[S\nk=1\n").ReadInteger("S", "k", 0), 0) << "without its bracket it is no section";
  EXPECT_EQ(Loaded("[T]\n[S] k=1\n").ReadInteger("S", "k", 0), 0) << "nothing behind the bracket counts";
}

TEST_F(IniFileTest, AllLineEndsAreKnown) {
  EXPECT_EQ(Loaded("[S]\nk=1\n").ReadInteger("S", "k", 0), 1);
  EXPECT_EQ(Loaded("[S]\rk=1\r").ReadInteger("S", "k", 0), 1);
  EXPECT_EQ(Loaded("[S]\r\nk=1").ReadInteger("S", "k", 0), 1) << "no end on the last line";
}

TEST_F(IniFileTest, NewFileIsWrittenWithCrLf) {
  IniFile file(folder_.At("new.ini"));
  EXPECT_TRUE(file.Load());
  file.WriteString("System", "DirPath", "C:\\");
  file.WriteString("Window", "Top", "1");
  file.WriteString("System", "MovePath", "");
  EXPECT_TRUE(file.Save());
  EXPECT_EQ(folder_.Read("new.ini"), "[System]\r\nDirPath=C:\\\r\nMovePath=\r\n[Window]\r\nTop=1\r\n");
}

TEST_F(IniFileTest, MissingFoldersAreMadeOnSaving) {
  IniFile file(folder_.At("deep/er/new.ini"));
  file.WriteString("S", "k", "v");
  EXPECT_TRUE(file.Save());
  EXPECT_EQ(folder_.Read("deep/er/new.ini"), "[S]\r\nk=v\r\n");
}

TEST_F(IniFileTest, WritingKeepsEverythingElse) {
  const struct {
    const char* name;
    std::string_view before;
    std::string_view after;  ///< the file after writing "new" to S/k
  } rows[] = {
      {"value replaced in place", "; remark\n\n[S]\na=1\nk=old\nb=2\n\n[T]\nk=3\n",
       "; remark\n\n[S]\na=1\nk=new\nb=2\n\n[T]\nk=3\n"},
      {"new key at the section's end, before its blank lines", "[S]\na=1\n\n\n[T]\nk=3\n",
       "[S]\na=1\nk=new\n\n\n[T]\nk=3\n"},
      {"new key behind a comment", "[S]\n; remark\n[T]\n", "[S]\n; remark\nk=new\n[T]\n"},
      {"new key in an empty section", "[S]\n[T]\n", "[S]\nk=new\n[T]\n"},
      {"new section at the end", "[T]\nk=3\n", "[T]\nk=3\n[S]\nk=new\n"},
      {"last line without an end gets one", "[S]\na=1", "[S]\na=1\nk=new\n"},
      {"only the value changes in a hand-written line", "[S]\n  k  =  old  \n", "[S]\n  k  =new\n"},
      {"mixed line ends stay", "[S]\r\na=1\nk=old\rb=2\r\n", "[S]\r\na=1\nk=new\rb=2\r\n"},
      {"lines that make no sense stay", "garbage\n[S]\n=x\nno equals\n[broken\nk=old\n",
       "garbage\n[S]\n=x\nno equals\n[broken\nk=new\n"},
      {"trailing blanks of other lines stay", "[S]  \na = 1 \t \nk=old\n", "[S]  \na = 1 \t \nk=new\n"},
      {"the first section of a name takes the new key", "[S]\na=1\n[T]\n[S]\nb=2\n",
       "[S]\na=1\nk=new\n[T]\n[S]\nb=2\n"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(AfterWriting(row.before, "S", "k", "new"), row.after);
  }
}

TEST_F(IniFileTest, LineThatReadsTheSameAlreadyIsNotTouched) {
  const std::string bytes = "[S]\n  k  =  old  \nn = a\x81\xFF\n";
  EXPECT_EQ(AfterWriting(bytes, "S", "k", "old"), bytes);
  const std::string shown = Loaded(bytes).ReadString("S", "n", "");
  EXPECT_EQ(AfterWriting(bytes, "S", "n", shown), bytes) << "bytes that stand for nothing survive";
}

TEST_F(IniFileTest, SavingUnchangedGivesTheSameBytes) {
  const std::vector<std::string> contents = {"",
                                             "\r\n",
                                             "[S]\r\nk=\x89\xB9\r\n",
                                             "[S]\nk=1",
                                             std::string("\xFF\xFE[\0S\0]\0", 8),
                                             std::string("a\0b\r\r\n\n[", 8),
                                             std::string(kByteOrderMark) + "[S]\nk=é\n"};
  for (const std::string& bytes : contents) {
    IniFile file = Loaded(bytes);
    EXPECT_TRUE(file.Save());
    EXPECT_EQ(folder_.Read("Quillon.ini"), bytes);
  }
}

TEST_F(IniFileTest, ValuesAreWrittenInCodePage932) {
  EXPECT_EQ(AfterWriting("", "S", "k", "音楽表①髙～"), "[S]\r\nk=\x89\xB9\x8A\x79\x95\x5C\x87\x40\xFB\xFC\x81\x60\r\n");
}

TEST_F(IniFileTest, ValueBeyondCodePage932MakesTheFileUtf8) {
  const std::string before = "; \x89\xB9\r\n[S]\r\na=\x8A\x79\r\nodd=\x81\r\n";
  const std::string after = AfterWriting(before, "S", "k", "é😀");
  EXPECT_EQ(after, std::string(kByteOrderMark) + "; 音\r\n[S]\r\na=楽\r\nodd=\x81\r\nk=é😀\r\n");
  const IniFile file = Loaded(after);
  EXPECT_EQ(file.ReadString("S", "a", ""), "楽");
  EXPECT_EQ(file.ReadString("S", "k", ""), "é😀");
}

TEST_F(IniFileTest, Utf8FileStaysUtf8) {
  const std::string before = std::string(kByteOrderMark) + "[S]\nk=é\n";
  EXPECT_EQ(AfterWriting(before, "S", "k", "音"), std::string(kByteOrderMark) + "[S]\nk=音\n");
}

TEST_F(IniFileTest, BytesThatAreNotUtf8MakeTheFileUtf8AndComeBack) {
  // A Linux path may hold any bytes.
  EXPECT_EQ(RoundTrip("/music/\xFF\xE9/"), "/music/\xFF\xE9/");
  EXPECT_TRUE(folder_.Read("Quillon.ini").starts_with(kByteOrderMark));
}

TEST_F(IniFileTest, ValueEndsAtALineBreakOrNul) {
  EXPECT_EQ(RoundTrip("a\r\n[T]\r\nk=evil"), "a");
  EXPECT_EQ(RoundTrip("a\nb"), "a");
  EXPECT_EQ(RoundTrip("a\rb"), "a");
  EXPECT_EQ(RoundTrip(std::string_view("a\0b", 3)), "a");
  EXPECT_EQ(folder_.Read("Quillon.ini"), "[S]\r\nk=a\r\n");
}

TEST_F(IniFileTest, ValuesComeBackAsThePlatformGivesThem) {
  EXPECT_EQ(RoundTrip("\"quoted\""), "\"quoted\"");
  EXPECT_EQ(RoundTrip("'single'"), "'single'");
  EXPECT_EQ(RoundTrip("a b"), "a b");
  EXPECT_EQ(RoundTrip(" a "), "a");
  EXPECT_EQ(RoundTrip(" "), "");
  EXPECT_EQ(RoundTrip("\t"), "\t");
  EXPECT_EQ(RoundTrip("　"), "　") << "an ideographic space is no blank";
  EXPECT_EQ(RoundTrip("a=b;c[d]"), "a=b;c[d]");
  EXPECT_EQ(RoundTrip(";"), ";");
  EXPECT_EQ(RoundTrip(std::string(200, 'x')), std::string(127, 'x'));
}

TEST_F(IniFileTest, LongerValueInTheFileIsShortenedWhenItIsWrittenBack) {
  const std::string before = "[S]\nk=" + std::string(200, 'x') + "\n";
  EXPECT_EQ(AfterWriting(before, "S", "k", Loaded(before).ReadString("S", "k", "")),
            "[S]\nk=" + std::string(127, 'x') + "\n");
}

TEST_F(IniFileTest, DamagedFilesNeverCrashAndTakeNewValues) {
  std::mt19937 random(20240607);  // NOLINT(cert-msc51-cpp,cert-msc32-c): the same bytes every time
  std::uniform_int_distribution<int> anyByte(0, 255);
  std::vector<std::string> contents = {std::string(1u << 19u, 'x'),
                                       std::string(1u << 19u, '\x81'),
                                       "[S]\nk=" + std::string(1u << 19u, '='),
                                       std::string(4096, '\0'),
                                       std::string(100000, '\n'),
                                       std::string(4096, '['),
                                       "[",
                                       "]",
                                       "[]",
                                       "[]\n=\n"};
  for (int i = 0; i < 60; ++i) {
    std::string bytes(static_cast<std::size_t>(i) * 23, '\0');
    for (char& c : bytes) c = static_cast<char>(anyByte(random));
    contents.push_back(std::move(bytes));
  }
  for (const std::string& bytes : contents) {
    SCOPED_TRACE(testing::PrintToString(bytes.substr(0, 40)));
    IniFile file = Loaded(bytes);
    EXPECT_EQ(file.ReadInteger("Damaged", "k", 5), 5);
    file.WriteString("Damaged", "k", "値");
    file.WriteString("Damaged", "u", "é");
    ASSERT_TRUE(file.Save());
    EXPECT_TRUE(file.Load());
    EXPECT_EQ(file.ReadString("Damaged", "k", ""), "値");
    EXPECT_EQ(file.ReadString("Damaged", "u", ""), "é");
  }
}

}  // namespace
}  // namespace quillon
