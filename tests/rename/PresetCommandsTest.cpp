#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "rename/BuiltInPresets.h"
#include "rename/PresetCommands.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using Modify = OptionValues::Modify;

Modify Rules(const std::string& find) {
  Modify rules;
  rules.rules[0] = {true, find, "b"};
  return rules;
}

struct Boxes final : MessageBoxes {
  std::vector<std::string> shown;
  std::deque<bool> answers;  ///< to questions
  bool further = false;      ///< the third button answers the next question that has one

  QuestionAnswer AskQuestion(const QuestionMessage& question) override {
    if (question.further.empty() || !std::exchange(further, false)) return MessageBoxes::AskQuestion(question);
    shown.push_back(question.message.text);
    return QuestionAnswer::kFurther;
  }

  bool Show(const Message& message) override {
    EXPECT_EQ(message.caption, "プリセット");
    shown.push_back(message.text);
    if (message.buttons == MessageButtons::kOk) return true;
    EXPECT_FALSE(answers.empty()) << "an unexpected question: " << message.text;
    const bool answer = !answers.empty() && answers.front();
    if (!answers.empty()) answers.pop_front();
    return answer;
  }
};

struct Dialog final : PresetDialog {
  Modify shown;
  bool refuses = false;
  std::deque<std::optional<std::string>> typed;
  std::vector<std::string> asked;  ///< title and suggestion
  std::string file;
  std::string suggestion;

  [[nodiscard]] Modify Rules() const override { return shown; }
  [[nodiscard]] std::optional<Modify> CheckedRules() override { return refuses ? std::nullopt : std::optional(shown); }
  void ShowRules(const Modify& rules) override {
    const bool habit = shown.keepDialogOpen;
    shown = rules;
    shown.keepDialogOpen = habit;
  }
  [[nodiscard]] std::optional<std::string> AskName(const std::string& title, const std::string& present) override {
    asked.push_back(title + ": " + present);
    if (typed.empty()) return std::nullopt;
    const std::optional<std::string> answer = typed.front();
    typed.pop_front();
    return answer;
  }
  [[nodiscard]] std::string FileToImport() override { return file; }
  [[nodiscard]] std::string FileToExport(const std::string& name) override {
    suggestion = name;
    return file;
  }
};

class PresetCommandsTest : public testing::Test {
 protected:
  PresetCommands Make(PresetCommands::Options options = {}) { return {presets_, dialog_, boxes_, options}; }

  std::vector<std::string> TakeShown() { return std::exchange(boxes_.shown, {}); }

  void Keep(const std::string& name, const Modify& rules) {
    EXPECT_EQ(presets_.Save({name, rules}), std::nullopt) << name;
  }

  Modify Kept(const std::string& name) {
    const Result<Modify, PresetError> rules = presets_.Load(name);
    EXPECT_TRUE(rules) << name;
    return rules ? *rules : Modify();
  }

  test::TempFolder folder_;
  Presets presets_{folder_.At("q.ini")};
  Dialog dialog_;
  Boxes boxes_;
  PresetCommands commands_ = Make();
};

TEST_F(PresetCommandsTest, ALoadedPresetIsShownAndTheWayBackIsKept) {
  Keep("one", Rules("1"));
  dialog_.shown = Rules("mine");
  dialog_.shown.keepDialogOpen = true;
  const Modify mine = dialog_.shown;
  EXPECT_FALSE(commands_.CanGoBack());
  commands_.Load("one");
  EXPECT_EQ(dialog_.shown.rules, Rules("1").rules);
  EXPECT_TRUE(dialog_.shown.keepDialogOpen) << "the dialog's own habit";
  commands_.Load("one");  // changes nothing, so that it is no step
  commands_.LoadBuiltIn(BuiltInPresets().front());
  EXPECT_EQ(dialog_.shown.method, FindMethod::kRegex);
  commands_.GoBack();
  EXPECT_EQ(dialog_.shown.rules, Rules("1").rules);
  EXPECT_TRUE(commands_.CanGoBack());
  commands_.GoBack();
  EXPECT_EQ(dialog_.shown, mine);
  EXPECT_FALSE(commands_.CanGoBack());
  commands_.GoBack();
  EXPECT_EQ(dialog_.shown, mine);
  EXPECT_THAT(TakeShown(), IsEmpty());
}

