#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "help/HelpFolder.h"
#include "rename/ModifyForm.h"
#include "rename/ModifyName.h"
#include "rename/RegexReplace.h"
#include "settings/OptionValues.h"
#include "support/RecordedProgress.h"

/// The results that the help shows are those of the rules.
namespace quillon::test {
namespace {

using testing::IsEmpty;
using testing::Not;

struct Name {
  std::string before;
  std::string after;
};

struct Example {
  std::string where;
  OptionValues::Modify rules;
  std::vector<Name> names;
  std::vector<std::size_t> listCounts = {1, 2, 7, 500};  ///< the example must hold for each of them
};

/// The text in <code>; empty when the cell says in words that there is none.
std::string Code(const Node& cell) {
  const std::vector<Node> code = cell.Find("./code");
  if (code.empty()) {
    EXPECT_EQ(cell.Text(), "（空）");
  }
  return code.empty() ? std::string() : code.front().Text();
}

std::string CodeOf(const Node& row, const std::string& kind) {
  const std::vector<Node> cells = row.Find("./td[@class='" + kind + "']");
  EXPECT_EQ(cells.size(), 1u) << row.Text();
  return cells.empty() ? std::string() : Code(cells.front());
}

/// Sets the option that has this caption in the dialog; false for an unknown caption.
bool Choose(const std::string& caption, OptionValues::Modify& rules) {
  const std::map<std::string, bool OptionValues::Modify::*> kBoxes = {
      {"大文字小文字を無視", &OptionValues::Modify::ignoreCase},
      {"不正な文字はすべて置換する", &OptionValues::Modify::replaceInvalid},
      {"全角を半角へ変換", &OptionValues::Modify::narrow},
      {"半角を全角へ変換", &OptionValues::Modify::wide},
      {"大文字を小文字へ変換", &OptionValues::Modify::lower},
      {"小文字を大文字へ変換", &OptionValues::Modify::upper},
      {"文字の先頭を大文字へ変換", &OptionValues::Modify::proper}};
  if (caption == "正規表現で検索") {
    rules.method = FindMethod::kRegex;
    return true;
  }
  const auto box = kBoxes.find(caption);
  if (box == kBoxes.end()) return caption == "通常検索";
  rules.*box->second = true;
  return true;
}

void ReadOptions(const Node& block, OptionValues::Modify& rules) {
  for (const Node& caption : block.Find("./p[@class='options']/b")) {
    EXPECT_TRUE(Choose(caption.Text(), rules)) << caption.Text();
  }
  const std::vector<Node> code = block.Find("./p[@class='options']/code");
  if (!code.empty()) rules.invalidReplacement = code.front().Text();
}

void ReadRules(const Node& block, OptionValues::Modify& rules) {
  std::size_t count = 0;
  for (const Node& row : block.Find("./table[@class='rules']//tr[td]")) {
    ASSERT_LT(count, rules.rules.size());
    rules.rules.at(count++) = {1, CodeOf(row, "find"), CodeOf(row, "replace")};
  }
}

/// A block with its heading: what is chosen, the rules, the names.
Example ReadBlock(const std::string& page, const Node& block) {
  Example example;
  example.where = page;
  for (const Node& heading : block.Find("./h3")) example.where += ": " + heading.Text();
  ReadOptions(block, example.rules);
  ReadRules(block, example.rules);
  for (const Node& row : block.Find("./table[contains(@class,'names')]//tr[td]")) {
    example.names.push_back({CodeOf(row, "before"), CodeOf(row, "after")});
  }
  if (!block.Find("./table[contains(@class,'count-3')]").empty()) example.listCounts = {3};
  return example;
}

/// A row of a table of the regular expressions: one rule, one name.
Example ReadRow(const std::string& page, const Node& row) {
  Example example;
  example.where = page + ": " + CodeOf(row, "find");
  example.rules.method = FindMethod::kRegex;
  example.rules.rules.front() = {1, CodeOf(row, "find"), CodeOf(row, "replace")};
  example.names.push_back({CodeOf(row, "before"), CodeOf(row, "after")});
  return example;
}

std::vector<Example> Examples() {
  std::vector<Example> examples;
  for (const auto& [name, page] : Pages()) {
    for (const Node& block : page.Find("//div[@class='example']")) examples.push_back(ReadBlock(name, block));
    for (const Node& row : page.Find("//table[@class='try']//tr[td]")) examples.push_back(ReadRow(name, row));
  }
  return examples;
}

TEST(HelpExamples, AreThere) {
  EXPECT_GE(Examples().size(), 50u);
  for (const Example& example : Examples()) EXPECT_THAT(example.names, Not(IsEmpty())) << example.where;
}

TEST(HelpExamples, GiveTheResultsThatTheyShow) {
  RegexLibrary regex;
  ASSERT_TRUE(regex.Available());
  PendingRecorder pending;
  RecordedProgress progress(pending);
  for (const Example& example : Examples()) {
    for (const std::size_t count : example.listCounts) {
      for (const Name& name : example.names) {
        const ModifyResult result = ModifyName(name.before, example.rules, count, regex, progress);
        EXPECT_EQ(result.name, name.after) << example.where << ", " << name.before << ", rows in the list: " << count;
        EXPECT_FALSE(result.leftAlone) << example.where;
      }
    }
  }
}

TEST(HelpExamples, CanBeTypedIntoTheDialog) {
  for (const Example& example : Examples()) {
    const std::optional<ModifyRefusal> refusal = CheckModifyForm(example.rules);
    EXPECT_FALSE(refusal) << example.where << ": " << refusal->message.text;
  }
}

// The settings file keeps no blanks around a text, except for a text of one blank.
TEST(HelpExamples, SurviveARestart) {
  for (const Example& example : Examples()) {
    for (const ReplaceRule& rule : example.rules.rules) {
      for (const std::string& text : {rule.find, rule.replacement}) {
        if (text != " ") {
          EXPECT_EQ(text, Trimmed(text)) << example.where;
        }
      }
    }
  }
}

TEST(HelpExamples, ChangeTheName) {
  for (const Example& example : Examples()) {
    EXPECT_NE(example.names.front().before, example.names.front().after) << example.where;
  }
}

}  // namespace
}  // namespace quillon::test
