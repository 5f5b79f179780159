#include <gtest/gtest.h>

#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "dialogs/OptionForm.h"
#include "support/Recorders.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

using Texts = std::vector<std::string>;

const char* const kAutoIsOff = "box [設定] 自動適応モードが無効になりました (information, ok)";
const char* const kAutoIsOn = "box [設定] 自動適応モードが有効になりました (information, ok)";
const char* const kAutoComes =
    "box [設定] この設定は 次回起動時 または 「再読み込み」「リストクリア」 実行後に有効となります (information, ok)";

const char* const kManualBoxes[] = {"chkNoTitleSkip", "chkErrSkip", "chkUpdateRemoveChk", "chkRenameErrCheck",
                                    "chkRenameInjusticeCheck"};

/// The form over the test's own settings; the settings file is "Quillon.ini" in `folder`.
struct Fixture {
  test::TempFolder folder;
  OptionValues options;
  ApplyMode mode;
  bool rows = false;
  test::EventLog log;
  test::BoxRecorder boxes{log};
  ApplyModeSwitch modeSwitch{folder.At("Quillon.ini"), options, mode, boxes, [this] { return rows; }};

  OptionForm Form() { return OptionForm(options, modeSwitch, boxes); }

  /// Clicks; what is shown before a box is in the log.
  void Click(OptionForm& form, const char* name, bool checked) {
    form.Click(name, checked, [&] { log.Add(form.Enabled("chkErrSkip") ? "shows manual" : "shows automatic"); });
  }

  /// The stored setting, as the file has it.
  [[nodiscard]] std::string Stored() const { return folder.Read("Quillon.ini"); }
};

const char* const kStoredOn = "[Update]\r\nAutoUpdate=1\r\n";
const char* const kStoredOff = "[Update]\r\nAutoUpdate=0\r\n";

struct FlagRow {
  const char* name;
  bool& (*setting)(OptionValues&);
};

const FlagRow kFlags[] = {
    {"chkMsgBox", [](OptionValues& o) -> bool& { return o.system.suppressConfirmations; }},
    {"chkSysMCITime", [](OptionValues& o) -> bool& { return o.system.readPlayTimes; }},
    {"chkRenameModify", [](OptionValues& o) -> bool& { return o.rename.applyRules; }},
    {"chkRenameInjusticeCheck", [](OptionValues& o) -> bool& { return o.rename.checkInvalidNames; }},
    {"chkRenameErrCheck", [](OptionValues& o) -> bool& { return o.rename.checkSkippedRows; }},
    {"chkNoTitleSkip", [](OptionValues& o) -> bool& { return o.rename.skipUntitledRows; }},
    {"chkUpdateRemoveChk", [](OptionValues& o) -> bool& { return o.update.uncheckAppliedRows; }},
    {"chkUpdateErrChk", [](OptionValues& o) -> bool& { return o.update.checkFailedRows; }},
    {"chkErrSkip", [](OptionValues& o) -> bool& { return o.update.skipFailedRows; }},
    {"chkExtensionFilter", [](OptionValues& o) -> bool& { return o.find.filterByExtension; }},
    {"chkExtensionMusic", [](OptionValues& o) -> bool& { return o.find.media.on; }},
    {"chkExtensionText", [](OptionValues& o) -> bool& { return o.find.text.on; }},
    {"chkExtensionHTML", [](OptionValues& o) -> bool& { return o.find.html.on; }},
    {"chkExtensionEtc", [](OptionValues& o) -> bool& { return o.find.other.on; }},
    {"chkSubFolder", [](OptionValues& o) -> bool& { return o.list.searchSubfolders; }},
    {"chkPlayerAllPlay", [](OptionValues& o) -> bool& { return o.player.continuous; }},
    {"chkMoveRemainList", [](OptionValues& o) -> bool& { return o.move.keepMovedRows; }},
    {"chkLoadRemove", [](OptionValues& o) -> bool& { return o.list.clearBeforeLoading; }},
    {"chkLoadChk", [](OptionValues& o) -> bool& { return o.list.checkLoadedRows; }},
    {"chkDel", [](OptionValues& o) -> bool& { return o.list.confirmDeletion; }},
    {"chkReadMoreTags", [](OptionValues& o) -> bool& { return o.extra.readMoreTags; }},
};

