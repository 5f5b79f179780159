#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/ApplicationFixture.h"

namespace quillon {
namespace {

using test::ApplicationFixture;
using test::SelectedRows;
using Indices = std::vector<int>;
using Texts = std::vector<std::string>;
using enum Command;

TEST(EditCommands, TakeBackWhatWasTypedAndDoItAgain) {
  ApplicationFixture f;
  f.Load({"a.mid", "b.mid"});
  f.Select({1});
  f.Type("n");
  f.Type("ne");
  f.Type("new");
  f.Select({2});
  f.ports.log.Clear();
  f.app.Execute(mnuEditUndo);
  EXPECT_EQ(f.Names(), Texts({"a", "b"}));
  EXPECT_EQ(SelectedRows(f.app.List()), Indices({1})) << "the row that changed is shown";
  EXPECT_EQ(f.box.Text(), "a");
  EXPECT_EQ(f.LastPanel("player"), "1 個の編集を取り消しました");
  EXPECT_FALSE(f.app.IsEnabled(mnuEditUndo));
  f.app.Execute(mnuEditRedo);
  EXPECT_EQ(f.Names(), Texts({"new", "b"}));
  EXPECT_EQ(f.box.Text(), "new");
  EXPECT_EQ(f.LastPanel("player"), "1 個の編集をやり直しました");
}

TEST(EditCommands, EachCommandIsOneStep) {
  ApplicationFixture f;
  f.Load({"a.mid", "b.mid", "c.mid"});
  f.app.Options().system.suppressConfirmations = true;
  f.app.Options().modify.upper = true;
  f.main.modifyDialog = [&](Rows rows) { f.app.ModifyRows(rows, f.app.Options().modify); };
  f.app.Execute(mnuAllModify);
  f.app.LabelEdited(2, "two");
  f.app.List().SetChecked(3, true);
  f.app.Options().rename.skipUntitledRows = false;
  f.app.Execute(mnuRename);  // its title, which is none
  f.app.Execute(mnuAllUndo);
  EXPECT_EQ(f.Names(), Texts({"a", "b", "c"}));
  const std::vector<Texts> before = {{"A", "two", ""}, {"A", "two", "C"}, {"A", "B", "C"}, {"a", "b", "c"}};
  for (const Texts& names : before) {
    f.app.Execute(mnuEditUndo);
    EXPECT_EQ(f.Names(), names);
  }
  EXPECT_FALSE(f.app.IsEnabled(mnuEditUndo));
}

TEST(EditCommands, TakingBackSeveralRowsLeavesTheCurrentRowAlone) {
  ApplicationFixture f;
  f.Load({"a.mid", "b.mid", "c.mid"});
  f.Select({1, 2});
  f.Type("x");
  f.Select({3});
  f.ports.log.Clear();
  f.app.Execute(mnuEditUndo);
  EXPECT_EQ(f.Names(), Texts({"a", "b", "c"}));
  EXPECT_EQ(SelectedRows(f.app.List()), Indices({3}));
  EXPECT_EQ(f.ports.log.StartingWith("window scrolls"), Texts());
}

TEST(EditCommands, EachRunOfAnOpenDialogIsAStep) {
  ApplicationFixture f;
  f.Load({"a.mid"});
  f.main.modifyDialog = [&](Rows rows) {
    OptionValues::Modify rules;
    rules.upper = true;
    f.app.ModifyRows(rows, rules);
    rules.upper = false;
    rules.wide = true;
    f.app.ModifyRows(rows, rules);
  };
  f.app.Execute(mnuAllModify);
  EXPECT_EQ(f.Names(), Texts({"Ａ"}));
  f.app.Execute(mnuEditUndo);
  EXPECT_EQ(f.Names(), Texts({"A"}));
  f.app.Execute(mnuEditUndo);
  EXPECT_EQ(f.Names(), Texts({"a"}));
}

TEST(EditCommands, AppliedNamesCannotBeTakenBack) {
  ApplicationFixture f;
  f.Load({"a.mid", "b.mid"});
  f.app.Options().system.suppressConfirmations = true;
  f.app.LabelEdited(1, "x");
  f.app.LabelEdited(2, "y");
  f.app.List().SetChecked(1, true);
  f.app.Execute(mnuUpdate);
  EXPECT_TRUE(f.folder.Exists("x.mid"));
  EXPECT_FALSE(f.folder.Exists("a.mid"));
  f.app.Execute(mnuEditUndo);
  EXPECT_EQ(f.Names(), Texts({"x", "b"}));
  EXPECT_FALSE(f.app.IsEnabled(mnuEditUndo));
  f.app.Execute(mnuEditRedo);
  EXPECT_EQ(f.Names(), Texts({"x", "y"}));
}

TEST(EditCommands, FailedNamesCan) {
  ApplicationFixture f;
  f.Load({"a.mid", "b.mid"});
  f.app.Options().system.suppressConfirmations = true;
  f.app.Options().update.skipFailedRows = true;
  f.app.LabelEdited(1, "b");
  f.app.Execute(mnuAllUpdate);
  EXPECT_TRUE(f.app.IsEnabled(mnuEditUndo));
  f.app.Execute(mnuEditUndo);
  EXPECT_EQ(f.Names(), Texts({"a", "b"}));
}

TEST(EditCommands, ReloadingAndLoadingEndTheStepsOfTheirRows) {
  ApplicationFixture f;
  f.Load({"a.mid", "b.mid"});
  f.app.Options().system.suppressConfirmations = true;
  f.app.LabelEdited(1, "x");
  const std::string more = f.home.Write("more.mid", "more");
  f.app.LoadPaths({more});
  EXPECT_TRUE(f.app.IsEnabled(mnuEditUndo)) << "the new row is another one";
  f.app.Execute(mnuReload);
  EXPECT_EQ(f.Names(), Texts({"a", "b", "more"}));
  EXPECT_FALSE(f.app.IsEnabled(mnuEditUndo));
}

TEST(EditCommands, AutoApplyModeRecordsNothing) {
  ApplicationFixture f;
  f.app.Options().system.suppressConfirmations = true;
  f.app.SwitchMode();
  ASSERT_TRUE(f.app.Mode().automatic);
  f.Load({"a.mid"});
  f.Select({1});
  f.Type("x");
  EXPECT_TRUE(f.folder.Exists("x.mid"));
  f.app.List().SetTexts(1, "A/B", "");
  f.app.Execute(mnuThisRename);  // cannot be applied, but stays
  EXPECT_EQ(f.Names(), Texts({"A/B"}));
  f.app.SwitchMode();  // off, which takes effect at once
  ASSERT_FALSE(f.app.Mode().automatic);
  EXPECT_FALSE(f.app.IsEnabled(mnuEditUndo));
}

TEST(EditCommands, NextPendingSelectsTheNextRowAndComesAround) {
  ApplicationFixture f;
  f.Load({"a.mid", "b.mid", "c.mid"});
  EXPECT_FALSE(f.app.IsEnabled(mnuNextPending));
  f.app.LabelEdited(1, "x");
  f.app.LabelEdited(3, "z");
  f.Select({1});
  f.ports.log.Clear();
  f.app.Execute(mnuNextPending);
  EXPECT_EQ(SelectedRows(f.app.List()), Indices({3}));
  EXPECT_EQ(f.box.Text(), "z");
  EXPECT_TRUE(f.Log().Has("focus list"));
  EXPECT_TRUE(f.Log().Has("window scrolls to 3"));
  f.app.Execute(mnuNextPending);
  EXPECT_EQ(SelectedRows(f.app.List()), Indices({1}));
}

TEST(EditCommands, AResultGivesWayToTheNextAction) {
  ApplicationFixture f;
  f.Load({"a.mid", "b.mid"});
  f.app.LabelEdited(1, "x");
  const std::string before = f.LastPanel("player");
  f.app.Execute(mnuEditUndo);
  f.app.Execute(mnuAllChk);
  EXPECT_EQ(f.LastPanel("player"), "選択： a.mid");
}

TEST(EndOfTheProgram, AsksForPendingNamesIfTheOptionsSaySo) {
  ApplicationFixture f;
  f.Load({"a.mid", "b.mid"});
  f.app.LabelEdited(1, "x");
  EXPECT_TRUE(f.app.MayEnd());
  EXPECT_EQ(f.Boxes(), Texts());
  f.app.Options().extra.confirmPending = true;
  f.ports.boxes.Answer(false);
  EXPECT_FALSE(f.app.MayEnd());
  f.ports.boxes.Answer(true);
  EXPECT_TRUE(f.app.MayEnd());
  EXPECT_EQ(f.Boxes().size(), 2u);
  EXPECT_EQ(f.ports.boxes.Shown().back(),
            Message({"終了", "適応していないリネーム名が 1 個あります\r\n終了すると失われます。終了しますか",
                     MessageIcon::kQuestion, MessageButtons::kYesNo}));
  f.app.Options().system.suppressConfirmations = true;
  EXPECT_TRUE(f.app.MayEnd());
  f.app.Options().system.suppressConfirmations = false;
  f.app.LabelEdited(1, "a");
  EXPECT_TRUE(f.app.MayEnd());
  EXPECT_EQ(f.Boxes().size(), 2u);
}

TEST(ToolBarLabels, AreShownAsTheOptionsSayAndSwitched) {
  OptionValues options = ApplicationFixture::Options();
  {
    ApplicationFixture f(options);
    f.app.Start();
    EXPECT_FALSE(f.Log().Has("main tool labels"));
    f.app.Execute(mnuToolLabels);
    EXPECT_TRUE(f.Log().Has("main tool labels"));
    EXPECT_TRUE(f.app.Options().extra.toolBarLabels);
  }
  options.extra.toolBarLabels = true;
  ApplicationFixture f(options);
  f.app.Start();
  EXPECT_TRUE(f.Log().Has("main tool labels"));
  f.app.Execute(mnuToolLabels);
  EXPECT_TRUE(f.Log().Has("main no tool labels"));
}

}  // namespace
}  // namespace quillon
