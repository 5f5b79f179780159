#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "LoadedLibrary.h"
#include "platform/Ansi.h"

namespace quillon::test {
namespace {

using namespace std::string_literals;

constexpr std::string_view kInvalid = "invalid target parameter";
constexpr std::string_view kParentheses = "unmatched () in regexp";
constexpr std::string_view kBrackets = "unmatched [] in regexp";

struct Row {
  const char* name;
  std::string command;
  std::string target;
  std::string expected;
};

class Bregexp : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(library_.Loaded()) << "the library does not stand beside the test program"; }

  void Check(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
      SCOPED_TRACE(row.name);
      EXPECT_EQ(library_.Replace(row.command, row.target), row.expected);
    }
  }

  /// Runs rows in UTF-8 with "k" (converted to code page 932) and with "u". The rows' own flags contain neither.
  void CheckBothEncodings(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
      SCOPED_TRACE(row.name);
      EXPECT_EQ(library_.Replace(row.command + "u", row.target), row.expected);
      const auto command = Utf8ToAnsi(row.command + "k");
      const auto target = Utf8ToAnsi(row.target);
      ASSERT_TRUE(command && target);
      EXPECT_EQ(AnsiToUtf8(library_.Replace(*command, *target)), row.expected);
    }
  }

  LoadedLibrary library_;
};

std::string Ansi(std::string_view text) {
  return Utf8ToAnsi(text).value_or("cannot be written in code page 932");
}

TEST_F(Bregexp, ReadsCommandsAsPerlDoes) {
  Check({
      {"first match only without g", "s/a/x/", "banana", "bxnana"},
      {"every match with g", "s/a/x/g", "banana", "bxnxnx"},
      {"no match leaves the target", "s/q/x/g", "banana", "banana"},
      {"empty target", "s/a/x/g", "", ""},
      {"empty target, empty match", "s/^/x/g", "", "x"},
      {"empty replacement", "s/a//g", "banana", "bnn"},
      {"escaped slash in the pattern", "s/a\\/b/x/g", "1a/b2", "1x2"},
      {"escaped slash in the replacement", "s/a/\\//g", "bab", "b/b"},
      {"escaped slash between \\Q and \\E", "s/\\Q.\\/\\E/x/g", "a./", "ax"},
      {"escaped backslash, then the end of the pattern", "s/a\\\\/x/g", "a\\b", "xb"},
      {"flags in any order and number", "s/A/x/igi", "banana", "bxnxnx"},
      {"slash inside a class ends the pattern all the same", "s/[/]/x/g", "a/b", std::string(kInvalid)},
      {"no flags", "s/A/x/", "banana", "banana"},
      {"class", "s/[ab]+/-/g", "aabcab", "-c-"},
      {"alternatives", "s/cat|dog/pet/g", "cat dog", "pet pet"},
      {"lazy", "s/<.*?>/-/g", "<a><b>", "--"},
      {"look ahead and behind", "s/(?<=a)b(?=c)/x/g", "abc abd", "axc abd"},
      {"dollar before a final newline", "s/$/x/g", "a\n", "ax\nx"},
      {"dot does not match a newline", "s/./x/g", "a\nb", "x\nx"},
      {"dot matches a carriage return", "s/./x/g", "a\rb", "xxx"},
      {"NUL in target and command", "s/\0b/x/g"s, "a\0b"s, "ax"},
  });
}

