#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "settings/OptionValuesSamples.h"
#include "settings/Settings.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

/// The file that is written for the default values, including the window position.
constexpr std::string_view kFreshFile =
    "[System]\r\n"
    "DirPath=\r\n"
    "MovePath=\r\n"
    "LoadTime=0\r\n"
    "Msgbox=0\r\n"
    "Front=False\r\n"
    "[Window]\r\n"
    "Top=120\r\n"
    "Left=-30\r\n"
    "WindowHeight=6655\r\n"
    "WindowWidth=9520\r\n"
    "Col1_Width=1800\r\n"
    "Col2_Width=1800\r\n"
    "Col3_Width=1800\r\n"
    "Col4_Width=660\r\n"
    "Col5_Width=900\r\n"
    "Col6_Width=2300\r\n"
    "[Player]\r\n"
    "Repeat=0\r\n"
    "AllPlay=0\r\n"
    "[Modify]\r\n"
    "ReviceFlag=0\r\n"
    "ReviceText=\r\n"
    "0ReplaceFlag=0\r\n"
    "0ReplaceObject=\r\n"
    "0ReplaceRepace=\r\n"
    "1ReplaceFlag=0\r\n"
    "1ReplaceObject=\r\n"
    "1ReplaceRepace=\r\n"
    "2ReplaceFlag=0\r\n"
    "2ReplaceObject=\r\n"
    "2ReplaceRepace=\r\n"
    "3ReplaceFlag=0\r\n"
    "3ReplaceObject=\r\n"
    "3ReplaceRepace=\r\n"
    "4ReplaceFlag=0\r\n"
    "4ReplaceObject=\r\n"
    "4ReplaceRepace=\r\n"
    "FindCtrl=0\r\n"
    "IgnoreCase=0\r\n"
    "Upper=0\r\n"
    "Lower=0\r\n"
    "Proper=0\r\n"
    "Wide=0\r\n"
    "Narrow=0\r\n"
    "NonUnload=0\r\n"
    "[Update]\r\n"
    "ErrSkip=0\r\n"
    "UpdateErrChk=1\r\n"
    "UpdateRemChk=1\r\n"
    "[Rename]\r\n"
    "NoTitleSkip=1\r\n"
    "RenameErrChk=0\r\n"
    "RenameModify=0\r\n"
    "InjusticeChk=0\r\n"
    "[List]\r\n"
    "LoadChk=1\r\n"
    "DeltoTrashBox=True\r\n"
    "DelCompMsg=1\r\n"
    "LoadRemove=0\r\n"
    "SubFolder=0\r\n"
    "[Find]\r\n"
    "FilterChk=1\r\n"
    "ExtEtc=0\r\n"
    "ExtHTML=0\r\n"
    "ExtMusic=1\r\n"
    "ExtText=0\r\n"
    "ExtEtcText=\r\n"
    "ExtHTMLText=htm html\r\n"
    "ExtMusicText=mid midi wav mp3 mpg mpeg avi\r\n"
    "ExtTextText=txt doc\r\n"
    "[Move]\r\n"
    "RemainList=1\r\n";

/// The content of a file that can be replaced but is not read.
const std::string kTooLarge(IniFile::kLargestFile + 1, '\n');

class SettingsTest : public testing::Test {
 protected:
  IniFile Loaded(std::string_view bytes) {
    IniFile file(folder_.Write("Quillon.ini", bytes));
    EXPECT_TRUE(file.Load());
    return file;
  }

  OptionValues ReadValid(std::string_view bytes) {
    Result<OptionValues, SettingsError> values = ReadOptionValues(Loaded(bytes));
    EXPECT_TRUE(values.Ok()) << (values ? "" : values.Failure().section + "/" + values.Failure().key);
    return values ? *values : OptionValues();
  }

  std::string Written(const OptionValues& options, WindowGeometry geometry, std::string_view before = "") {
    IniFile file = Loaded(before);
    WriteOptionValues(file, options, geometry);
    EXPECT_TRUE(file.Save());
    return folder_.Read("Quillon.ini");
  }

  OptionValues RoundTrip(const OptionValues& options) { return ReadValid(Written(options, WindowGeometry::kWrite)); }

  test::TempFolder folder_;
};

