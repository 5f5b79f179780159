#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "settings/OptionValuesSamples.h"
#include "settings/Presets.h"
#include "settings/Settings.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Modify = OptionValues::Modify;

const std::string kTooLarge(IniFile::kLargestFile + 1, '\n');

/// A rule set that differs from the others and from the default.
Modify Rules(const std::string& find) {
  Modify rules;
  rules.rules[0] = {true, find, "b"};
  return rules;
}

class PresetsTest : public testing::Test {
 protected:
  void Save(const std::string& name, const Modify& rules) {
    EXPECT_EQ(presets_.Save({name, rules}), std::nullopt) << name;
  }

  Modify Loaded(std::string_view name) {
    const Result<Modify, PresetError> rules = presets_.Load(name);
    EXPECT_TRUE(rules) << name;
    return rules ? *rules : Modify();
  }

  std::string File() { return folder_.Read("q.ini"); }

  std::optional<PresetProblem> Problem(std::string_view bytes) {
    const Result<std::vector<Preset>, PresetError> read = ReadPresetFile(folder_.Write("other.ini", bytes), "other");
    return read ? std::nullopt : std::optional(read.Failure().problem);
  }

  test::TempFolder folder_;
  Presets presets_{folder_.At("q.ini")};
};

TEST_F(PresetsTest, NoFileHasNoneAndReadingMakesNoFile) {
  EXPECT_THAT(presets_.Names(), IsEmpty());
  EXPECT_EQ(presets_.Load("a").Failure().problem, PresetProblem::kAbsent);
  EXPECT_FALSE(folder_.Exists("q.ini"));
}

TEST_F(PresetsTest, EachIsASectionWithTheKeysOfTheRules) {
  Modify rules = Rules(" ");
  rules.replaceInvalid = rules.ignoreCase = rules.narrow = rules.keepDialogOpen = true;
  rules.invalidReplacement = "_";
  rules.method = FindMethod::kRegex;
  Save("ゾウの歌", rules);
  EXPECT_EQ(File(),
            "[Preset \x83\x5D\x83\x45\x82\xCC\x89\xCC]\r\n"
            "ReviceFlag=1\r\nReviceText=_\r\n"
            "0ReplaceFlag=1\r\n0ReplaceObject=[SPACE]\r\n0ReplaceRepace=b\r\n"
            "1ReplaceFlag=0\r\n1ReplaceObject=\r\n1ReplaceRepace=\r\n"
            "2ReplaceFlag=0\r\n2ReplaceObject=\r\n2ReplaceRepace=\r\n"
            "3ReplaceFlag=0\r\n3ReplaceObject=\r\n3ReplaceRepace=\r\n"
            "4ReplaceFlag=0\r\n4ReplaceObject=\r\n4ReplaceRepace=\r\n"
            "FindCtrl=1\r\nIgnoreCase=1\r\nUpper=0\r\nLower=0\r\nProper=0\r\nWide=0\r\nNarrow=1\r\n");
  rules.keepDialogOpen = false;  // a habit of the dialog
  EXPECT_EQ(Loaded("ゾウの歌"), rules);
}

TEST_F(PresetsTest, EverySetComesBack) {
  for (unsigned seed = 0; seed < 60; ++seed) {
    SCOPED_TRACE(seed);
    Modify rules = test::RandomOptionValues(seed).modify;
    rules.keepDialogOpen = false;
    const std::string name = "規則 " + std::to_string(seed);
    Save(name, rules);
    EXPECT_EQ(Loaded(name), rules);
  }
  EXPECT_EQ(presets_.Names().size(), 60u);
}

TEST_F(PresetsTest, NamesKeepTheirOrderAndAnyText) {
  const std::vector<std::string> names = {"b", "a", "ア [x", "ゾ=1;", "é😀", std::string(60, 'x'), "# & % ~"};
  for (const std::string& name : names) Save(name, Rules(name));
  EXPECT_EQ(presets_.Names(), names);
  for (const std::string& name : names) EXPECT_EQ(Loaded(name), Rules(name));
}

// In code page 932, "ア" and "ヂ" differ as "A" and "a" do, and "ゾ" ends with the byte of a bracket.
TEST_F(PresetsTest, NamesAreComparedAsTextIgnoringCase) {
  Save("ア", Rules("1"));
  Save("ヂ", Rules("2"));
  Save("ゾウ", Rules("3"));
  Save("ゾ", Rules("4"));
  Save("Abc Ｄ", Rules("5"));
  EXPECT_THAT(presets_.Names(), ElementsAre("ア", "ヂ", "ゾウ", "ゾ", "Abc Ｄ"));
  EXPECT_EQ(Loaded("ア"), Rules("1"));
  EXPECT_EQ(Loaded("ゾウ"), Rules("3"));
  EXPECT_EQ(Loaded("aBC ｄ"), Rules("5"));
  Save("ABC Ｄ", Rules("6"));
  EXPECT_THAT(presets_.Names(), ElementsAre("ア", "ヂ", "ゾウ", "ゾ", "Abc Ｄ")) << "the first spelling stays";
  EXPECT_EQ(Loaded("Abc Ｄ"), Rules("6"));
}