TEST_F(Bregexp, ReturnsTheErrorTextsForDefects) {
  const auto row = [](const char* name, std::string command, std::string_view expected) {
    return Row{name, std::move(command), "target", std::string(expected)};
  };
  Check({
      row("open parenthesis", "s/(a/x/g", kParentheses),
      row("closing parenthesis", "s/a)/x/g", kParentheses),
      row("open comment", "s/(?#a/x/g", kParentheses),
      row("open bracket", "s/[a/x/g", kBrackets),
      row("open bracket in a group", "s/([a)/x/g", kBrackets),
      row("open parenthesis with k", "s/(a/x/gk", kParentheses),
      row("open parenthesis with u", "s/(a/x/gu", kParentheses),
      row("nothing to repeat", "s/*a/x/g", kInvalid),
      row("repeat of a repeat", "s/a**/x/g", kInvalid),
      row("range backwards", "s/[z-a]/x/g", kInvalid),
      row("numbers of a repeat backwards", "s/a{3,1}/x/g", kInvalid),
      row("group that is not there", "s/(a)\\2/x/g", kInvalid),
      row("backslash at the end", "s/a\\", kInvalid),
      row("unknown flag", "s/a/x/gx", kInvalid),
      row("unknown flag z", "s/a/x/z", kInvalid),
      row("capital flag", "s/a/x/G", kInvalid),
      row("k and u together", "s/a/x/gku", kInvalid),
      row("third slash", "s/a/x/g/", kInvalid),
      row("slash in the pattern", "s/a/b/c/g", kInvalid),
      row("no second slash", "s/a", kInvalid),
      row("no third slash", "s/a/x", kInvalid),
      row("last slash escaped", "s/a/x\\/g", kInvalid),
      row("only the first slash", "s/", kInvalid),
      row("empty command", "", kInvalid),
      row("other operation", "m/a/g", kInvalid),
      row("translation", "tr/a/b/", kInvalid),
      row("number too large for a byte", "s/a/\\x{100}/g", kInvalid),
      row("no such character", "s/a/\\x{110000}/gu", kInvalid),
      row("surrogate", "s/a/\\x{D800}/gu", kInvalid),
      row("open brace", "s/a/\\x{41/gu", kInvalid),
      row("hexadecimal digits missing", "s/a/\\x{4G}/gu", kInvalid),
      row("character that stands for a byte inside", "s/a/\\x{1000FF}/gu", kInvalid),
      row("single byte of UTF-8", "s/\\C/x/gu", kInvalid),
      row("mode that would change \\w", "s/(*UCP)a/x/gu", kInvalid),
  });
}

TEST_F(Bregexp, TheCheckNamesTheDefectAndItsPlace) {
  ASSERT_NE(library_.Symbol("QuillonRegexCheck"), nullptr);
  using Defect = LoadedLibrary::Defect;
  const std::pair<std::string, Defect> rows[] = {
      {"s/a(b)/$1/gu", {0, 0}},
      {"s/あ/い/gu", {0, 0}},
      {Ansi("s/表/ソ/gk"), {0, 0}},
      {"s/ab)/x/gu", {122, 2}},
      {"s/あい)/x/gu", {122, 2}},
      {Ansi("s/表表)/x/gk"), {122, 2}},
      {"s/\x82\xA0)/x/g", {122, 2}},
      {"s/\xFF)/x/gu", {122, 1}},
      {"s/\\/a\\/)/x/gu", {122, 5}},
      {"s/[い-あ]/x/gu", {108, 3}},
      {"s/(a/x/gu", {114, 2}},
      {"s/[a/x/gu", {106, 2}},
      {"s/*/x/gu", {109, 0}},
      {"s/a/\\x{41/gu", {kBregexpBadReplacement, 0}},
      {"s/a/b/c/gu", {kBregexpBadCommand, 0}},
      {"s/a/b/gku", {kBregexpBadCommand, 0}},
      {"", {kBregexpBadCommand, 0}},
  };
  for (const auto& [command, defect] : rows) {
    const Defect found = library_.Check(command);
    EXPECT_EQ(found.number, defect.number) << command;
    EXPECT_EQ(found.offset, defect.offset) << command;
    const std::string answer = library_.Replace(command, "target");
    EXPECT_EQ(defect.number != 0, answer == kInvalid || answer == kParentheses || answer == kBrackets) << command;
  }
}