TEST_F(SettingsTest, NoFileGivesTheDefaults) {
  const std::optional<OptionValues> values = LoadOptionValues(folder_.At("none.ini"));
  ASSERT_TRUE(values);
  EXPECT_EQ(test::Describe(*values), test::Describe(OptionValues()));
  EXPECT_FALSE(folder_.Exists("none.ini")) << "reading makes no file";
}

TEST_F(SettingsTest, AFileThatCannotBeReadIsNoEmptyFile) {
  folder_.MakeFolder("folder.ini");
  EXPECT_FALSE(LoadOptionValues(folder_.At("folder.ini")));
  EXPECT_FALSE(LoadOptionValues(folder_.Write("large.ini", kTooLarge)));
}

TEST_F(SettingsTest, AValueThatDoesNotFitMakesTheWholeFileUnusable) {
  EXPECT_FALSE(LoadOptionValues(folder_.Write("q.ini", "[Player]\r\nRepeat=32768\r\n")));
  const std::optional<OptionValues> values = LoadOptionValues(folder_.Write("q.ini", "[Player]\r\nRepeat=32767\r\n"));
  ASSERT_TRUE(values);
  EXPECT_TRUE(values->player.repeat);
}

TEST_F(SettingsTest, DefaultsOfAFirstStart) {
  const OptionValues values = ReadValid("");
  EXPECT_TRUE(values.find.filterByExtension);
  EXPECT_TRUE(values.find.media.on);
  EXPECT_FALSE(values.find.other.on);
  EXPECT_FALSE(values.find.html.on);
  EXPECT_FALSE(values.find.text.on);
  EXPECT_EQ(values.find.media.extensions, "mid midi wav mp3 mpg mpeg avi");
  EXPECT_EQ(values.list.deleteTo, DeleteTo::kRecycleBin);
  EXPECT_TRUE(values.list.confirmDeletion);
  EXPECT_TRUE(values.list.checkLoadedRows);
  EXPECT_FALSE(values.list.searchSubfolders);
  EXPECT_EQ(values.window.top, std::nullopt) << "centred";
  EXPECT_EQ(values.window.left, std::nullopt) << "centred";
  EXPECT_EQ(values.window.height, 6655);
  EXPECT_EQ(values.window.width, 9520);
  EXPECT_FALSE(values.system.alwaysOnTop);
}

TEST_F(SettingsTest, AtAFirstStartNoAdditionIsSwitchedOn) {
  const OptionValues::Extra extra = ReadValid("").extra;
  EXPECT_FALSE(extra.readMoreTags);
  for (const std::string& pattern : extra.patterns) EXPECT_EQ(pattern, "");
  EXPECT_EQ(extra.patternStart, 1);
  EXPECT_EQ(extra.patternStep, 1);
  EXPECT_EQ(extra.patternWidth, 1);
  EXPECT_EQ(extra.patternInvalid, PatternInvalid::kKept);
  EXPECT_EQ(extra.patternReplacement, "");
  EXPECT_FALSE(extra.runRulesOnce);
  EXPECT_FALSE(extra.confirmPending);
  EXPECT_FALSE(extra.toolBarLabels);
  EXPECT_FALSE(extra.maximized);
}

TEST_F(SettingsTest, FreshFileHasEveryKeyInOrder) {
  OptionValues options;
  options.window.top = 120;
  options.window.left = -30;
  EXPECT_EQ(Written(options, WindowGeometry::kWrite), kFreshFile);
}

TEST_F(SettingsTest, AnExtraSettingIsWrittenOnceItDiffersFromItsDefault) {
  OptionValues options;
  options.extra.readMoreTags = true;
  options.extra.patterns[0] = " {n} ";
  options.extra.patterns[1] = "\"{n}\"";
  const std::string on = Written(options, WindowGeometry::kKeep);
  const std::string extra = on.substr(on.find("[Extra]"));
  EXPECT_EQ(extra, "[Extra]\r\nReadMoreTags=1\r\nPattern0=\" {n} \"\r\nPattern1=\"\"{n}\"\"\r\n");
  EXPECT_EQ(test::Describe(ReadValid(on)), test::Describe(options));

  const std::string off = Written(OptionValues(), WindowGeometry::kKeep, on);
  EXPECT_EQ(off.substr(off.find("[Extra]")), "[Extra]\r\nReadMoreTags=0\r\nPattern0=\r\nPattern1=\r\n");
}