struct TextRow {
  const char* name;
  std::string& (*setting)(OptionValues&);
};

const TextRow kTexts[] = {
    {"txtExtensionMusic", [](OptionValues& o) -> std::string& { return o.find.media.extensions; }},
    {"txtExtensionText", [](OptionValues& o) -> std::string& { return o.find.text.extensions; }},
    {"txtExtensionHTML", [](OptionValues& o) -> std::string& { return o.find.html.extensions; }},
    {"txtExtensionEtc", [](OptionValues& o) -> std::string& { return o.find.other.extensions; }},
};

/// The names of the checked flags of kFlags.
std::set<std::string> Set(OptionValues& options) {
  std::set<std::string> names;
  for (const FlagRow& row : kFlags) {
    if (row.setting(options)) names.insert(row.name);
  }
  return names;
}

TEST(OptionForm, ShowsEachSettingInItsOwnBox) {
  for (const FlagRow& row : kFlags) {
    for (const bool value : {false, true}) {
      Fixture f;
      f.options.find.filterByExtension = f.options.find.media.on = f.options.list.checkLoadedRows = false;
      row.setting(f.options) = value;
      EXPECT_EQ(f.Form().Checked(row.name), value) << row.name;
    }
  }
  for (const TextRow& row : kTexts) {
    Fixture f;
    row.setting(f.options) = "abc 拡張";
    EXPECT_EQ(f.Form().Text(row.name), "abc 拡張");
  }
}

TEST(OptionForm, OkAloneMarksTheOptionsAsStoredByTheDialog) {
  Fixture f;
  OptionForm form = f.Form();
  form.cmdCancel();
  EXPECT_FALSE(f.options.storedByDialog);
  form.cmdOK();
  EXPECT_TRUE(f.options.storedByDialog);
}

TEST(OptionForm, OkStoresEachBoxInItsOwnSetting) {
  for (const FlagRow& row : kFlags) {
    Fixture f;
    OptionForm form = f.Form();
    std::set<std::string> expected = Set(f.options);
    const bool checked = !form.Checked(row.name);
    checked ? (void)expected.insert(row.name) : (void)expected.erase(row.name);
    f.boxes.Answer(false);  // to the question about further extensions
    f.Click(form, row.name, checked);
    EXPECT_NE(Set(f.options), expected) << "not before OK";
    form.cmdOK();
    EXPECT_EQ(Set(f.options), expected) << row.name;
    EXPECT_EQ(row.setting(f.options), checked);
  }
}

TEST(OptionForm, OkStoresTheExtensionsAsTyped) {
  for (const TextRow& row : kTexts) {
    for (const char* text : {"", "  ogg  .flac ", "*?<>"}) {
      Fixture f;
      OptionForm form = f.Form();
      form.Type(row.name, text);
      form.cmdOK();
      EXPECT_EQ(row.setting(f.options), text);
    }
  }
}

TEST(OptionForm, TheDeleteButtonsAreOneSetting) {
  Fixture f;
  OptionForm form = f.Form();
  EXPECT_FALSE(form.Checked("optDel0"));
  EXPECT_TRUE(form.Checked("optDel1")) << "the recycle bin";
  f.Click(form, "optDel0", true);
  EXPECT_TRUE(form.Checked("optDel0"));
  EXPECT_FALSE(form.Checked("optDel1"));
  form.cmdOK();
  EXPECT_EQ(f.options.list.deleteTo, DeleteTo::kNowhere);
  OptionForm again = f.Form();
  EXPECT_TRUE(again.Checked("optDel0"));
  f.Click(again, "optDel1", true);
  EXPECT_FALSE(again.Checked("optDel0"));
  again.cmdOK();
  EXPECT_EQ(f.options.list.deleteTo, DeleteTo::kRecycleBin);
}

TEST(OptionForm, OkLeavesEveryOtherSettingAlone) {
  Fixture f;
  f.options.system.loadFolder = "C:\\a\\";
  f.options.window.top = 5;
  f.options.modify.invalidReplacement = "_";
  f.options.player.repeat = true;
  f.options.system.alwaysOnTop = true;
  OptionForm form = f.Form();
  form.cmdOK();
  EXPECT_EQ(f.options.system.loadFolder, "C:\\a\\");
  EXPECT_EQ(f.options.window.top, 5);
  EXPECT_EQ(f.options.modify.invalidReplacement, "_");
  EXPECT_TRUE(f.options.player.repeat);
  EXPECT_TRUE(f.options.system.alwaysOnTop);
  EXPECT_FALSE(f.folder.Exists("Quillon.ini")) << "the file is written when the program ends";
}