TEST_F(Bregexp, BuildsReplacementsAsPerlDoes) {
  Check({
      {"groups", "s/(a)(b)/$2$1/g", "abab", "baba"},
      {"groups in braces", "s/(a)(b)/${2}1${1}/", "ab", "b1a"},
      {"groups with a backslash", "s/(a)(b)/\\2\\1/", "ab", "ba"},
      {"group with two digits", "s/(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)/$10-$1/", "abcdefghij", "j-a"},
      {"group that is not there", "s/a/[$1$9${12}$99999999999]/", "a", "[]"},
      {"group without a part in the match", "s/(b)?a/[$1]/g", "aba", "[][b]"},
      {"whole match", "s/a+/<$&>/g", "baab", "b<aa>b"},
      {"before and after", "s/b/[$`|$']/", "abc", "a[a|c]c"},
      {"before is the original text", "s/./$`/g", "abc", "aab"},
      {"dollar before nothing known", "s/a/$ $$ $x $/", "a", "$ $$ $x $"},
      {"dollar before a group", "s/(a)/$$1/", "a", "$a"},
      {"escaped dollar", "s/(a)/\\$1/", "a", "$1"},
      {"open brace", "s/(a)/${1 ${x} ${}/", "a", "${1 ${x} ${}"},
      {"escaped backslash", "s/a/\\\\/g", "bab", "b\\b"},
      {"controls", "s/a/\\t\\n\\r\\f\\a\\e\\b/", "a", "\t\n\r\f\a\x1B\b"},
      {"NUL", "s/a/-\\0-/", "a", "-\0-"s},
      {"octal", "s/(a)/\\101\\012\\18/", "a", "A\n\x01"s + "8"},
      {"nine is no octal digit", "s/(a)/\\98/", "a", "98"},
      {"hexadecimal", "s/a/\\x41\\x{42}\\x7a1\\x4/", "a", "ABz1\x04"},
      {"byte", "s/a/\\xE9/", "a", "\xE9"},
      {"hexadecimal without digits", "s/a/-\\x-/", "a", "-\0-"s},
      {"unknown escape", "s/a/\\q\\-\\//", "a", "q-/"},
      {"backslash cannot end it", "s/a/x\\\\/", "a", "x\\"},
      {"at sign and ampersand are plain", "s/a/@&/", "a", "@&"},
      {"upper case to the end", "s/(.*)/\\U$1/", "abc d", "ABC D"},
      {"upper case up to \\E", "s/(a)(b)/\\U$1x\\E$2/", "ab", "AXb"},
      {"lower case", "s/(.*)/\\L$1Q/", "ABC", "abcq"},
      {"next character", "s/(\\w+)/\\u$1/g", "one two", "One Two"},
      {"next character down", "s/(\\w+)/\\l$1/g", "ONE TWO", "oNE tWO"},
      {"next character after an empty group", "s/x()/\\u$1def/", "x", "Def"},
      {"first upper, rest lower", "s/(\\w+)/\\u\\L$1/g", "oNE TWO", "One Two"},
      {"the same the other way round", "s/(\\w+)/\\L\\u$1/g", "oNE TWO", "One Two"},
      {"\\u inside \\L does nothing", "s/x/\\LABC\\uDEF/", "x", "abcdef"},
      {"\\L ends \\U", "s/x/\\Uab\\LCD\\Eef/", "x", "ABcdef"},
      {"the first of two counts", "s/x/\\u\\lAbc/", "x", "Abc"},
      {"\\E takes back \\u", "s/x/\\u\\Eab/", "x", "ab"},
      {"case begins anew with every match", "s/(\\w)/$1\\U/g", "ab", "ab"},
      {"only ASCII letters have a case among bytes", "s/(.*)/\\U$1/", "a\xE9", "A\xE9"},
  });
}