TEST_F(PresetsTest, ANameThatNeedsItConvertsTheFileToUtf8) {
  folder_.Write("q.ini", "[System]\r\nDirPath=\x89\xB9\r\n");
  Save("音", Rules("音"));
  EXPECT_NE(File().find("[Preset \x89\xB9]"), std::string::npos);
  Save("é", Rules("音"));
  EXPECT_EQ(File().substr(0, 3), "\xEF\xBB\xBF");
  EXPECT_NE(File().find("DirPath=音\r\n[Preset 音]"), std::string::npos);
  EXPECT_NE(File().find("[Preset é]\r\nReviceFlag=0\r\nReviceText=\r\n0ReplaceFlag=1\r\n0ReplaceObject=音\r\n"),
            std::string::npos);
  EXPECT_EQ(Loaded("音"), Rules("音"));

  folder_.Write("q.ini", "[Preset a]\r\n0ReplaceObject=\x89\xB9\r\n");
  EXPECT_EQ(presets_.Rename("a", "😀"), std::nullopt);
  EXPECT_EQ(File(), "\xEF\xBB\xBF[Preset 😀]\r\n0ReplaceObject=音\r\n");
}

TEST_F(PresetsTest, ASectionThatComesTwiceIsOnePreset) {
  folder_.Write("q.ini", "[Preset a]\nUpper=1\n[System]\nMsgbox=1\n[PRESET A]\nLower=1\nUpper=0\n");
  EXPECT_THAT(presets_.Names(), ElementsAre("a"));
  EXPECT_TRUE(Loaded("a").upper && Loaded("a").lower);
  EXPECT_EQ(presets_.Rename("a", "b"), std::nullopt);
  EXPECT_THAT(presets_.Names(), ElementsAre("b"));
  EXPECT_EQ(presets_.Remove("b"), std::nullopt);
  EXPECT_EQ(File(), "[System]\nMsgbox=1\n");
}

TEST_F(PresetsTest, SectionsThatOnlyLookAlikeAreNone) {
  folder_.Write("q.ini",
                "; [Preset comment]\n[Preset]\n[Preset ]\n[Presets a]\n[Preset-a]\n[My Preset a]\n"
                "[preset   mine ]\n0ReplaceFlag=1\n0ReplaceObject=a\n0ReplaceRepace=b\n[Preset Mine]\nUpper=1\n");
  EXPECT_THAT(presets_.Names(), ElementsAre("mine", "Mine")) << "the second is another section";
  EXPECT_EQ(Loaded("MINE"), Rules("a")) << "the first of the same name counts";
  Save("mine", Rules("c"));
  EXPECT_EQ(Loaded("mine"), Rules("c")) << "it is written where it stands";
}

TEST_F(PresetsTest, RestOfTheFileStaysAsItIs) {
  const std::string before = "; mine\n[Modify]\n0ReplaceFlag=7\nNonUnload=1\n\n[Unknown]\nkey = value\n; last\n";
  folder_.Write("q.ini", before);
  Save("a", Rules("1"));
  Save("b", Rules("2"));
  EXPECT_EQ(File().substr(0, before.size()), before);
  EXPECT_EQ(presets_.Rename("a", "c"), std::nullopt);
  EXPECT_THAT(presets_.Names(), ElementsAre("c", "b")) << "a renamed one keeps its place";
  EXPECT_EQ(Loaded("c"), Rules("1"));
  EXPECT_EQ(presets_.Remove("c"), std::nullopt);
  EXPECT_THAT(presets_.Names(), ElementsAre("b"));
  EXPECT_EQ(Loaded("b"), Rules("2"));
  EXPECT_EQ(presets_.Remove("B"), std::nullopt);
  EXPECT_EQ(File(), before) << "with the last preset gone, the file is what it was";
}

TEST_F(PresetsTest, SurviveTheEndOfTheProgram) {
  folder_.Write("q.ini", "[Modify]\r\nUpper=1\r\n");
  Save("音", Rules("1"));
  IniFile file(presets_.Path());
  ASSERT_TRUE(file.Load());
  OptionValues options = ReadOptionValues(file) ? *ReadOptionValues(file) : OptionValues();
  EXPECT_TRUE(options.modify.upper) << "the rules themselves are not the preset's";
  options.modify.upper = false;
  WriteOptionValues(file, options, WindowGeometry::kWrite);
  ASSERT_TRUE(file.Save());
  EXPECT_EQ(Loaded("音"), Rules("1"));
  EXPECT_TRUE(LoadOptionValues(presets_.Path()));
}