TEST(OptionForm, AnUnknownNameIsAnError) {
  Fixture f;
  const OptionForm form = f.Form();
  EXPECT_THROW((void)form.Enabled("chkNothing"), std::out_of_range);
}

// The extension filter.

const char* const kTypeBoxes[] = {"chkExtensionMusic", "chkExtensionText", "chkExtensionHTML", "chkExtensionEtc"};

TEST(OptionFormFilter, OffItDisablesBoxesAndTextsButKeepsTheirValues) {
  Fixture f;
  f.options.find.html.on = true;
  OptionForm form = f.Form();
  f.Click(form, "chkExtensionFilter", false);
  for (const char* name : kTypeBoxes) EXPECT_FALSE(form.Enabled(name)) << name;
  for (const TextRow& row : kTexts) EXPECT_FALSE(form.Enabled(row.name)) << row.name;
  EXPECT_TRUE(form.Enabled("chkSubFolder"));
  form.cmdOK();
  EXPECT_FALSE(f.options.find.filterByExtension);
  EXPECT_TRUE(f.options.find.media.on);
  EXPECT_TRUE(f.options.find.html.on);
  EXPECT_EQ(f.options.find.media.extensions, "mid midi wav mp3 mpg mpeg avi");
}

TEST(OptionFormFilter, OnItEnablesTheBoxesAndTheTextsOfThoseThatAreChecked) {
  Fixture f;
  f.options.find.filterByExtension = false;
  f.options.find.text.on = true;
  OptionForm form = f.Form();
  f.Click(form, "chkExtensionFilter", true);
  for (const char* name : kTypeBoxes) EXPECT_TRUE(form.Enabled(name)) << name;
  EXPECT_TRUE(form.Enabled("txtExtensionMusic"));
  EXPECT_TRUE(form.Enabled("txtExtensionText"));
  EXPECT_FALSE(form.Enabled("txtExtensionHTML"));
  EXPECT_FALSE(form.Enabled("txtExtensionEtc"));
}

TEST(OptionFormFilter, ATypesBoxEnablesItsOwnText) {
  const std::string starts[] = {"Music", "Text", "HTML", "Etc"};
  for (const std::string& type : starts) {
    Fixture f;
    OptionForm form = f.Form();
    for (const bool checked : {true, false, true}) {
      f.Click(form, ("chkExtension" + type).c_str(), checked);
      EXPECT_EQ(form.Enabled("txtExtension" + type), checked) << type;
    }
  }
}

TEST(OptionFormFilter, IsShownAsStored) {
  Fixture f;
  f.options.find.filterByExtension = false;
  EXPECT_FALSE(f.Form().Enabled("chkExtensionMusic"));
  f.options.find.filterByExtension = true;
  EXPECT_TRUE(f.Form().Enabled("txtExtensionMusic"));
  EXPECT_FALSE(f.Form().Enabled("txtExtensionEtc"));
}

// The apply mode.

void ExpectManualBoxes(const OptionForm& form, bool enabled) {
  for (const char* name : kManualBoxes) EXPECT_EQ(form.Enabled(name), enabled) << name;
  EXPECT_TRUE(form.Enabled("chkUpdateErrChk"));
  EXPECT_TRUE(form.Enabled("chkAutoUpdate"));
}

TEST(OptionFormMode, InAutoModeTheFiveBoxesOfManualApplyingAreGreyed) {
  Fixture f;
  ExpectManualBoxes(f.Form(), true);
  f.options.update.automatic = true;
  f.mode.automatic = true;
  const OptionForm form = f.Form();
  EXPECT_TRUE(form.Checked("chkAutoUpdate"));
  ExpectManualBoxes(form, false);
  EXPECT_EQ(f.log.Events(), Texts()) << "showing it is no click";
}

TEST(OptionFormMode, OverAnEmptyListItStartsAtOnce) {
  Fixture f;
  OptionForm form = f.Form();
  f.Click(form, "chkAutoUpdate", true);
  EXPECT_EQ(f.log.Events(), Texts({"shows automatic", kAutoIsOn}));
  ExpectManualBoxes(form, false);
  EXPECT_TRUE(f.mode.automatic);
  EXPECT_TRUE(f.options.update.automatic);
  EXPECT_EQ(f.Stored(), kStoredOn);
}