TEST_F(Bregexp, EmptyMatchesAdvanceAsInPerl) {
  Check({
      {"empty pattern", "s//x/g", "abc", "xaxbxcx"},
      {"empty pattern once", "s//x/", "abc", "xabc"},
      {"star", "s/a*/x/g", "baac", "xbxxcx"},
      {"lazy star", "s/x*?/-/g", "abc", "-a-b-c-"},
      {"word borders", "s/\\b/|/g", "ab cd", "|ab| |cd|"},
      {"empty, then more at the same place", "s/(?=b)|b/x/g", "abc", "axxc"},
      {"alternatives with an empty one", "s/a|b|/-/g", "abc", "---c-"},
      {"match that starts late", "s/a\\K/x/g", "aaa", "axaxax"},
      {"optional group", "s/(b)?/<$1>/g", "abc", "<>a<b><>c<>"},
      {"start only", "s/^/x/g", "aaa", "xaaa"},
      {"end only", "s/$/x/g", "aaa", "aaax"},
  });
}

TEST_F(Bregexp, EmptyMatchesAdvanceByWholeCharacters) {
  CheckBothEncodings({
      {"empty pattern", "s//-/g", "あ表ｱb", "-あ-表-ｱ-b-"},
      {"star", "s/x*/-/g", "ソx能", "-ソ--能-"},
      {"boundary of a look ahead", "s/(?=能)/-/g", "可能性", "可-能性"},
  });
}

TEST_F(Bregexp, DoubleByteCharactersAreCharacters) {
  CheckBothEncodings({
      {"backslash as trail byte in the target", "s/表/x/g", "表示表", "x示x"},
      {"backslash as trail byte before the slash", "s/ソ/能/g", "ソ", "能"},
      {"trail byte that looks like a letter", "s/A/x/g", "アA", "アx"},  // ア is 83 41
      {"trail and lead byte that look like a character", "s/＝/x/g", "カ－カ", "カ－カ"},
      {"dot is a whole character", "s/./x/g", "あアｱa", "xxxx"},
      {"class of characters", "s/[あいう]/x/g", "あえい", "xえx"},
      {"range of katakana", "s/[ァ-ヶ]+/x/g", "アイウえオ", "xえx"},
      {"range of half-width katakana", "s/[ｦ-ﾟ]/x/g", "ｱアﾟ", "xアx"},
      {"range of kanji goes by Unicode", "s/[一-龠]/x/g", "一乙丁熙龠あ", "xxxxxあ"},
      {"vertical bar as trail byte", "s/ポ|x/-/g", "ポx|", "--|"},
      {"bracket as trail byte", "s/ゼ/x/g", "ゼ[", "x["},
      {"case by character, full-width", "s/ａ/x/gi", "Ａａ", "xx"},
      {"case by character, Greek and Cyrillic", "s/[αд]/x/gi", "ΑДαд", "xxxx"},
      {"without i case counts", "s/ａ/x/g", "Ａａ", "Ａx"},
      {"case change", "s/(.*)/\\U$1/", "ａｂα", "ＡＢΑ"},
      {"next character", "s/(.*)/\\u$1/", "ａｂ", "Ａｂ"},
      {"Unicode number", "s/\\x{3042}/\\x{3044}/g", "あ", "い"},
      {"groups", "s/(.)(.)/$2$1/g", "東京", "京東"},
      {"before and after", "s/京/$`$'/", "東京都", "東東都都"},
  });
}

TEST_F(Bregexp, ClassEscapesKnowAsciiOnly) {
  CheckBothEncodings({
      {"word", "s/\\w/x/g", "aZ_9あアｱ９Ａ", "xxxxあアｱ９Ａ"},
      {"not word", "s/\\W/x/g", "aあ-", "axx"},
      {"digit", "s/\\d/x/g", "1１", "x１"},
      {"blank", "s/\\s/x/g", "a b\t　", "axbx　"},
      {"not blank", "s/\\S/x/g", " 　", " x"},
      {"word border", "s/\\b/|/g", "あa", "あ|a|"},
      {"named class", "s/[[:alpha:]]/x/g", "aあ", "xあ"},
  });
}