TEST_F(SettingsTest, AWrongExtraSettingIsTakenAsMissing) {
  const char* const wrong[] = {"ReadMoreTags=40000", "ReadMoreTags=yes", "PatternInvalid=4", "PatternInvalid=-1"};
  for (const std::string line : wrong) {
    EXPECT_EQ(test::Describe(ReadValid("[Extra]\r\n" + line + "\r\n")), test::Describe(OptionValues())) << line;
  }
}

TEST_F(SettingsTest, EveryKeyIsReadIntoItsOwnMember) {
  // Each row changes one key of an otherwise empty file; comparing the whole record shows that nothing else changed.
  const struct {
    const char* line;
    std::function<void(OptionValues&)> change;
  } rows[] = {
      {"[System]\nDirPath=C:\\音\\", [](auto& o) { o.system.loadFolder = "C:\\音\\"; }},
      {"[System]\nMovePath=D:\\", [](auto& o) { o.system.moveFolder = "D:\\"; }},
      {"[System]\nLoadTime=1", [](auto& o) { o.system.readPlayTimes = true; }},
      {"[System]\nMsgbox=1", [](auto& o) { o.system.suppressConfirmations = true; }},
      {"[System]\nFront=True", [](auto& o) { o.system.alwaysOnTop = true; }},
      {"[Window]\nTop=-70000", [](auto& o) { o.window.top = -70000; }},
      {"[Window]\nLeft=70000", [](auto& o) { o.window.left = 70000; }},
      {"[Window]\nWindowHeight=70000", [](auto& o) { o.window.height = 70000; }},
      {"[Window]\nWindowWidth=70001.5", [](auto& o) { o.window.width = 70001; }},
      {"[Window]\nCol1_Width=101", [](auto& o) { o.window.columnWidths[0] = 101; }},
      {"[Window]\nCol2_Width=102", [](auto& o) { o.window.columnWidths[1] = 102; }},
      {"[Window]\nCol3_Width=103", [](auto& o) { o.window.columnWidths[2] = 103; }},
      {"[Window]\nCol4_Width=104", [](auto& o) { o.window.columnWidths[3] = 104; }},
      {"[Window]\nCol5_Width=105", [](auto& o) { o.window.columnWidths[4] = 105; }},
      {"[Window]\nCol6_Width=106", [](auto& o) { o.window.columnWidths[5] = 106; }},
      {"[Player]\nRepeat=1", [](auto& o) { o.player.repeat = true; }},
      {"[Extra]\nReadMoreTags=1", [](auto& o) { o.extra.readMoreTags = true; }},
      {"[Extra]\nPattern0={n} {title}", [](auto& o) { o.extra.patterns[0] = "{n} {title}"; }},
      {"[Extra]\nPattern9=\" {n} \"", [](auto& o) { o.extra.patterns[9] = " {n} "; }},
      {"[Extra]\nPatternStart=-7", [](auto& o) { o.extra.patternStart = -7; }},
      {"[Extra]\nPatternStep=70000", [](auto& o) { o.extra.patternStep = 70000; }},
      {"[Extra]\nPatternWidth=3", [](auto& o) { o.extra.patternWidth = 3; }},
      {"[Extra]\nPatternInvalid=3", [](auto& o) { o.extra.patternInvalid = PatternInvalid::kWide; }},
      {"[Extra]\nPatternReplacement=_", [](auto& o) { o.extra.patternReplacement = "_"; }},
      {"[Extra]\nRunRulesOnce=1", [](auto& o) { o.extra.runRulesOnce = true; }},
      {"[Extra]\nConfirmPending=1", [](auto& o) { o.extra.confirmPending = true; }},
      {"[Extra]\nToolBarLabels=1", [](auto& o) { o.extra.toolBarLabels = true; }},
      {"[Extra]\nMaximized=1", [](auto& o) { o.extra.maximized = true; }},
      {"[Player]\nAllPlay=1", [](auto& o) { o.player.continuous = true; }},
      {"[Modify]\nReviceFlag=1", [](auto& o) { o.modify.replaceInvalid = true; }},
      {"[Modify]\nReviceText=_", [](auto& o) { o.modify.invalidReplacement = "_"; }},
      {"[Modify]\n0ReplaceFlag=1", [](auto& o) { o.modify.rules[0].active = true; }},
      {"[Modify]\n0ReplaceObject=a", [](auto& o) { o.modify.rules[0].find = "a"; }},
      {"[Modify]\n0ReplaceRepace=b", [](auto& o) { o.modify.rules[0].replacement = "b"; }},
      {"[Modify]\n4ReplaceFlag=1", [](auto& o) { o.modify.rules[4].active = true; }},
      {"[Modify]\n4ReplaceObject=a", [](auto& o) { o.modify.rules[4].find = "a"; }},
      {"[Modify]\n4ReplaceRepace=b", [](auto& o) { o.modify.rules[4].replacement = "b"; }},
      {"[Modify]\nFindCtrl=1", [](auto& o) { o.modify.method = FindMethod::kRegex; }},
      {"[Modify]\nIgnoreCase=1", [](auto& o) { o.modify.ignoreCase = true; }},
      {"[Modify]\nUpper=1", [](auto& o) { o.modify.upper = true; }},
      {"[Modify]\nLower=1", [](auto& o) { o.modify.lower = true; }},
      {"[Modify]\nProper=1", [](auto& o) { o.modify.proper = true; }},
      {"[Modify]\nWide=1", [](auto& o) { o.modify.wide = true; }},
      {"[Modify]\nNarrow=1", [](auto& o) { o.modify.narrow = true; }},
      {"[Modify]\nNonUnload=1", [](auto& o) { o.modify.keepDialogOpen = true; }},
      {"[Update]\nErrSkip=1", [](auto& o) { o.update.skipFailedRows = true; }},
      {"[Update]\nUpdateErrChk=0", [](auto& o) { o.update.checkFailedRows = false; }},
      {"[Update]\nUpdateRemChk=0", [](auto& o) { o.update.uncheckAppliedRows = false; }},
      {"[Update]\nAutoUpdate=1", [](auto& o) { o.update.automatic = true; }},
      {"[Rename]\nNoTitleSkip=0", [](auto& o) { o.rename.skipUntitledRows = false; }},
      {"[Rename]\nRenameErrChk=1", [](auto& o) { o.rename.checkSkippedRows = true; }},
      {"[Rename]\nRenameModify=1", [](auto& o) { o.rename.applyRules = true; }},
      {"[Rename]\nInjusticeChk=1", [](auto& o) { o.rename.checkInvalidNames = true; }},
      {"[List]\nLoadChk=0", [](auto& o) { o.list.checkLoadedRows = false; }},
      {"[List]\nDeltoTrashBox=False", [](auto& o) { o.list.deleteTo = DeleteTo::kNowhere; }},
      {"[List]\nDelCompMsg=0", [](auto& o) { o.list.confirmDeletion = false; }},
      {"[List]\nLoadRemove=1", [](auto& o) { o.list.clearBeforeLoading = true; }},
      {"[List]\nSubFolder=1", [](auto& o) { o.list.searchSubfolders = true; }},
      {"[Find]\nFilterChk=0", [](auto& o) { o.find.filterByExtension = false; }},
      {"[Find]\nExtEtc=1", [](auto& o) { o.find.other.on = true; }},
      {"[Find]\nExtHTML=1", [](auto& o) { o.find.html.on = true; }},
      {"[Find]\nExtMusic=0", [](auto& o) { o.find.media.on = false; }},
      {"[Find]\nExtText=1", [](auto& o) { o.find.text.on = true; }},
      {"[Find]\nExtEtcText=x  y", [](auto& o) { o.find.other.extensions = "x  y"; }},
      {"[Find]\nExtHTMLText=x", [](auto& o) { o.find.html.extensions = "x"; }},
      {"[Find]\nExtMusicText=", [](auto& o) { o.find.media.extensions = ""; }},
      {"[Find]\nExtTextText=x", [](auto& o) { o.find.text.extensions = "x"; }},
      {"[Move]\nRemainList=0", [](auto& o) { o.move.keepMovedRows = false; }},
      {"[Find]\nSubFolder=7", [](auto&) {}},          // belongs to another section
      {"[Modify]\n5ReplaceFlag=7", [](auto&) {}},     // there are five rules
      {"[Modify]\n0ReplaceReplace=b", [](auto&) {}},  // the key is spelt without the l
      {"[Window]\nTop=", [](auto&) {}},
      {"[Window]\nWindowHeight=", [](auto&) {}},
      {"[List]\nDelCompMsg=", [](auto&) {}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.line);
    OptionValues expected;
    row.change(expected);
    std::string bytes = row.line;
    if (const std::size_t at = bytes.find("音"); at != std::string::npos) bytes.replace(at, 3, "\x89\xB9");
    EXPECT_EQ(test::Describe(ReadValid(bytes)), test::Describe(expected));
  }
}