TEST_F(PresetCommandsTest, APresetThatCannotBeLoadedLeavesTheRules) {
  folder_.Write("q.ini", "[Preset bad]\nUpper=40000\n");
  dialog_.shown = Rules("mine");
  commands_.Load("bad");
  commands_.Load("gone");
  EXPECT_THAT(TakeShown(), ElementsAre("プリセットに正しくない値があるため、使えません\r\n[Preset bad] Upper=40000",
                                       "プリセットがなくなっています"));
  EXPECT_EQ(dialog_.shown, Rules("mine"));
  EXPECT_FALSE(commands_.CanGoBack());
}

TEST_F(PresetCommandsTest, WithoutTheLibraryRegularExpressionsAreNotLoaded) {
  PresetCommands commands = Make({.regexAvailable = false});
  dialog_.shown = Rules("mine");
  commands.LoadBuiltIn(BuiltInPresets().front());
  EXPECT_EQ(dialog_.shown, Rules("mine"));
  EXPECT_THAT(TakeShown(), ElementsAre("正規表現が使えないため、このプリセットは使えません"));
  commands.LoadBuiltIn(*FindBuiltInPreset("語の先頭を大文字にする"));
  EXPECT_TRUE(dialog_.shown.proper);
}

TEST_F(PresetCommandsTest, SavingAsksForANameUntilItCanBeUsed) {
  dialog_.shown = Rules("a");
  dialog_.shown.keepDialogOpen = true;
  dialog_.typed = {"  ", "a]", " 私の規則　"};
  commands_.Save();
  EXPECT_THAT(dialog_.asked, ElementsAre("現在の規則を保存: ", "現在の規則を保存:   ", "現在の規則を保存: a]"));
  EXPECT_THAT(TakeShown(),
              ElementsAre("プリセットの名前を入力してください", "プリセットの名前に「]」や改行、タブは使えません"));
  EXPECT_THAT(commands_.Names(), ElementsAre("私の規則"));
  EXPECT_EQ(Kept("私の規則"), Rules("a"));
}

TEST_F(PresetCommandsTest, ACancelledNameSavesNothing) {
  dialog_.shown = Rules("a");
  commands_.Save();
  EXPECT_FALSE(folder_.Exists("q.ini"));
  dialog_.refuses = true;
  dialog_.typed = {"a"};
  commands_.Save();
  EXPECT_THAT(TakeShown(), IsEmpty());
  EXPECT_EQ(dialog_.asked.size(), 1u) << "rules that OK refuses are not saved either";
  EXPECT_FALSE(folder_.Exists("q.ini"));
}

TEST_F(PresetCommandsTest, SavingUnderANameThatIsThereAsks) {
  Keep("a", Rules("1"));
  dialog_.shown = Rules("2");
  dialog_.typed = {"A", "b"};
  boxes_.answers = {false};
  commands_.Save();
  EXPECT_THAT(TakeShown(), ElementsAre("同じ名前のプリセットがあります。置き換えますか\r\nA"));
  EXPECT_THAT(commands_.Names(), ElementsAre("a", "b"));
  EXPECT_EQ(Kept("a"), Rules("1"));

  dialog_.typed = {"a"};
  boxes_.answers = {true};
  commands_.Save();
  EXPECT_EQ(Kept("a"), Rules("2"));
  EXPECT_EQ(dialog_.asked.back(), "現在の規則を保存: b") << "the last name is suggested";
}