TEST_F(Bregexp, Utf8TreatsInvalidBytesAsCharactersAndKeepsThem) {
  Check({
      {"around a match", "s/a/x/gu", "\xFF"s + "a\xE3\x81"s, "\xFF"s + "x\xE3\x81"s},
      {"dot matches each of them", "s/./<$&>/gu", "\x80\xE3\x81", "<\x80><\xE3><\x81>"},
      {"the whole text", "s/^(.*)$/01 $1/gu", "a\xFFz", "01 a\xFFz"},
      {"found by itself only", "s/\x82/x/gu", "\x82\x81\u3042", "x\x81\u3042"},
      {"next to a whole character", "s/\u3042/x/gu", "\u3042\xE3", "x\xE3"},
      {"characters of the last private plane", "s/q/x/gu", "\U0010FFFDq\U00100080", "\U0010FFFDx\U00100080"},
      {"and they are found", "s/\U00100080/x/gu", "q\U00100080\x80", "qx\x80"},
      {"nothing to find", "s/b/x/gu", "\xC3\xC3\xFE", "\xC3\xC3\xFE"},
      {"in the replacement", "s/a/\xFF/gu", "bab", "b\xFF"s + "b"},
      {"case change beside them", "s/a/\\U\xFFq/gu", "a", "\xFF"s + "Q"},
      {"four-byte characters", "s/./<$&>/gu", "\U0001F600", "<\U0001F600>"},
  });
}

TEST_F(Bregexp, CodePage932KeepsInvalidBytes) {
  Check({
      {"lead byte at the end", "s/a/x/gk", "a\x81", "x\x81"},
      {"lead byte alone", "s/a/x/gk", "\x81 a", "\x81 x"},
      {"unassigned pair is one character", "s/./<$&>/gk", "\x84\xFC", "<\x84\xFC>"},
      {"second code of a character", "s/a/x/gk", "a\xED\x40\xFA\x5C", "x\xED\x40\xFA\x5C"},
      {"and it is still found by itself", "s/\xED\x40/x/gk", "\xED\x40", "x"},
      {"in the replacement", "s/a/\x84\xFC/gk", "a", "\x84\xFC"},
  });
}

TEST_F(Bregexp, ResultThatCodePage932CannotHoldIsAnError) {
  Check({
      {"emoji", "s/a/\\x{1F600}/gk", "bab", std::string(kInvalid)},
      {"not replaced, no error", "s/q/\\x{1F600}/gk", "bab", "bab"},
      {"a character that is used for bytes inside", "s/a/\\x{100081}/gk", "bab", std::string(kInvalid)},
      {"character that it can hold", "s/a/\\x{3042}/gk", "a", Ansi("あ")},
  });
}

TEST_F(Bregexp, WithoutKAndUEveryByteIsACharacter) {
  Check({
      {"dot", "s/./x/g", "\x82\xA0", "xx"},
      {"byte number", "s/\\x82/x/g", "\x82\xA0", "x\xA0"},
      {"no case for bytes", "s/\xE0/x/gi", "\xC0", "\xC0"},
  });
}

TEST_F(Bregexp, RunawayMatchesEndQuicklyAsErrors) {
  const std::string many(5000, 'a');
  for (const char* pattern : {"(a+)+[bc]", "(a|aa)+[bc]", "(a*)*[bc]", "(?:a?){30}a{30}[bc]", "a*a*a*a*a*a*a*[bc]",
                              "^(.*)*[bc]", "(?:a|b|ab)*[xy]\\1?(?=z)|(x+x+)+y|(a|a?)+[bc]", "((a*)*)*[bc]"}) {
    for (const char* flags : {"g", "gk", "gu"}) {
      SCOPED_TRACE(std::string(pattern) + " " + flags);
      const auto start = std::chrono::steady_clock::now();
      EXPECT_EQ(library_.Replace("s/" + std::string(pattern) + "/x/" + flags, many), kInvalid);
      EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    }
  }
}