TEST_F(SettingsTest, EveryMemberSurvivesARestart) {
  EXPECT_EQ(test::Describe(RoundTrip(OptionValues())), test::Describe(OptionValues()));
  for (unsigned seed = 0; seed < 60; ++seed) {
    SCOPED_TRACE(seed);
    OptionValues options = test::RandomOptionValues(seed);
    OptionValues expected = options;
    expected.update.automatic = false;  // never written with the others
    EXPECT_EQ(test::Describe(RoundTrip(options)), test::Describe(expected));
  }
}

TEST_F(SettingsTest, WritingAgainChangesNothing) {
  for (unsigned seed = 0; seed < 20; ++seed) {
    SCOPED_TRACE(seed);
    const OptionValues options = test::RandomOptionValues(seed);
    const std::string once = Written(options, WindowGeometry::kWrite);
    EXPECT_EQ(Written(ReadValid(once), WindowGeometry::kWrite, once), once);
  }
}

TEST_F(SettingsTest, OneBlankSurvivesInReplaceTextsAndTwoDoNot) {
  OptionValues options;
  options.modify.rules[0].find = " ";
  options.modify.rules[0].replacement = "  ";
  options.modify.rules[4].find = "[SPACE]";
  options.modify.rules[4].replacement = " ";
  options.modify.invalidReplacement = " ";
  options.find.other.extensions = " ";
  const std::string bytes = Written(options, WindowGeometry::kWrite);
  EXPECT_NE(bytes.find("\r\n0ReplaceObject=[SPACE]\r\n0ReplaceRepace=  \r\n"), std::string::npos);
  EXPECT_NE(bytes.find("\r\nReviceText= \r\n"), std::string::npos) << "the word is for replace rules only";
  const OptionValues values = ReadValid(bytes);
  EXPECT_EQ(values.modify.rules[0].find, " ");
  EXPECT_EQ(values.modify.rules[0].replacement, "");
  EXPECT_EQ(values.modify.rules[4].find, " ");
  EXPECT_EQ(values.modify.rules[4].replacement, " ");
  EXPECT_EQ(values.modify.invalidReplacement, "");
  EXPECT_EQ(values.find.other.extensions, "");
}