TEST_F(PresetCommandsTest, WithoutConfirmationsNothingIsAsked) {
  Keep("a", Rules("1"));
  PresetCommands commands = Make({.confirms = false});
  dialog_.shown = Rules("2");
  dialog_.typed = {"a"};
  commands.Save();
  EXPECT_EQ(Kept("a"), Rules("2"));
  dialog_.file = folder_.Write("in.ini", "[Preset a]\nUpper=1\n");
  commands.Import();
  EXPECT_THAT(commands.Names(), ElementsAre("a", "a (2)")) << "nothing is lost";
  commands.Remove("a");
  EXPECT_THAT(commands.Names(), ElementsAre("a (2)"));
  EXPECT_THAT(TakeShown(), ElementsAre("1 個のプリセットを読み込みました"));
}

TEST_F(PresetCommandsTest, SavingTellsWhatTheFileCannotHold) {
  dialog_.shown = Rules(" - ");
  dialog_.typed = {"a"};
  commands_.Save();
  EXPECT_EQ(Kept("a"), Rules("-"));
  EXPECT_THAT(TakeShown(), ElementsAre("保存しましたが、文字列の前後の空白と 127 文字を超える部分は保存されません"));
}

TEST_F(PresetCommandsTest, AFailureToWriteIsTold) {
  folder_.Write("q.ini", std::string(IniFile::kLargestFile - 20, '\n') + "[Preset a]\n");
  dialog_.typed = {"b", "longer" + std::string(40, 'x')};
  commands_.Save();
  commands_.Rename("a");
  folder_.Write("q.ini", std::string(IniFile::kLargestFile + 1, '\n'));
  boxes_.answers = {true};
  commands_.Remove("a");
  EXPECT_THAT(TakeShown(), ElementsAre("設定ファイルに書き込めません。プリセットは変わっていません",
                                       "設定ファイルに書き込めません。プリセットは変わっていません",
                                       StartsWith("このプリセットを削除しますか"),
                                       "設定ファイルを読み込めないため、プリセットは使えません"));
}

TEST_F(PresetCommandsTest, RenamingRefusesANameThatIsTaken) {
  Keep("a", Rules("1"));
  Keep("b", Rules("2"));
  dialog_.typed = {"B", "c"};
  commands_.Rename("a");
  EXPECT_THAT(dialog_.asked, ElementsAre("プリセットの名前の変更: a", "プリセットの名前の変更: B"));
  EXPECT_THAT(TakeShown(), ElementsAre("同じ名前のプリセットがあります。別の名前にしてください"));
  EXPECT_THAT(commands_.Names(), ElementsAre("c", "b"));
  dialog_.typed = {"C"};
  commands_.Rename("c");
  EXPECT_THAT(commands_.Names(), ElementsAre("C", "b"));
}

TEST_F(PresetCommandsTest, RemovingAsks) {
  Keep("a", Rules("1"));
  boxes_.answers = {false, true};
  commands_.Remove("a");
  EXPECT_THAT(commands_.Names(), ElementsAre("a"));
  commands_.Remove("a");
  EXPECT_THAT(commands_.Names(), IsEmpty());
  EXPECT_THAT(TakeShown(), ElementsAre("このプリセットを削除しますか\r\na", "このプリセットを削除しますか\r\na"));
}

TEST_F(PresetCommandsTest, WhatIsExportedCanBeImported) {
  Keep("AC/DC の規則", Rules("1"));
  dialog_.file = folder_.At("out.ini");
  commands_.Export("AC/DC の規則");
  EXPECT_EQ(dialog_.suggestion, "AC／DC の規則.ini");
  EXPECT_THAT(TakeShown(), IsEmpty());
  EXPECT_EQ(presets_.Remove("AC/DC の規則"), std::nullopt);
  commands_.Import();
  EXPECT_EQ(Kept("AC/DC の規則"), Rules("1"));
  commands_.Import();
  EXPECT_THAT(TakeShown(), ElementsAre("1 個のプリセットを読み込みました", "同じプリセットがもう保存されています"));
  dialog_.file.clear();
  commands_.Import();
  commands_.Export("AC/DC の規則");
  EXPECT_THAT(TakeShown(), IsEmpty()) << "cancelled";
}