TEST_F(Bregexp, EndlessRecursionIsAnError) {
  EXPECT_EQ(library_.Replace("s/(a(?1)?b?)+[cd]/x/gu", std::string(20000, 'a')), kInvalid);
  EXPECT_EQ(library_.Replace("s/(?R)/x/gu", "a"), kInvalid);
}

TEST_F(Bregexp, OrdinaryPatternsMatchLongTexts) {
  const std::string many(30000, 'a');
  EXPECT_TRUE(library_.Replace("s/^(.*)$/<$1>/gu", many) == "<" + many + ">");
  EXPECT_EQ(library_.Replace("s/a//gk", many), "");
  EXPECT_EQ(library_.Replace("s/(a+)b|a{30000}/x/gu", many), "x");
}

TEST_F(Bregexp, MatchThatStartsBehindItsEndIsAnError) {
  EXPECT_EQ(library_.Replace("s/(?(DEFINE)(?<late>ab\\K))(?=(?&late))/x/gu", "abab"), kInvalid);
}

TEST_F(Bregexp, WritesNoMoreThanTheCapacity) {
  std::string buffer = "......";
  void* slot = nullptr;
  const std::string_view command = "s/a/xyz/g";
  EXPECT_EQ(library_.Function()(command.data(), command.size(), "aa", 2, buffer.data(), 4, &slot), 6u);
  EXPECT_EQ(buffer, "xyzx..");
  EXPECT_EQ(library_.Function()(command.data(), command.size(), "aa", 2, nullptr, 0, &slot), 6u);
  EXPECT_NE(slot, nullptr);
  EXPECT_EQ(library_.Function()(nullptr, 0, nullptr, 0, nullptr, 0, &slot), 0u);
  EXPECT_EQ(slot, nullptr);
}

TEST_F(Bregexp, WorksWithoutASlot) {
  std::string buffer(16, '.');
  const std::string_view command = "s/a/x/g";
  const std::size_t length =
      library_.Function()(command.data(), command.size(), "bab", 3, buffer.data(), buffer.size(), nullptr);
  EXPECT_EQ(buffer.substr(0, length), "bxb");
  EXPECT_EQ(library_.Function()(nullptr, 0, nullptr, 0, nullptr, 0, nullptr), 0u);
}

TEST_F(Bregexp, ASlotFollowsTheCommandAndKeepsErrors) {
  EXPECT_EQ(library_.Replace("s/a/x/g", "aba"), "xbx");
  EXPECT_EQ(library_.Replace("s/a/x/g", "cac"), "cxc");
  EXPECT_EQ(library_.Replace("s/(a/x/g", "aba"), kParentheses);
  EXPECT_EQ(library_.Replace("s/(a/x/g", "aba"), kParentheses);
  EXPECT_EQ(library_.Replace("s/a/y/g", "aba"), "yby");
}

TEST_F(Bregexp, AResultThatExplodesIsCutOffButStaysLongerThanEveryName) {
  const std::string many(30000, 'a');
  for (const char* command : {"s/a/$`$'$`$'/g", "s/a/$`$'$`$'/gk", "s/a/\\x{FF71}$`$'$`$'/gk", "s/a/\\U$`$'/gu"}) {
    SCOPED_TRACE(command);
    const std::size_t length = library_.Replace(command, many).size();
    EXPECT_GT(length, 65536u);
    EXPECT_LT(length, 1'000'000u);
  }
}

TEST_F(Bregexp, ExportsItsInterfaceOnly) {
  EXPECT_EQ(library_.Symbol("Match"), nullptr);
  EXPECT_EQ(library_.Symbol("_ZN7quillon10AnsiToUtf8B5cxx11ESt17basic_string_viewIcSt11char_traitsIcEE"), nullptr);
}

}  // namespace
}  // namespace quillon::test
