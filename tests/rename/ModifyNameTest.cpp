#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Text.h"
#include "rename/ModifyName.h"
#include "rename/RepeatedRule.h"
#include "rename/ReplaceText.h"

namespace quillon {
namespace {

class CountingProgress final : public Progress {
 public:
  bool Continue(std::size_t, std::size_t, const std::string&) override { return true; }
  bool Continue() override {
    ++count;
    return true;
  }
  int count = 0;
};

using Answers = std::map<std::string, std::string>;

/// Answers by a table from target to result, counts the calls and keeps the last command.
class TableEngine final : public RegexEngine {
 public:
  explicit TableEngine(Answers answers) : answers_(std::move(answers)) {}

  std::optional<std::string> Replace(std::string_view command, std::string_view target) override {
    ++calls;
    lastCommand = command;
    const auto found = answers_.find(std::string(target));
    return found == answers_.end() ? std::string(target) : found->second;
  }

  int calls = 0;
  std::string lastCommand;

 private:
  Answers answers_;
};

/// Answers by a function.
class FunctionEngine final : public RegexEngine {
 public:
  explicit FunctionEngine(std::function<std::string(std::string)> answer) : answer_(std::move(answer)) {}

  std::optional<std::string> Replace(std::string_view, std::string_view target) override {
    ++calls;
    return answer_(std::string(target));
  }

  int calls = 0;

