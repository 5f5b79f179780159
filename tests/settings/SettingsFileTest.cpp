#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/PathStyle.h"
#include "platform/Program.h"
#include "settings/Settings.h"
#include "settings/SettingsFile.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

std::string Separator() {
  return SystemPathStyle() == PathStyle::kWindows ? "\\" : "/";
}

std::string InUserFolder(const std::string& baseName) {
  return UserConfigurationFolder() + baseName + Separator() + baseName + ".ini";
}

TEST(SettingsFilePath, IsBesideTheProgram) {
  const test::TempFolder folder;
  EXPECT_EQ(SettingsFilePath(folder.Path(), "Quillon"), folder.At("Quillon.ini"));
  EXPECT_FALSE(folder.Exists("Quillon.ini")) << "asking makes nothing";
}

TEST(SettingsFilePath, AddsAMissingSeparator) {
  const test::TempFolder folder;
  folder.MakeFolder("program");
  EXPECT_EQ(SettingsFilePath(folder.At("program"), "Quillon"), folder.At("program/Quillon.ini"));
}

TEST(SettingsFilePath, FollowsTheProgramsName) {
  const test::TempFolder folder;
  EXPECT_EQ(SettingsFilePath(folder.Path(), "another.name"), folder.At("another.name.ini"));
}

TEST(SettingsFilePath, IsInTheUsersFolderWhereTheProgramsFolderIsNotWritable) {
  const test::TempFolder folder;
  folder.Write("file");
  EXPECT_EQ(SettingsFilePath(folder.At("missing"), "Quillon"), InUserFolder("Quillon"));
  EXPECT_EQ(SettingsFilePath(folder.At("file"), "Quillon"), InUserFolder("Quillon"));
}

TEST(ResetSettings, DeletesTheFileUntilTheNextSave) {
  const test::TempFolder folder;
  const std::string path = folder.Write("Quillon.ini", "[Player]\r\nRepeat=1\r\n");
  ResetSettings(path);
  EXPECT_FALSE(folder.Exists("Quillon.ini"));
  const std::optional<OptionValues> values = LoadOptionValues(path);
  ASSERT_TRUE(values);
  EXPECT_EQ(values->player.repeat, 0);
  EXPECT_FALSE(folder.Exists("Quillon.ini")) << "reading makes no file";
}

TEST(ResetSettings, DeletesAFileThatCannotBeRead) {
  const test::TempFolder folder;
  ResetSettings(folder.Write("Quillon.ini", std::string(IniFile::kLargestFile + 1, '\n')));
  EXPECT_FALSE(folder.Exists("Quillon.ini"));
}

TEST(ResetSettings, IgnoresAMissingFile) {
  const test::TempFolder folder;
  ResetSettings(folder.At("none.ini"));
  EXPECT_FALSE(folder.Exists("none.ini"));
}

TEST(ResetSettings, LeavesEverythingElse) {
  const test::TempFolder folder;
  folder.Write("Quillon.ini.bak", "x");
  folder.MakeFolder("Quillon.ini");
  ResetSettings(folder.At("Quillon.ini"));
  EXPECT_TRUE(folder.Exists("Quillon.ini")) << "a folder is not deleted";
  EXPECT_TRUE(folder.Exists("Quillon.ini.bak"));
}

class AnsweringBoxes final : public MessageBoxes {
 public:
  explicit AnsweringBoxes(bool answer) : answer_(answer) {}
  bool Show(const Message& message) override {
    shown.push_back(message);
    return answer_;
  }
  std::vector<Message> shown;

 private:
  bool answer_;
};

TEST(mnuOptionDefaultExit, AsksAndDeletesTheFileOnYesOnly) {
  const test::TempFolder folder;
  const std::string path = folder.Write("Quillon.ini", "[Player]\r\nRepeat=1\r\n");
  AnsweringBoxes no(false);
  EXPECT_FALSE(mnuOptionDefaultExit(path, {}, no));
  EXPECT_TRUE(folder.Exists("Quillon.ini"));
  ASSERT_EQ(no.shown.size(), 1U);
  EXPECT_EQ(no.shown[0], (Message{"設定をデフォルトに戻して終了", "設定をすべてデフォルトに戻して終了します",
                                  MessageIcon::kQuestion, MessageButtons::kYesNo}));
  AnsweringBoxes yes(true);
  EXPECT_TRUE(mnuOptionDefaultExit(path, {}, yes));
  EXPECT_FALSE(folder.Exists("Quillon.ini"));
}

TEST(mnuOptionDefaultExit, DoesNotAskWhenConfirmationsAreOff) {
  const test::TempFolder folder;
  const std::string path = folder.Write("Quillon.ini", "[System]\r\nMsgbox=1\r\n");
  OptionValues options;
  options.system.suppressConfirmations = true;
  AnsweringBoxes boxes(false);
  EXPECT_TRUE(mnuOptionDefaultExit(path, options, boxes));
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_FALSE(folder.Exists("Quillon.ini"));
}

}  // namespace
}  // namespace quillon