TEST_F(SettingsTest, TheWordForABlankMustMatchExactlyAndOnlyInReplaceTexts) {
  const OptionValues values = ReadValid(
      "[Modify]\nReviceText=[SPACE]\n0ReplaceObject=[space]\n1ReplaceObject=x[SPACE]\n2ReplaceObject=  [SPACE]  \n");
  EXPECT_EQ(values.modify.invalidReplacement, "[SPACE]");
  EXPECT_EQ(values.modify.rules[0].find, "[space]");
  EXPECT_EQ(values.modify.rules[1].find, "x[SPACE]");
  EXPECT_EQ(values.modify.rules[2].find, " ") << "blanks around it are stripped first";
}

TEST_F(SettingsTest, TextsOf200CharactersComeBackCutTo127) {
  OptionValues options;
  std::string kanji127;
  for (int i = 0; i < 200; ++i) {
    options.modify.invalidReplacement += "x";
    options.modify.rules[2].find += "漢";
    options.modify.rules[2].replacement += "é";
    if (i < 127) kanji127 += "漢";
  }
  const OptionValues values = RoundTrip(options);
  EXPECT_EQ(values.modify.invalidReplacement, std::string(127, 'x'));
  EXPECT_EQ(values.modify.rules[2].find, kanji127);
  EXPECT_EQ(values.modify.rules[2].replacement.size(), 2u * 127u);
}

TEST_F(SettingsTest, BooleansAreWrittenAsWordsAndReadFromNumbers) {
  OptionValues options;
  options.list.deleteTo = DeleteTo::kNowhere;
  options.system.alwaysOnTop = true;
  const std::string bytes = Written(options, WindowGeometry::kKeep);
  EXPECT_NE(bytes.find("\r\nDeltoTrashBox=False\r\n"), std::string::npos);
  EXPECT_NE(bytes.find("\r\nFront=True\r\n"), std::string::npos);
  EXPECT_EQ(ReadValid("[List]\nDeltoTrashBox=0").list.deleteTo, DeleteTo::kNowhere);
  EXPECT_EQ(ReadValid("[List]\nDeltoTrashBox=-1").list.deleteTo, DeleteTo::kRecycleBin);
  EXPECT_TRUE(ReadValid("[System]\nFront=1").system.alwaysOnTop);
  EXPECT_FALSE(ReadValid("[System]\nFront=false").system.alwaysOnTop);
}

