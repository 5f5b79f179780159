#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "dialogs/ListedFolders.h"
#include "platform/Shell.h"
#include "support/Recorders.h"
#include "support/Rows.h"

namespace quillon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

void Add(FileList& list, std::initializer_list<const char*> locations, PathStyle style) {
  for (const char* location : locations) list.Add(test::RowFor(location, style));
}

TEST(ListedFolders, AnEmptyListHasNone) {
  EXPECT_THAT(ListedFolders(FileList()), IsEmpty());
}

TEST(ListedFolders, FiftyFilesOfTwoFoldersGiveTwoInOrderOfAppearance) {
  FileList list(PathStyle::kWindows);
  for (int i = 0; i < 50; ++i) {
    const std::string folder = i % 3 == 0 ? "D:\\zebra\\" : "C:\\apple\\";
    list.Add(test::RowFor(folder + std::to_string(i) + ".mp3", PathStyle::kWindows));
  }
  EXPECT_THAT(ListedFolders(list), ElementsAre("D:\\zebra\\", "C:\\apple\\"));
}

TEST(ListedFolders, FollowTheOrderOfTheRows) {
  FileList list(PathStyle::kLinux);
  Add(list, {"/b/1.mid", "/a/2.mid", "/b/3.mid"}, PathStyle::kLinux);
  EXPECT_THAT(ListedFolders(list), ElementsAre("/b/", "/a/"));
  list.RemoveWhere([](int index, const FileRow&) { return index == 1; });
  EXPECT_THAT(ListedFolders(list), ElementsAre("/a/", "/b/"));
}

TEST(ListedFolders, AFolderAndItsSubFolderAreListedSeparately) {
  FileList list(PathStyle::kWindows);
  Add(list, {"C:\\a.mid", "C:\\音楽\\b.mid", "C:\\音楽\\表\\c.mid", "\\\\server\\share\\d.mid"}, PathStyle::kWindows);
  EXPECT_THAT(ListedFolders(list), ElementsAre("C:\\", "C:\\音楽\\", "C:\\音楽\\表\\", "\\\\server\\share\\"));
}

TEST(ListedFolders, ABackslashIsPartOfANameOnLinux) {
  FileList list(PathStyle::kLinux);
  Add(list, {"/a.mid", "/music/b\\c.mid", "/music/d.mid"}, PathStyle::kLinux);
  EXPECT_THAT(ListedFolders(list), ElementsAre("/", "/music/"));
}

TEST(ListedFolders, DifferInLetterCase) {
  FileList list(PathStyle::kWindows);
  Add(list, {"C:\\Music\\a.mid", "C:\\music\\b.mid"}, PathStyle::kWindows);
  EXPECT_THAT(ListedFolders(list), ElementsAre("C:\\Music\\", "C:\\music\\"));
}

TEST(ListedFolders, KeepBytesThatAreNotUtf8) {
  FileList list(PathStyle::kLinux);
  Add(list, {"/\xFF/a.mid", "/\xFE/b.mid"}, PathStyle::kLinux);
  EXPECT_THAT(ListedFolders(list), ElementsAre("/\xFF/", "/\xFE/"));
}

TEST(TellOfOpening, SaysWhichFolderTheShellCouldNotOpen) {
  test::EventLog log;
  test::BoxRecorder boxes(log);
  TellOfOpening("C:\\a\\", kShellOpened, boxes);
  EXPECT_TRUE(log.Events().empty());
  for (const int answer : {kShellFileNotFound, kShellNoProgram, kShellMostFailures}) {
    log.Clear();
    TellOfOpening("C:\\a\\", answer, boxes);
    EXPECT_EQ(log.Events(), std::vector<std::string>(
                                {"box [フォルダ一覧] フォルダを開けませんでした\\r\\nC:\\a\\ (exclamation, ok)"}));
  }
}

}  // namespace
}  // namespace quillon