 private:
  std::function<std::string(std::string)> answer_;
};

class AbsentEngine final : public RegexEngine {
 public:
  std::optional<std::string> Replace(std::string_view, std::string_view) override { return std::nullopt; }
};

OptionValues::Modify Rule(const std::string& find, const std::string& replacement) {
  OptionValues::Modify rules;
  rules.rules[0] = {true, find, replacement};
  return rules;
}

OptionValues::Modify RegexRule(const std::string& find, const std::string& replacement) {
  OptionValues::Modify rules = Rule(find, replacement);
  rules.method = FindMethod::kRegex;
  return rules;
}

ModifyResult Modify(std::string_view name, const OptionValues::Modify& rules, std::size_t listCount = 1) {
  AbsentEngine engine;
  CountingProgress progress;
  return ModifyName(name, rules, listCount, engine, progress);
}

std::string Modified(std::string_view name, const OptionValues::Modify& rules, std::size_t listCount = 1) {
  const ModifyResult result = Modify(name, rules, listCount);
  EXPECT_FALSE(result.leftAlone);
  return result.name;
}

ModifyResult ModifyWithLibrary(std::string_view name, const OptionValues::Modify& rules, std::size_t listCount = 1) {
  RegexLibrary library;
  EXPECT_TRUE(library.Available()) << "the library does not stand beside the test program";
  CountingProgress progress;
  return ModifyName(name, rules, listCount, library, progress);
}

bool IsLeftAlone(const ModifyResult& result, std::string_view name) {
  return result.leftAlone && result.name == name;
}

std::string Repeat(std::string_view text, std::size_t count) {
  std::string result;
  for (std::size_t i = 0; i < count; ++i) result += text;
  return result;
}

TEST(ModifyName, WithoutRulesNothingChanges) {
  EXPECT_EQ(Modified("a:b ｱ Ａ", OptionValues::Modify(), 5), "a:b ｱ Ａ");
  EXPECT_EQ(Modified("", OptionValues::Modify(), 5), "");
}

TEST(ModifyName, ReplacesEveryInvalidCharacter) {
  OptionValues::Modify rules;
  rules.replaceInvalid = true;
  rules.invalidReplacement = "_";
  EXPECT_EQ(Modified("a:b?c", rules), "a_b_c");
  EXPECT_EQ(Modified("\"*/:<>?\\|\r", rules), "__________");
  EXPECT_EQ(Modified("表:ソ?", rules), "表_ソ_");
  EXPECT_EQ(Modified("tab\tand：full-width", rules), "tab\tand：full-width");
  rules.invalidReplacement = "";
  EXPECT_EQ(Modified("a::b?c", rules), "abc");
  rules.invalidReplacement = "--";
  EXPECT_EQ(Modified("a::b", rules), "a----b");
  rules.replaceInvalid = false;
  EXPECT_EQ(Modified("a:b", rules), "a:b");
}

TEST(ModifyName, InvalidCharactersAreReplacedEvenWithAnEmptyList) {
  OptionValues::Modify rules;
  rules.replaceInvalid = true;
  rules.invalidReplacement = "_";
  EXPECT_EQ(Modified("a:b", rules, 0), "a_b");
}

TEST(ModifyName, AnInvalidReplacementForInvalidCharactersEndsAtOnce) {
  for (const char* text : {":", "x?", "*y"}) {
    SCOPED_TRACE(text);
    OptionValues::Modify rules = Rule("a", "b");
    rules.replaceInvalid = true;
    rules.invalidReplacement = text;
    rules.upper = true;
    EXPECT_TRUE(IsLeftAlone(Modify("a:b", rules), "a:b"));
    EXPECT_EQ(Modified("ab", rules), "BB");  // nothing to replace, nothing endless
  }
}

TEST(ModifyName, APlainRuleThatFindsItselfGrowsOncePerRow) {
  EXPECT_EQ(Modified("a", Rule("a", "aa"), 3), "aaaaaaaa");
  EXPECT_EQ(Modified("bab", Rule("a", "aa"), 3), "baaaaaaaab");
  EXPECT_EQ(Modified("a", Rule("a", "aa"), 0), "a");
  EXPECT_EQ(Modified("a", Rule("a", "aa"), 1), "aa");
  EXPECT_EQ(Modified("a", Rule("a", "ab"), 5), "abbbbb");
}

TEST(ModifyName, RulesRunInOrderAndInactiveOnesDoNot) {
  OptionValues::Modify rules;
  rules.rules[0] = {true, "a", "b"};
  rules.rules[1] = {false, "b", "x"};
  rules.rules[2] = {true, "b", "c"};
  rules.rules[3] = {true, "", "y"};
  rules.rules[4] = {true, "c", "d"};
  EXPECT_EQ(Modified("abc", rules, 4), "ddd");
}

TEST(ModifyName, EachRuleIsAppliedForAllRowsBeforeTheNext) {
  OptionValues::Modify rules;
  rules.rules[0] = {true, "a", "ab"};
  rules.rules[1] = {true, "b", ""};
  EXPECT_EQ(Modified("a", rules, 3), "a");
  rules.rules[0] = {true, "ab", "b"};
  rules.rules[1] = {false, "", ""};
  EXPECT_EQ(Modified("aaab", rules, 2), "ab");
}

TEST(ModifyName, IgnoreCaseIsForFindingOnly) {
  OptionValues::Modify rules = Rule("ab", "Xy");
  EXPECT_EQ(Modified("abAB", rules), "XyAB");
  rules.ignoreCase = true;
  EXPECT_EQ(Modified("abAB", rules), "XyXy");
}

TEST(ModifyName, AReplacementTextMayBeABlank) {
  EXPECT_EQ(Modified("a_b", Rule("_", " ")), "a b");
}

TEST(ModifyName, WidthAndCaseStepsRunInOrder) {
  struct Row {
    const char* name;
    bool narrow, wide, lower, upper, proper;
    std::string text, expected;
  };
  const Row rows[] = {
      {"narrow", true, false, false, false, false, "Ａｂアﾊﾞ　", "Abｱﾊﾞ "},
      {"wide", false, true, false, false, false, "Abｱﾊﾞ ", "Ａｂアバ　"},
      {"narrow and wide: wide", true, true, false, false, false, "AｂｱアガｶﾞX", "ＡｂアアガガＸ"},
      {"lower", false, false, true, false, false, "AbＣ", "abｃ"},
      {"upper", false, false, false, true, false, "aBｃ", "ABＣ"},
      {"proper", false, false, false, false, true, "hello WORLD", "Hello World"},
      {"lower and upper: upper", false, false, true, true, false, "aB", "AB"},
      {"upper and proper: proper", false, false, false, true, true, "hello WORLD", "Hello World"},
      {"all of them", true, true, true, true, true, "hello WORLD", "Ｈｅｌｌｏ　Ｗｏｒｌｄ"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    OptionValues::Modify rules;
    rules.narrow = row.narrow;
    rules.wide = row.wide;
    rules.lower = row.lower;
    rules.upper = row.upper;
    rules.proper = row.proper;
    EXPECT_EQ(Modified(row.text, rules), row.expected);
    EXPECT_EQ(Modified(row.text, rules, 0), row.expected);
  }
}

TEST(ModifyName, StepsComeInTheirOrder) {
  OptionValues::Modify rules = Rule("-", "ｱ");
  rules.replaceInvalid = true;
  rules.invalidReplacement = "-";
  rules.wide = true;
  EXPECT_EQ(Modified("x:", rules), "ｘア");  // invalid characters, then rules, then width
  rules = Rule("ａ", "Q");
  rules.narrow = true;
  rules.lower = true;
  EXPECT_EQ(Modified("ａa", rules), "qa");  // the rule sees the full-width letter
  rules = OptionValues::Modify();
  rules.replaceInvalid = true;
  rules.invalidReplacement = "_";
  rules.narrow = true;
  EXPECT_EQ(Modified("a？", rules), "a?");  // the result of the width step is not checked again
}

TEST(ModifyName, PassesRegularExpressionsToTheEngine) {
  TableEngine engine(Answers{{"name", "other"}});
  CountingProgress progress;
  OptionValues::Modify rules = RegexRule("n", "o");
  EXPECT_EQ(ModifyName("name", rules, 3, engine, progress).name, "other");
  EXPECT_EQ(engine.lastCommand, "s/n/o/gk");
  rules.ignoreCase = true;
  EXPECT_EQ(ModifyName("name", rules, 3, engine, progress).name, "other");
  EXPECT_EQ(engine.lastCommand, "s/n/o/gik");
}

TEST(ModifyName, AnErrorOfTheEngineLeavesTheNameAndTheOtherRulesGoOn) {
  TableEngine engine(Answers{{"name", "unmatched () in regexp"}});
  CountingProgress progress;
  OptionValues::Modify rules = RegexRule("(", "x");
  rules.upper = true;
  const ModifyResult result = ModifyName("name", rules, 3, engine, progress);
  EXPECT_EQ(result.name, "NAME");
  EXPECT_FALSE(result.leftAlone);
}

TEST(ModifyName, AnUnmatchedPatternLeavesTheName) {
  EXPECT_EQ(ModifyWithLibrary("name (1", RegexRule("(", "x"), 3).name, "name (1");
  EXPECT_EQ(ModifyWithLibrary("name [1", RegexRule("[", "x"), 3).name, "name [1");
}

TEST(ModifyName, RegularExpressionsDoNothingWithoutALibrary) {
  OptionValues::Modify rules = RegexRule("a", "b");
  rules.upper = true;
  EXPECT_EQ(Modified("a", rules, 3), "A");
}

TEST(ModifyName, RegularExpressionsFindAsTheyShould) {
  OptionValues::Modify rules = RegexRule("^(\\d+)[ _]*(.*)$", "$2 - $1");
  EXPECT_EQ(ModifyWithLibrary("01 _曲名", rules, 1).name, "曲名 - 01");
  rules = RegexRule("(ア|イ)+", "<$&>");
  EXPECT_EQ(ModifyWithLibrary("アイウ", rules, 2).name, "<<アイ>>ウ");
}

TEST(ModifyName, ARuleThatChangesNothingMoreIsNotAppliedAgain) {
  TableEngine engine(Answers{{"a", "b"}, {"b", "c"}});
  CountingProgress progress;
  EXPECT_EQ(ModifyName("a", RegexRule("x", "y"), 1'000'000, engine, progress).name, "c");
  EXPECT_EQ(engine.calls, 3);
  EXPECT_EQ(progress.count, 3);
}

TEST(ModifyName, PendingMessagesAreProcessedBeforeEveryApplicationAndInvalidCharacter) {
  AbsentEngine engine;
  CountingProgress progress;
  OptionValues::Modify rules = Rule("a", "aa");
  rules.replaceInvalid = true;
  rules.invalidReplacement = "_";
  rules.rules[4] = {true, "q", "r"};
  EXPECT_EQ(ModifyName("?a:?", rules, 3, engine, progress).name, "_aaaaaaaa__");
  EXPECT_EQ(progress.count, 2 + 3 + 1);
}

TEST(ModifyName, CyclesOfAnyPeriodGiveTheExactResult) {
  for (std::size_t period = 1; period <= 12; ++period) {
    for (std::size_t lead : {0u, 1u, 5u}) {
      for (std::size_t count : {0u, 1u, 2u, 7u, 11u, 12u, 13u, 50u, 999u, 100'000u}) {
        SCOPED_TRACE(std::to_string(period) + " after " + std::to_string(lead) + ", " + std::to_string(count) +
                     " rows");
        FunctionEngine engine([&](const std::string& name) {
          const std::size_t next = std::stoul(name) + 1;
          return std::to_string(next < lead + period ? next : lead);
        });
        CountingProgress progress;
        const std::size_t expected = count < lead ? count : lead + (count - lead) % period;
        EXPECT_EQ(ModifyName("0", RegexRule("x", "y"), count, engine, progress).name, std::to_string(expected));
        EXPECT_LT(engine.calls, 100);
      }
    }
  }
}

TEST(ModifyName, ASwappingPatternCostsNothingInALongList) {
  const OptionValues::Modify rules = RegexRule("^(\\w)(.*?)(\\w)$", "$3$2$1");
  EXPECT_EQ(ModifyWithLibrary("abc", rules, 100'000).name, "abc");
  EXPECT_EQ(ModifyWithLibrary("abc", rules, 99'999).name, "cba");
}

TEST(ModifyName, ANameThatGrowsPastTheLimitIsLeftAloneWhole) {
  OptionValues::Modify rules = Rule("x", "y");
  rules.rules[1] = {true, "a", "aa"};
  rules.upper = true;
  EXPECT_TRUE(IsLeftAlone(Modify("xa", rules, 100), "xa"));
  EXPECT_TRUE(IsLeftAlone(Modify("xa", rules, 15), "xa"));
  EXPECT_EQ(CharacterCount(Modified("xa", rules, 14)), 1u + 16384u);
}

TEST(ModifyName, TheLimitCountsCharacters) {
  const ModifyResult result = Modify("あ", Rule("あ", "ああ"), 14);
  EXPECT_FALSE(result.leftAlone);
  EXPECT_EQ(result.name.size(), 3u * 16384u);
  EXPECT_EQ(Modified("a", Rule("a", "ab"), kLongestName - 1), "a" + Repeat("b", kLongestName - 1));
  EXPECT_TRUE(IsLeftAlone(Modify("a", Rule("a", "ab"), kLongestName), "a"));
}

TEST(ModifyName, ANameThatIsTooLongAlreadyMayChangeButNotGrow) {
  const std::string name(40'000, 'a');
  EXPECT_EQ(Modified(name, Rule("a", "b"), 3), std::string(40'000, 'b'));
  EXPECT_EQ(Modified(name, Rule("aa", "a"), 1), std::string(20'000, 'a'));
  EXPECT_TRUE(IsLeftAlone(Modify(name + "c", Rule("c", "cc"), 1), name + "c"));
}

TEST(ModifyName, ReplacingInvalidCharactersStopsAtTheLimitToo) {
  OptionValues::Modify rules;
  rules.replaceInvalid = true;
  rules.invalidReplacement = std::string(100, '_');
  const std::string name(400, '?');
  EXPECT_TRUE(IsLeftAlone(Modify(name, rules), name));
  EXPECT_EQ(Modified(std::string(300, '?'), rules), std::string(30'000, '_'));
}

/// Applies a rule step by step, until the name is longer than it may be.
std::string OneByOne(std::string name, const ReplaceRule& rule, std::size_t times, CompareMode compareMode) {
  for (std::size_t i = 0; i < times && name.size() <= kLongestName; ++i) {
    name = ReplaceText(name, rule.find, rule.replacement, 1, kAllOccurrences, compareMode);
  }
  return name;
}

TEST(ModifyName, PlainRulesGiveTheSameAsStepByStepApplication) {
  const std::string texts[] = {"", "a", "b", "ab", "ba", "aa", "bb", "aba", "bab", "aab", "abb"};
  const std::string names[] = {"a", "ab", "aab", "abab", "bbab", "aabba", "babaab", "aAbB"};
  for (const std::string& find : texts) {
    for (const std::string& replacement : texts) {
      for (const std::string& name : names) {
        for (const std::size_t times : {1u, 2u, 5u, 11u, 40u}) {
          for (const CompareMode mode : {CompareMode::kBinary, CompareMode::kText}) {
            OptionValues::Modify rules = Rule(find, replacement);
            rules.ignoreCase = mode == CompareMode::kText ? 1 : 0;
            const ModifyResult result = Modify(name, rules, times);
            const std::string slow = OneByOne(name, rules.rules[0], times, mode);
            EXPECT_EQ(result.leftAlone, slow.size() > kLongestName) << name << ": " << find << " to " << replacement;
            EXPECT_TRUE(result.leftAlone || result.name == slow) << name << ": " << find << " to " << replacement;
          }
        }
      }
    }
  }
}

TEST(ModifyName, LinearGrowthIsExactInLongLists) {
  struct Row {
    const char* name;
    std::string text, find, replacement;
  };
  const Row rows[] = {
      {"behind", "xax", "a", "ab"},
      {"in front", "xax", "a", "ba"},
      {"around", "xaxa", "a", "bac"},
      {"Japanese", "曲あ名", "あ", "いあ"},
      {"several", "a.a.a", "a", "a-"},
      {"what is added looks like a part of the find text", "aab", "ab", "aab"},
      {"the name makes one more find on the way", "xyxxy", "xxy", "xxxy"},
      {"long find text, short addition", "hello", "hello", "hellol"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const OptionValues::Modify rules = Rule(row.find, row.replacement);
    EXPECT_TRUE(Modified(row.text, rules, 5000) == OneByOne(row.text, rules.rules[0], 5000, CompareMode::kBinary));
  }
}

TEST(ModifyName, LinearGrowthCostsNothingInALongList) {
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 50; ++i) {
    const std::string rest = std::to_string(i);
    EXPECT_EQ(Modified("a" + rest, Rule("a", "ab"), 30'000).size(), 30'001 + rest.size());
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

TEST(ModifyName, EndlessGrowthIsRecognisedEarly) {
  FunctionEngine prefix([](const std::string& name) { return "x" + name; });
  CountingProgress progress;
  EXPECT_TRUE(IsLeftAlone(ModifyName("name", RegexRule("^(\\w)", "x$1"), 100'000, prefix, progress), "name"));
  EXPECT_EQ(prefix.calls, 3);
  prefix.calls = 0;
  EXPECT_TRUE(IsLeftAlone(ModifyName("name", RegexRule("^", "x"), 100'000, prefix, progress), "name"));
  EXPECT_EQ(prefix.calls, 3);
  EXPECT_TRUE(IsLeftAlone(Modify("a", Rule("a", "ab"), 100'000), "a"));
  EXPECT_TRUE(IsLeftAlone(ModifyWithLibrary("name", RegexRule("^", "x"), 100'000), "name"));
}

/// Applies a regular expression step by step, until the name is longer than it may be.
std::string OneByOne(std::string name, const OptionValues::Modify& rules, std::size_t times, RegexEngine& engine) {
  const ReplaceRule& rule = rules.rules[0];
  const char* const flags = rules.ignoreCase ? "gik" : "gk";
  for (std::size_t i = 0; i < times && CharacterCount(name) <= kLongestName; ++i) {
    name = RegexReplace(name, rule.find, rule.replacement, flags, engine).value_or(name);
  }
  return name;
}

TEST(ModifyName, RegularExpressionsGiveTheSameAsStepByStepApplication) {
  const std::string patterns[] = {"^",    "$",    "\\A",       "\\Z",   "\\z",  "(?m)^",  "(?m)$", "^|$",
                                  ".+",   "(.+)", "^(.+)$",    ".*",    "(.*)", "^(.*)",  "(.*)$", "(.+",
                                  "ab",   "曲",   "(?s)^(.+)", "\\G",   "()",   "",       "a/b",   "^(.)",
                                  "(.)$", "\\b",  "\\w",       "(b|é)", "(a*)", "^(..)*$"};
  const std::string replacements[] = {"",      "曲_",   "A$",   "$1",  "A_$1",    "p$1s", "<${1}>",
                                      "-$&-",  "$1$1",  "\\1x", "$'y", "x$12",    "$$1",  "a\nb",
                                      "x$1\n", "\\x41", "abab", "é",   "unmatch", "a/b"};
  const std::string names[] = {"", "ab", "曲名ab", "éa", "a\xFF", "\xE3\x81", "ed", "a\n", "\n", "a\nb"};
  RegexLibrary library;
  CountingProgress progress;
  for (const std::string& pattern : patterns) {
    for (const std::string& replacement : replacements) {
      for (const std::string& name : names) {
        for (const std::size_t times : {1u, 3u, 14u}) {
          for (const bool ignoreCase : {false, true}) {
            OptionValues::Modify rules = RegexRule(pattern, replacement);
            rules.ignoreCase = ignoreCase;
            const ModifyResult result = ModifyName(name, rules, times, library, progress);
            const std::string slow = OneByOne(name, rules, times, library);
            const bool tooLong = CharacterCount(slow) > kLongestName;
            EXPECT_EQ(result.leftAlone, tooLong) << name << ": " << pattern << " to " << replacement << ", " << times;
            EXPECT_TRUE(tooLong || result.name == slow)
                << name << ": " << pattern << " to " << replacement << ", " << times;
          }
        }
      }
    }
  }
}

/// The library, with a count of its calls.
class CountingLibrary final : public RegexEngine {
 public:
  std::optional<std::string> Replace(std::string_view command, std::string_view target) override {
    ++calls;
    return library_.Replace(command, target);
  }

  int calls = 0;

 private:
  RegexLibrary library_;
};

TEST(ModifyName, ARegularExpressionThatAddsTheSameTextOncePerRowCostsAFewApplications) {
  struct Row {
    std::string pattern, replacement, before, after;
  };
  const Row rows[] = {
      {"^", "A_", "A_", ""},         {"\\A", "A_", "A_", ""},         {"$", " 曲", "", " 曲"},
      {"\\z", "[US$]", "", "[US$]"}, {"(.+)", "A_$1", "A_", ""},      {"^(.*)$", "p${1}s", "p", "s"},
      {".+", "$&!", "", "!"},        {"(.*)", "A_$1.", "A_", ".A_."}, {"name", "my name", "my ", ""},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.pattern);
    CountingLibrary library;
    CountingProgress progress;
    const ModifyResult result = ModifyName("name", RegexRule(row.pattern, row.replacement), 4000, library, progress);
    EXPECT_TRUE(result.name == Repeat(row.before, 4000) + "name" + Repeat(row.after, 4000));
    EXPECT_LE(library.calls, 4);
    EXPECT_TRUE(
        IsLeftAlone(ModifyName("name", RegexRule(row.pattern, row.replacement), 100'000, library, progress), "name"));
    EXPECT_LE(library.calls, 8);
  }
}

TEST(ModifyName, ARegularExpressionThatLetsANameGrowCostsAFewApplications) {
  struct Row {
    const char* pattern;
    const char* replacement;
  };
  const Row rows[] = {
      {"^(.)", "X$1"},     {"^(?=.)", "A_"},   {"a", "ba"},     {"A", "AB"},   {"(\\d+)", "0$1"},
      {"\\d", "x$&"},      {"^(.*)-", "$1--"}, {"\\b", "_"},    {" +", "$& "}, {"\\w+", "$&x"},
      {"[aeiou]", "<$&>"}, {"(.)$", "$1."},    {"(?<=a)", "b"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.pattern);
    OptionValues::Modify rules = RegexRule(row.pattern, row.replacement);
    rules.ignoreCase = true;
    CountingLibrary library;
    CountingProgress progress;
    const ModifyResult exact = ModifyName("07 - a banana.", rules, 500, library, progress);
    EXPECT_LE(library.calls, 6);
    EXPECT_TRUE(exact.name == OneByOne("07 - a banana.", rules, 500, library));
    library.calls = 0;
    EXPECT_TRUE(IsLeftAlone(ModifyName("07 - a banana.", rules, 100'000, library, progress), "07 - a banana."));
    EXPECT_LE(library.calls, 5);
  }
}

TEST(ModifyName, ARegularExpressionThatMultipliesWhatItFindsIsRecognised) {
  for (const char* const pattern : {"(a)", "([a-z])", "(.)", "(.+)", "(\\w+)", "(a.)"}) {
    SCOPED_TRACE(pattern);
    CountingLibrary library;
    CountingProgress progress;
    const OptionValues::Modify rules = RegexRule(pattern, "$1$1");
    EXPECT_TRUE(IsLeftAlone(ModifyName("a banana", rules, 100'000, library, progress), "a banana"));
    EXPECT_LE(library.calls, 8);
    EXPECT_EQ(ModifyName("a banana", rules, 10, library, progress).name, OneByOne("a banana", rules, 10, library));
  }
  // Growth that a count in the pattern ends is exact.
  const OptionValues::Modify counted = RegexRule("^(a{1,600})$", "$1$1");
  EXPECT_EQ(ModifyWithLibrary("a", counted, 100'000).name, std::string(1024, 'a'));
}

TEST(ModifyName, GrowthThatStaysWithinTheLimitIsExact) {
  EXPECT_EQ(ModifyWithLibrary("name", RegexRule("^", "x"), 1000).name, std::string(1000, 'x') + "name");
  EXPECT_EQ(Modified("name", Rule("n", "nn"), 10), std::string(1024, 'n') + "ame");
}

TEST(ModifyName, GrowthThatEndsByItselfIsExact) {
  // A count in the pattern, and the name's own characters, can keep a name growing for a while.
  EXPECT_EQ(ModifyWithLibrary("7", RegexRule("^(.{1,199})$", "0$1"), 100'000).name, std::string(199, '0') + "7");
  EXPECT_EQ(ModifyWithLibrary("7", RegexRule("^(.{0,90}|.{900})$", "0$1"), 2000).name, std::string(90, '0') + "7");
  EXPECT_EQ(ModifyWithLibrary("xabcdef", RegexRule("x(.)", "$1$1x"), 100'000).name, "aabbccddeeffx");
  const std::string name = "a" + std::string(200, 'b');
  EXPECT_EQ(Modified(name, Rule("ab", "bca"), 100'000), Repeat("bc", 200) + "a");
  const OptionValues::Modify slow = Rule("ab", "bba");  // the finds run out after a thousand applications
  EXPECT_TRUE(Modified("aaaaaaaaaab", slow, 100'000) == Repeat("b", 1024) + Repeat("a", 10));
}

TEST(ModifyName, ARegularExpressionThatExplodesIsLeftAlone) {
  EXPECT_TRUE(IsLeftAlone(ModifyWithLibrary("abc", RegexRule(".", "$&$&$`$'"), 100), "abc"));
  const std::string name(2000, 'a');
  EXPECT_TRUE(IsLeftAlone(ModifyWithLibrary(name, RegexRule(".", "$`$'"), 1), name));
}

TEST(ModifyName, ManyNamesTakeNoTime) {
  OptionValues::Modify rules;
  for (std::size_t i = 0; i < kReplaceRuleCount; ++i) {
    rules.rules[i] = {true, std::string(1, static_cast<char>('a' + i)), std::string(1, static_cast<char>('A' + i))};
  }
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 20'000; ++i) EXPECT_EQ(Modified("abcde track", rules, 100'000), "ABCDE trACk");
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

}  // namespace
}  // namespace quillon