TEST_F(SettingsTest, MostNumbersAreOnOnlyAtOne) {
  for (const char* const number : {"0", "2", "7", "-1", "32767", "-32768"}) {
    SCOPED_TRACE(number);
    std::string bytes;
    for (const char* const key :
         {"[System]\nLoadTime",     "[Player]\nAllPlay",      "[Modify]\nReviceFlag",   "[Modify]\n0ReplaceFlag",
          "[Modify]\n4ReplaceFlag", "[Modify]\nFindCtrl",     "[Modify]\nIgnoreCase",   "[Modify]\nUpper",
          "[Modify]\nLower",        "[Modify]\nProper",       "[Modify]\nWide",         "[Modify]\nNarrow",
          "[Modify]\nNonUnload",    "[Update]\nUpdateErrChk", "[Update]\nUpdateRemChk", "[Update]\nAutoUpdate",
          "[Rename]\nNoTitleSkip",  "[Rename]\nRenameErrChk", "[Rename]\nRenameModify", "[Rename]\nInjusticeChk",
          "[List]\nLoadChk",        "[List]\nDelCompMsg",     "[Move]\nRemainList"}) {
      bytes += std::string(key) + "=" + number + "\n";
    }
    OptionValues off;
    off.update.checkFailedRows = off.update.uncheckAppliedRows = off.rename.skipUntitledRows = false;
    off.list.checkLoadedRows = off.list.confirmDeletion = off.move.keepMovedRows = false;
    EXPECT_EQ(test::Describe(ReadValid(bytes)), test::Describe(off));
  }
}

TEST_F(SettingsTest, SomeNumbersAreOnUnlessZero) {
  for (const char* const number : {"1", "2", "7", "-1", "32767", "-32768"}) {
    SCOPED_TRACE(number);
    std::string bytes;
    for (const char* const key :
         {"[System]\nMsgbox", "[Player]\nRepeat", "[Update]\nErrSkip", "[List]\nLoadRemove", "[List]\nSubFolder",
          "[Find]\nFilterChk", "[Find]\nExtEtc", "[Find]\nExtHTML", "[Find]\nExtMusic", "[Find]\nExtText"}) {
      bytes += std::string(key) + "=" + number + "\n";
    }
    OptionValues on;
    on.system.suppressConfirmations = on.player.repeat = on.update.skipFailedRows = true;
    on.list.clearBeforeLoading = on.list.searchSubfolders = true;
    on.find.other.on = on.find.html.on = on.find.text.on = true;
    EXPECT_EQ(test::Describe(ReadValid(bytes)), test::Describe(on));
  }
}

TEST_F(SettingsTest, WhatTheDialogHasStoredIsWrittenAsOneAndZero) {
  const std::string before = "[Player]\r\nRepeat=-1\r\nAllPlay=7\r\n[List]\r\nLoadChk=True\r\nSubFolder=2\r\n";
  OptionValues options = ReadValid(before);
  EXPECT_FALSE(options.storedByDialog);
  options.storedByDialog = true;
  const std::string bytes = Written(options, WindowGeometry::kKeep, before);
  EXPECT_NE(bytes.find("Repeat=1\r\nAllPlay=0\r\n"), std::string::npos) << bytes;
  EXPECT_NE(bytes.find("LoadChk=0\r\nSubFolder=1\r\n"), std::string::npos) << bytes;
}

TEST_F(SettingsTest, AnUnusualNumberStaysWhileItMeansTheSame) {
  const std::string before = "[Player]\r\nRepeat=-1\r\nAllPlay=7\r\n[List]\r\nLoadChk=True\r\nSubFolder=2\r\n";
  OptionValues options = ReadValid(before);
  EXPECT_TRUE(options.player.repeat);
  EXPECT_FALSE(options.player.continuous);
  EXPECT_FALSE(options.list.checkLoadedRows);
  std::string bytes = Written(options, WindowGeometry::kKeep, before);
  EXPECT_NE(bytes.find("Repeat=-1\r\nAllPlay=7\r\n"), std::string::npos) << bytes;
  EXPECT_NE(bytes.find("LoadChk=-1\r\nSubFolder=2\r\n"), std::string::npos) << bytes;
  options.player.repeat = false;
  options.player.continuous = true;
  options.list.checkLoadedRows = true;
  options.list.searchSubfolders = false;
  bytes = Written(options, WindowGeometry::kKeep, before);
  EXPECT_NE(bytes.find("Repeat=0\r\nAllPlay=1\r\n"), std::string::npos) << bytes;
  EXPECT_NE(bytes.find("LoadChk=1\r\nSubFolder=0\r\n"), std::string::npos) << bytes;
}

