#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "rename/RegexProblem.h"

namespace quillon {
namespace {

struct Row {
  std::string pattern;
  std::string problem;
};

TEST(RegexProblem, NamesTheReasonAndThePlace) {
  RegexLibrary library;
  ASSERT_TRUE(library.Available()) << "the library does not stand beside the test program";
  const std::vector<Row> rows = {
      {"(a", "「(」に対する「)」がありません"},
      {"a)b", "「)」に対する「(」がありません（2 文字目）"},
      {"あいう)", "「)」に対する「(」がありません（4 文字目）"},
      {"(?#a", "「(?#」に対する「)」がありません"},
      {"a[b(c", "「[」に対する「]」がありません"},
      {"*a", "「*」「+」「?」「{ }」の前に、繰り返すものがありません（1 文字目）"},
      {"あ*+*", "「*」「+」「?」「{ }」の前に、繰り返すものがありません（4 文字目）"},
      {"a\\/b**", "「*」「+」「?」「{ }」の前に、繰り返すものがありません（6 文字目）"},
      {"ああ\\", "「\\」で終わっています（3 文字目）"},
      {"a\\c", "「\\c」の後に文字がありません（3 文字目）"},
      {"ab\\y", "「\\」の後の文字が正しくありません（4 文字目）"},
      {"a{3,1}", "「{ }」の中の数の順序が逆です（5 文字目）"},
      {"a{70000}", "「{ }」の中の数が大きすぎます（7 文字目）"},
      {"[z-a]", "「[ ]」の中の範囲の順序が逆です（4 文字目）"},
      {"あ[う-い]", "「[ ]」の中の範囲の順序が逆です（5 文字目）"},
      {"[a-\\d]", "「[ ]」の中の範囲が正しくありません（5 文字目）"},
      {"(?z)", "「(?」の後の文字が正しくありません（3 文字目）"},
      {"[:alpha:]", "「[:名前:]」は「[ ]」の中に書きます（1 文字目）"},
      {"[[:foo:]]", "「[: :]」の中の名前が正しくありません（4 文字目）"},
      {"(a)\\2", "ないグループを指しています（5 文字目）"},
      {"\\k<x>", "ないグループを指しています（4 文字目）"},
      {"(?<=a*)b", "「(?<=」と「(?<!」の中は、長さが決まっていなければなりません"},
      {"\\x{zz}", "「\\x{ }」の中が 16 進数ではないか、「}」がありません（4 文字目）"},
      {"\\x{110000}", "文字の番号が大きすぎます（9 文字目）"},
      {"\\x{d800}", "この番号の文字はありません（7 文字目）"},
      {"\\p{Foo}", "「\\p」の後の名前が正しくありません（7 文字目）"},
      {"\\p{Han", "「\\p」の書き方が正しくありません（6 文字目）"},
      {"\\L", "検索する文字列では使えない書き方です（2 文字目）"},
      {"(?<n>a)(?<n>b)", "同じ名前のグループがあります（12 文字目）"},
      {"(?<1a>b)", "グループの名前は、数字で始められません（4 文字目）"},
      {"(*UCP)a", "この指定は使えません（6 文字目）"},
      {"\\C", "「\\C」は使えません（2 文字目）"},
      {"(?|(?<a>x)|(?<b>y))", "正規表現が正しくありません。エラー 165（16 文字目）"},
      {"a/b", "「/」は「\\/」と書きます（2 文字目）"},
      {"あ\\/い/", "「/」は「\\/」と書きます（5 文字目）"},
      {"a\\\\/", "「/」は「\\/」と書きます（4 文字目）"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(RegexProblem(row.pattern, "x", false, library), row.problem) << row.pattern;
    EXPECT_EQ(RegexReplace("a", row.pattern, "x", "gk", library), std::nullopt) << row.pattern;
  }
}

TEST(RegexProblem, AUsablePatternHasNone) {
  RegexLibrary library;
  ASSERT_TRUE(library.Available());
  for (const char* pattern : {"a", "(a)\\1", "あ[い-う]", "a\\/b", "\\\\", "", "é😀", "\xFF", "(?i)a"}) {
    for (const bool ignoreCase : {false, true}) {
      EXPECT_EQ(RegexProblem(pattern, "$1x", ignoreCase, library), std::nullopt) << pattern;
    }
  }
}

TEST(RegexProblem, TellsOfTheReplacement) {
  RegexLibrary library;
  ASSERT_TRUE(library.Available());
  EXPECT_EQ(RegexProblem("a", "b/c", false, library), "置換する文字列に「/」や「\\」は使えません");
  EXPECT_EQ(RegexProblem("a", "b\\", false, library), "置換する文字列に「/」や「\\」は使えません");
  EXPECT_EQ(RegexProblem("a", "\\x{41", false, library), "置換する文字列の書き方が正しくありません");
}

TEST(RegexProblem, ChecksTheCommandOfTheRuleInUtf8) {
  struct Engine final : RegexEngine {
    std::optional<std::string> Replace(std::string_view, std::string_view) override { return std::nullopt; }
    std::optional<RegexDefect> Check(std::string_view command) override {
      commands.emplace_back(command);
      return defect;
    }
    RegexDefect defect;
    std::vector<std::string> commands;
  } engine;
  engine.defect = {kBregexpOutOfMemory, 0};
  EXPECT_EQ(RegexProblem("a", "b", false, engine), "メモリが足りません");
  EXPECT_EQ(RegexProblem("あ", "b", true, engine), "メモリが足りません");
  EXPECT_EQ(engine.commands, (std::vector<std::string>{"s/a/b/gu", "s/あ/b/giu"}));
  engine.defect = {199, 9};
  EXPECT_EQ(RegexProblem("ab", "b", false, engine), "「\\K」は、「(?=」や「(?<=」の中では使えません（2 文字目）");
}

TEST(RegexProblem, WithoutAnEngineThereIsNone) {
  RegexLibrary library("quillon-no-such-library");
  EXPECT_EQ(RegexProblem("(", "b", false, library), std::nullopt);
}

}  // namespace
}  // namespace quillon