TEST_F(PresetsTest, ADamagedOneHarmsNeitherTheProgramNorTheOthers) {
  folder_.Write("q.ini", "[Preset bad]\nUpper=40000\n[Preset good]\nUpper=1\n");
  EXPECT_TRUE(LoadOptionValues(presets_.Path()));
  EXPECT_THAT(presets_.Names(), ElementsAre("bad", "good"));
  const PresetError expected = {PresetProblem::kDamaged, "[Preset bad] Upper=40000"};
  ASSERT_FALSE(presets_.Load("bad"));
  EXPECT_EQ(presets_.Load("bad").Failure(), expected);
  EXPECT_TRUE(Loaded("good").upper);
}

TEST_F(PresetsTest, RenamingRefusesTheNameOfAnother) {
  Save("a", Rules("1"));
  Save("b", Rules("2"));
  const std::string before = File();
  EXPECT_EQ(presets_.Rename("a", "B")->problem, PresetProblem::kNameTaken);
  EXPECT_EQ(presets_.Rename("c", "d")->problem, PresetProblem::kAbsent);
  EXPECT_EQ(presets_.Remove("c")->problem, PresetProblem::kAbsent);
  EXPECT_EQ(File(), before);
  EXPECT_EQ(presets_.Rename("a", "A"), std::nullopt) << "its own, in another case";
  EXPECT_THAT(presets_.Names(), ElementsAre("A", "b"));
}

TEST_F(PresetsTest, AFileThatCannotBeReadIsNotReplaced) {
  folder_.Write("q.ini", kTooLarge);
  EXPECT_THAT(presets_.Names(), IsEmpty());
  EXPECT_EQ(presets_.Load("a").Failure().problem, PresetProblem::kUnreadable);
  EXPECT_EQ(presets_.Save({"a", {}})->problem, PresetProblem::kUnreadable);
  EXPECT_EQ(presets_.Rename("a", "b")->problem, PresetProblem::kUnreadable);
  EXPECT_EQ(presets_.Remove("a")->problem, PresetProblem::kUnreadable);
  EXPECT_EQ(presets_.Add({{"a", {}}}, SameName::kNumber).Failure().problem, PresetProblem::kUnreadable);
  EXPECT_EQ(File(), kTooLarge);
}

TEST_F(PresetsTest, AFileThatCannotBeWrittenIsReportedAndStaysWhole) {
  // The largest file that is still read has no room for a preset.
  const std::string full(IniFile::kLargestFile, '\n');
  folder_.Write("q.ini", full);
  EXPECT_EQ(presets_.Save({"a", {}})->problem, PresetProblem::kNotWritten);
  EXPECT_EQ(presets_.Add({{"a", {}}}, SameName::kNumber).Failure().problem, PresetProblem::kNotWritten);
  EXPECT_EQ(File(), full);
  folder_.Write("file", "");
  EXPECT_EQ(Presets(folder_.At("file/q.ini")).Save({"a", {}})->problem, PresetProblem::kNotWritten)
      << "the folder is a file";
}

TEST_F(PresetsTest, AreNotMoreThanAHundred) {
  std::string file;
  for (std::size_t i = 0; i < kMostPresets; ++i) file += "[Preset " + std::to_string(i) + "]\n";
  folder_.Write("q.ini", file);
  EXPECT_EQ(presets_.Save({"one more", {}})->problem, PresetProblem::kTooMany);
  EXPECT_EQ(presets_.Add({{"one more", {}}}, SameName::kNumber).Failure().problem, PresetProblem::kTooMany);
  EXPECT_EQ(File(), file);
  Save("7", Rules("a"));
  EXPECT_EQ(Problem(file), std::nullopt);
  EXPECT_EQ(Problem(file + "[Preset one more]\n"), PresetProblem::kTooMany);
}

TEST_F(PresetsTest, AnExportedFileIsASettingsFileAndGivesThePresetBack) {
  for (const std::string name : {"音 と ゾ", "é😀"}) {
    SCOPED_TRACE(name);
    Modify rules = test::RandomOptionValues(7).modify;
    rules.keepDialogOpen = false;
    folder_.Write("out.ini", "[Preset old]\n");
    const std::string path = folder_.At("out.ini");
    ASSERT_EQ(WritePresetFile(path, {name, rules}), std::nullopt);
    const std::optional<OptionValues> options = LoadOptionValues(path);
    ASSERT_TRUE(options);
    EXPECT_EQ(options->modify, rules);
    const Result<std::vector<Preset>, PresetError> read = ReadPresetFile(path, "other");
    ASSERT_TRUE(read);
    EXPECT_THAT(*read, ElementsAre(Preset{name, rules})) << "what was in the file is gone";
  }
  EXPECT_EQ(WritePresetFile(folder_.MakeFolder("folder"), {"a", {}})->problem, PresetProblem::kNotWritten);
}