TEST(OptionFormMode, OverALoadedListItWaits) {
  Fixture f;
  f.rows = true;
  OptionForm form = f.Form();
  f.Click(form, "chkAutoUpdate", true);
  EXPECT_EQ(f.log.Events(), Texts({kAutoComes}));
  ExpectManualBoxes(form, true);
  EXPECT_FALSE(f.mode.automatic);
  EXPECT_EQ(f.Stored(), kStoredOn);
  form.cmdOK();
  EXPECT_FALSE(f.mode.automatic) << "OK does not start it, either";
  EXPECT_TRUE(f.options.update.automatic);
}

TEST(OptionFormMode, ItEndsAtOnceWhateverIsListed) {
  for (const bool rows : {false, true}) {
    Fixture f;
    f.rows = rows;
    f.options.update.automatic = true;
    f.mode.automatic = true;
    OptionForm form = f.Form();
    f.Click(form, "chkAutoUpdate", false);
    EXPECT_EQ(f.log.Events(), Texts({"shows manual", kAutoIsOff}));
    ExpectManualBoxes(form, true);
    EXPECT_FALSE(f.mode.automatic);
    EXPECT_EQ(f.Stored(), kStoredOff);
  }
}

TEST(OptionFormMode, CancelBringsModeAndSettingBack) {
  for (const bool before : {false, true}) {
    for (const bool rows : {false, true}) {
      Fixture f;
      f.rows = rows;
      f.options.update.automatic = before;
      f.mode.automatic = before;
      OptionForm form = f.Form();
      f.Click(form, "chkAutoUpdate", !before);
      form.cmdCancel();
      EXPECT_EQ(f.mode.automatic, before);
      EXPECT_EQ(f.options.update.automatic, before ? 1 : 0);
      EXPECT_EQ(f.Stored(), before ? kStoredOn : kStoredOff);
    }
  }
}

TEST(OptionFormMode, CancelChangesNothingElse) {
  Fixture f;
  const std::set<std::string> before = Set(f.options);
  OptionForm form = f.Form();
  f.boxes.Answer(true);  // to the question about further extensions
  for (const FlagRow& row : kFlags) f.Click(form, row.name, !form.Checked(row.name));
  f.Click(form, "optDel0", true);
  form.Type("txtExtensionEtc", "ogg");
  form.cmdCancel();
  EXPECT_EQ(Set(f.options), before);
  EXPECT_EQ(f.options.list.deleteTo, DeleteTo::kRecycleBin);
  EXPECT_EQ(f.options.find.other.extensions, "");
  EXPECT_EQ(f.Stored(), kStoredOff) << "the mode in force, and nothing else";
}

TEST(OptionFormMode, AWaitingModeIsShownAndCanBeTakenBack) {
  Fixture f;
  f.rows = true;
  f.options.update.automatic = true;
  OptionForm form = f.Form();
  EXPECT_TRUE(form.Checked("chkAutoUpdate"));
  ExpectManualBoxes(form, true);
  f.Click(form, "chkAutoUpdate", false);
  EXPECT_EQ(f.log.Events(), Texts({"shows manual", kAutoIsOff}));
  EXPECT_EQ(f.Stored(), kStoredOff);
}

TEST(OptionFormMode, AWaitingModeSurvivesCancel) {
  for (const bool clicked : {false, true}) {
    Fixture f;
    f.rows = true;
    f.options.update.automatic = true;
    OptionForm form = f.Form();
    if (clicked) f.Click(form, "chkAutoUpdate", false);
    form.cmdCancel();
    EXPECT_EQ(f.Stored(), kStoredOn);
    EXPECT_TRUE(f.options.update.automatic);
    EXPECT_FALSE(f.mode.automatic) << "it still waits";
  }
}

TEST(OptionFormMode, HoldsForThisRunWhenTheSettingCannotBeStored) {
  Fixture f;
  f.folder.MakeFolder("Quillon.ini");
  OptionForm form = f.Form();
  f.Click(form, "chkAutoUpdate", true);
  EXPECT_EQ(f.log.StartingWith("box"), Texts({kAutoIsOn})) << "a failure is not told";
  EXPECT_TRUE(f.mode.automatic);
}