TEST_F(PresetCommandsTest, TheSettingsFileItselfIsNotReplacedByAnExport) {
  Keep("a", Rules("1"));
  const std::string before = folder_.Read("q.ini");
  dialog_.file = presets_.Path();
  commands_.Export("a");
  folder_.MakeFolder("sub");
  dialog_.file = folder_.At("sub/../q.ini");
  commands_.Export("a");
  EXPECT_EQ(TakeShown(), std::vector<std::string>(2, "設定ファイルには書き出せません。別の名前にしてください"));
  EXPECT_EQ(folder_.Read("q.ini"), before);
}

TEST_F(PresetCommandsTest, AnExportThatFailsIsTold) {
  Keep("a", Rules("1"));
  dialog_.file = folder_.MakeFolder("folder");
  commands_.Export("a");
  commands_.Export("gone");
  EXPECT_THAT(TakeShown(),
              ElementsAre("ファイルに書き込めません。別の場所に書き出してください", "プリセットがなくなっています"));
}

TEST_F(PresetCommandsTest, AnImportAsksOnceAboutTakenNames) {
  Keep("a", Rules("1"));
  Keep("b", Rules("2"));
  dialog_.file = folder_.Write("in.ini", "[Preset A]\nUpper=1\n[Preset b]\nLower=1\n[Preset c]\nWide=1\n");
  boxes_.answers = {true};
  commands_.Import();
  EXPECT_THAT(commands_.Names(), ElementsAre("a", "b", "A (2)", "b (2)", "c"));
  EXPECT_EQ(Kept("a"), Rules("1"));
  EXPECT_THAT(TakeShown(), ElementsAre("同じ名前で内容の違うプリセットがあります。番号を付けて両方を残しますか\r\n"
                                       "「置き換える」を押すと、保存されているほうは失われます\r\nA\r\nb",
                                       "3 個のプリセットを読み込みました"));
  dialog_.file = folder_.Write("in.ini", "[Preset A]\nUpper=1\n");
  boxes_.answers = {false};
  commands_.Import();
  EXPECT_EQ(Kept("a"), Rules("1")) << "cancelled";
  boxes_.further = true;
  commands_.Import();
  EXPECT_TRUE(Kept("a").upper) << "replaced";
  EXPECT_EQ(commands_.Names().size(), 5u);
}

TEST_F(PresetCommandsTest, RulesWithoutPresetsAreNamedAfterTheirFile) {
  dialog_.file = folder_.Write("古い[1].ini", "[Modify]\nUpper=1\n");
  commands_.Import();
  EXPECT_THAT(commands_.Names(), ElementsAre("古い[1)"));
  EXPECT_TRUE(Kept("古い[1)").upper);
}

TEST_F(PresetCommandsTest, AFileThatHoldsNoneChangesNothing) {
  dialog_.file = folder_.At("missing.ini");
  commands_.Import();
  dialog_.file = folder_.Write("binary.ini", std::string("MZ\0\x90\xFF", 5));
  commands_.Import();
  dialog_.file = folder_.Write("bad.ini", "[Preset good]\nUpper=1\n[Preset bad]\nUpper=40000\n");
  commands_.Import();
  EXPECT_THAT(TakeShown(), ElementsAre("ファイルを読み込めません。設定ファイルではないか、大きすぎます",
                                       "このファイルには、プリセットも編集の規則もありません",
                                       "プリセットに正しくない値があるため、使えません\r\n[Preset bad] Upper=40000"));
  EXPECT_FALSE(folder_.Exists("q.ini"));
}

TEST_F(PresetCommandsTest, ManyTakenNamesAreShortened) {
  std::string file;
  for (int i = 0; i < 12; ++i) {
    Keep(std::to_string(i), Rules("1"));
    file += "[Preset " + std::to_string(i) + "]\nUpper=1\n";
  }
  dialog_.file = folder_.Write("in.ini", file);
  boxes_.answers = {true};
  commands_.Import();
  EXPECT_THAT(TakeShown().front(), HasSubstr("\r\n9\r\n..."));
  EXPECT_EQ(commands_.Names().size(), 24u);
}

}  // namespace
}  // namespace quillon