TEST_F(PresetsTest, AFileWithRulesAloneIsReadAsOnePreset) {
  const std::string path = folder_.Write("rules.ini", "[modify]\nUpper=1\nNonUnload=1\n");
  Modify upper;
  upper.upper = true;
  const Result<std::vector<Preset>, PresetError> read = ReadPresetFile(path, "rules");
  ASSERT_TRUE(read);
  EXPECT_THAT(*read, ElementsAre(Preset{"rules", upper}));
}

TEST_F(PresetsTest, FilesThatHoldNoneSayWhy) {
  EXPECT_EQ(ReadPresetFile(folder_.At("missing.ini"), "x").Failure().problem, PresetProblem::kUnreadable);
  EXPECT_EQ(ReadPresetFile(folder_.MakeFolder("folder"), "x").Failure().problem, PresetProblem::kUnreadable);
  EXPECT_EQ(Problem(kTooLarge), PresetProblem::kUnreadable);
  EXPECT_EQ(Problem(""), PresetProblem::kEmpty);
  EXPECT_EQ(Problem(std::string("MZ\0\x90\xFF]]]\0\n[[[=\r\r", 17)), PresetProblem::kEmpty);
  EXPECT_EQ(Problem("[Preset a]\nUpper=1\n[Preset b]\n0ReplaceFlag=99999\n"), PresetProblem::kDamaged);
  EXPECT_EQ(Problem("[Preset a\tb]\nUpper=1\n"), PresetProblem::kDamaged) << "such a name could not be typed";
  EXPECT_EQ(Problem("[Modify]\nUpper=-40000\n"), PresetProblem::kDamaged);
}

TEST_F(PresetsTest, AddingLosesNothing) {
  Save("a", Rules("1"));
  Save("b", Rules("2"));
  const std::vector<Preset> more = {{"A", Rules("other")}, {"b", Rules("2")}, {"c", Rules("3")}};
  EXPECT_THAT(presets_.Taken(more), ElementsAre("A"));
  const Result<std::size_t, PresetError> added = presets_.Add(more, SameName::kNumber);
  ASSERT_TRUE(added);
  EXPECT_EQ(*added, 2u);
  EXPECT_THAT(presets_.Names(), ElementsAre("a", "b", "A (2)", "c"));
  EXPECT_EQ(Loaded("a"), Rules("1"));
  EXPECT_EQ(Loaded("A (2)"), Rules("other"));
  const std::string before = File();
  EXPECT_EQ(*presets_.Add(more, SameName::kNumber), 0u) << "everything is there already";
  EXPECT_EQ(File(), before);
}

TEST_F(PresetsTest, AddingCanReplace) {
  Save("a", Rules("1"));
  EXPECT_EQ(*presets_.Add({{"A", Rules("2")}}, SameName::kReplace), 1u);
  EXPECT_THAT(presets_.Names(), ElementsAre("a"));
  EXPECT_EQ(Loaded("a"), Rules("2"));
}

TEST(PresetNames, AreOneShortLine) {
  for (const std::string name : {"a", "名前", "[a", "a=b;c", "&"}) {
    EXPECT_EQ(PresetNameRefusal(name), std::nullopt) << name;
  }
  EXPECT_EQ(PresetNameRefusal(""), "プリセットの名前を入力してください");
  std::string longest;
  for (int i = 0; i < 60; ++i) longest += "音";
  EXPECT_EQ(PresetNameRefusal(longest), std::nullopt) << "characters are counted";
  EXPECT_EQ(PresetNameRefusal(longest + "x"), "プリセットの名前は 60 文字までにしてください");
  for (const std::string name : {"a]", "a\nb", "a\tb", "a\x7F", "a\u0085", "a\u2028", "a\xFF"}) {
    EXPECT_EQ(PresetNameRefusal(name), "プリセットの名前に「]」や改行、タブは使えません") << name;
  }
}

TEST(PresetNames, LoseTheBlanksAroundThem) {
  EXPECT_EQ(PresetNameFrom("　 a　b 　 "), "a　b");
  EXPECT_EQ(PresetNameFrom("　 　"), "");
}

TEST(PresetNames, AreCutForTheirNumber) {
  EXPECT_EQ(NumberedPresetName("a", 2), "a (2)");
  EXPECT_EQ(NumberedPresetName(std::string(60, 'x'), 12), std::string(55, 'x') + " (12)");
}

}  // namespace
}  // namespace quillon