TEST(OptionFormMode, OkLeavesTheStoredModeAlone) {
  for (const bool automatic : {false, true}) {
    Fixture f;
    f.options.update.automatic = automatic;
    OptionForm form = f.Form();
    EXPECT_EQ(form.Checked("chkAutoUpdate"), automatic);
    f.options.update.automatic = !automatic;
    form.cmdOK();
    EXPECT_EQ(f.options.update.automatic, !automatic);
  }
}

const char* const kExtensionsOffer =
    "box [設定] フォルダから読み込むメディアファイルの拡張子に、次のものも加えますか\\r\\n\\r\\n"
    "flac ogg oga opus spx m4a m4b wma aif aiff aifc ape wv mpc tta (question, yes/no)";

TEST(OptionFormTags, SwitchingOnOffersToAddTheirExtensions) {
  Fixture fixture;
  OptionForm form = fixture.Form();
  fixture.boxes.Answer(true);
  fixture.Click(form, "chkReadMoreTags", true);
  EXPECT_EQ(fixture.log.Events(), Texts({"shows manual", kExtensionsOffer, "shows manual"}));
  EXPECT_EQ(form.Text("txtExtensionMusic"),
            "mid midi wav mp3 mpg mpeg avi flac ogg oga opus spx m4a m4b wma aif aiff aifc ape wv mpc tta");
  EXPECT_EQ(fixture.options.find.media.extensions, "mid midi wav mp3 mpg mpeg avi") << "before OK";
  form.cmdOK();
  EXPECT_EQ(fixture.options.find.media.extensions, form.Text("txtExtensionMusic"));
}

TEST(OptionFormTags, NoLeavesTheExtensionsAsTheyAre) {
  Fixture fixture;
  OptionForm form = fixture.Form();
  fixture.boxes.Answer(false);
  fixture.Click(form, "chkReadMoreTags", true);
  EXPECT_EQ(form.Text("txtExtensionMusic"), "mid midi wav mp3 mpg mpeg avi");
  EXPECT_TRUE(form.Checked("chkReadMoreTags"));
}

TEST(OptionFormTags, OnlyMissingExtensionsAreOffered) {
  Fixture fixture;
  OptionForm form = fixture.Form();
  form.Type("txtExtensionMusic", "FLAC ogg oga opus spx m4b wma aif aiff aifc ape wv mpc tta");
  fixture.boxes.Answer(true);
  fixture.Click(form, "chkReadMoreTags", true);
  EXPECT_EQ(form.Text("txtExtensionMusic"), "FLAC ogg oga opus spx m4b wma aif aiff aifc ape wv mpc tta m4a");
  fixture.log.Clear();
  fixture.Click(form, "chkReadMoreTags", false);
  fixture.Click(form, "chkReadMoreTags", true);
  EXPECT_EQ(fixture.log.Events(), Texts({"shows manual", "shows manual"})) << "all of them are there";
}

TEST(OptionFormTags, AnEmptyGroupGetsNoLeadingBlank) {
  Fixture fixture;
  OptionForm form = fixture.Form();
  form.Type("txtExtensionMusic", "");
  fixture.boxes.Answer(true);
  fixture.Click(form, "chkReadMoreTags", true);
  EXPECT_EQ(form.Text("txtExtensionMusic"), "flac ogg oga opus spx m4a m4b wma aif aiff aifc ape wv mpc tta");
}

TEST(OptionFormTags, WithoutConfirmationsTheyAreAdded) {
  Fixture fixture;
  fixture.options.system.suppressConfirmations = true;
  OptionForm form = fixture.Form();
  fixture.Click(form, "chkReadMoreTags", true);
  EXPECT_EQ(fixture.log.Events(), Texts({"shows manual", "shows manual"}));
  EXPECT_TRUE(form.Text("txtExtensionMusic").ends_with(" tta"));
}

TEST(OptionFormTags, NothingIsOfferedThatTheSettingCannotHold) {
  Fixture fixture;
  OptionForm form = fixture.Form();
  const std::string full(127 - 61, 'x');
  form.Type("txtExtensionMusic", full);
  fixture.Click(form, "chkReadMoreTags", true);
  EXPECT_EQ(form.Text("txtExtensionMusic"), full);
}

}  // namespace
}  // namespace quillon