TEST_F(SettingsTest, ValuesThatDoNotFitAreErrors) {
  const struct {
    const char* name;
    const char* bytes;
    SettingsError expected;
  } rows[] = {
      {"one above 16 bits", "[Player]\nRepeat=32768", {"Player", "Repeat", "32768"}},
      {"one below 16 bits", "[Modify]\n3ReplaceFlag= -32769 ", {"Modify", "3ReplaceFlag", "-32769"}},
      {"above 32 bits, not wrapped into range", "[Find]\nExtEtc=2147483648", {"Find", "ExtEtc", "2147483648"}},
      {"the apply mode", "[Update]\nAutoUpdate=40000", {"Update", "AutoUpdate", "40000"}},
      {"LoadChk beyond 16 bits", "[List]\nLoadChk=32768", {"List", "LoadChk", "32768"}},
      {"LoadChk as a word", "[List]\nLoadChk=yes", {"List", "LoadChk", "yes"}},
      {"LoadChk empty", "[List]\nLoadChk=", {"List", "LoadChk", ""}},
      {"DeltoTrashBox as a word", "[List]\nDeltoTrashBox=Yes", {"List", "DeltoTrashBox", "Yes"}},
      {"DeltoTrashBox empty", "[List]\nDeltoTrashBox=", {"List", "DeltoTrashBox", ""}},
      {"Front as a word", "[System]\nFront=on", {"System", "Front", "on"}},
      {"the first of several", "[System]\nFront=on\n[Player]\nRepeat=99999\n", {"Player", "Repeat", "99999"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Result<OptionValues, SettingsError> values = ReadOptionValues(Loaded(row.bytes));
    ASSERT_FALSE(values.Ok());
    EXPECT_EQ(values.Failure().section, row.expected.section);
    EXPECT_EQ(values.Failure().key, row.expected.key);
    EXPECT_EQ(values.Failure().text, row.expected.text);
    EXPECT_EQ(folder_.Read("Quillon.ini"), row.bytes) << "the file is left as it is";
  }
}

TEST_F(SettingsTest, ValuesThatJustFitAreNoErrors) {
  EXPECT_TRUE(ReadValid("[Player]\nRepeat=32767").player.repeat);
  EXPECT_TRUE(ReadValid("[Player]\nRepeat=-32768").player.repeat);
  EXPECT_FALSE(ReadValid("[Player]\nRepeat=garbage").player.repeat) << "a number read as a number is never text";
  EXPECT_TRUE(ReadValid("[Player]\nAllPlay=4294967297").player.continuous) << "wraps around at 32 bits first";
  EXPECT_FALSE(ReadValid("[List]\nLoadChk= 1.5 ").list.checkLoadedRows) << "rounded to 2";
  EXPECT_TRUE(ReadValid("[List]\nLoadChk= 1.4 ").list.checkLoadedRows);
  EXPECT_EQ(ReadValid("[Window]\nWindowWidth=99999").window.width, 99999);
}

TEST_F(SettingsTest, GeometryIsWrittenInTheNormalStateOnly) {
  const std::string before = "[Window]\r\nTop=1\r\nLeft=2\r\nWindowHeight=3\r\nWindowWidth=4\r\nCol1_Width=5\r\n";
  OptionValues options;
  options.window.top = 10;
  options.window.left = 20;
  options.window.height = 30;
  options.window.width = 40;
  options.window.columnWidths[0] = 50;
  const OptionValues kept = ReadValid(Written(options, WindowGeometry::kKeep, before));
  EXPECT_EQ(kept.window.top, 1);
  EXPECT_EQ(kept.window.left, 2);
  EXPECT_EQ(kept.window.height, 3);
  EXPECT_EQ(kept.window.width, 4);
  EXPECT_EQ(kept.window.columnWidths[0], 50) << "column widths always";
  const OptionValues written = ReadValid(Written(options, WindowGeometry::kWrite, before));
  EXPECT_EQ(written.window.top, 10);
  EXPECT_EQ(written.window.left, 20);
  EXPECT_EQ(written.window.height, 30);
  EXPECT_EQ(written.window.width, 40);
}

TEST_F(SettingsTest, UnknownPositionIsNotWritten) {
  const std::string bytes = Written(OptionValues(), WindowGeometry::kWrite);
  EXPECT_EQ(bytes.find("Top="), std::string::npos);
  EXPECT_EQ(bytes.find("Left="), std::string::npos);
  EXPECT_NE(bytes.find("WindowHeight=6655"), std::string::npos);
}

TEST_F(SettingsTest, UnknownLinesStay) {
  const std::string bytes = Written(OptionValues(), WindowGeometry::kKeep,
                                    "; mine\r\n[Own]\r\nkey=\x89\xB9\r\n\r\n[Player]\r\nVolume=3\r\nRepeat=1\r\n");
  EXPECT_TRUE(bytes.starts_with(
      "; mine\r\n[Own]\r\nkey=\x89\xB9\r\n\r\n[Player]\r\nVolume=3\r\nRepeat=0\r\nAllPlay=0\r\n[System]\r\n"))
      << bytes;
}

TEST_F(SettingsTest, AutoUpdateIsWrittenOnItsOwnOnly) {
  OptionValues options;
  options.update.automatic = true;
  EXPECT_EQ(Written(options, WindowGeometry::kWrite).find("AutoUpdate"), std::string::npos);
  const std::string path = folder_.At("Quillon.ini");
  EXPECT_TRUE(WriteAutoUpdate(path, true));
  const std::string bytes = folder_.Read("Quillon.ini");
  EXPECT_NE(bytes.find("UpdateRemChk=1\r\nAutoUpdate=1\r\n[Rename]"), std::string::npos) << bytes;
  EXPECT_TRUE(ReadValid(bytes).update.automatic);
  options.update.automatic = false;
  const std::string after = Written(options, WindowGeometry::kWrite, bytes);
  EXPECT_TRUE(ReadValid(after).update.automatic) << "the others leave it alone";
}

TEST_F(SettingsTest, AutoUpdateMakesTheFileWhenThereIsNone) {
  EXPECT_TRUE(WriteAutoUpdate(folder_.At("new.ini"), 1));
  EXPECT_EQ(folder_.Read("new.ini"), "[Update]\r\nAutoUpdate=1\r\n");
}

TEST_F(SettingsTest, AutoUpdateReportsAFailedWrite) {
  folder_.MakeFolder("taken.ini");
  EXPECT_FALSE(WriteAutoUpdate(folder_.At("taken.ini"), 1));
}

TEST_F(SettingsTest, AutoUpdateDoesNotChangeAFileThatItCannotRead) {
  const std::string path = folder_.Write("large.ini", kTooLarge);
  EXPECT_FALSE(WriteAutoUpdate(path, true));
  EXPECT_TRUE(folder_.Read("large.ini") == kTooLarge);
}

TEST_F(SettingsTest, DamagedFilesReadAsDefaults) {
  const std::vector<std::string> contents = {std::string(1u << 19u, 'x'),      std::string(4096, '\0'),
                                             std::string("\xFF\xFE[\0P\0", 6), "Repeat=5\r\n",
                                             "[Player\r\nRepeat=5\r\n",        std::string(5000, '\n'),
                                             "[Player]\r\nRepeat\r\n",         "\x81[Player]\r\nRepeat=5\r\n"};
  for (const std::string& bytes : contents) {
    SCOPED_TRACE(testing::PrintToString(bytes.substr(0, 30)));
    EXPECT_EQ(test::Describe(ReadValid(bytes)), test::Describe(OptionValues()));
    EXPECT_EQ(test::Describe(ReadValid(Written(OptionValues(), WindowGeometry::kWrite, bytes))),
              test::Describe(OptionValues()));
  }
}

TEST(InitialisationError, SaysItInThreeLines) {
  const Message message = InitialisationError();
  EXPECT_EQ(message.caption, "初期化エラー");
  EXPECT_EQ(message.text,
            "設定ファイルが壊れている可能性があります\r\n再度起動してください\r\n"
            "それでも初期化エラーが出る場合はヘルプを参照してください");
  EXPECT_EQ(message.icon, MessageIcon::kStop);
  EXPECT_EQ(message.buttons, MessageButtons::kOk);
}

}  // namespace
}  // namespace quillon
