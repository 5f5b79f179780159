#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/ContentOf.h"
#include "platform/FileSystem.h"
#include "platform/FileWorld.h"
#include "platform/WholeFile.h"
#include "platform/windows/Handle.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/Wide.h"
#include "support/TempFolder.h"
#include "support/Wine.h"

namespace quillon::test {
namespace {

using testing::ElementsAre;

std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  const auto entries = MakeFileReads()->ReadFolder(folder);
  EXPECT_TRUE(entries.Ok());
  if (!entries) return names;
  for (const FolderEntry& entry : *entries) names.push_back(entry.name);
  return names;
}

int NumberOf(const FileOutcome& outcome) {
  return outcome ? outcome->number : 0;
}

// Creates a file under a name that ordinary calls would change; false when the volume does not support the name.
bool MakeLiterally(const std::string& path) {
  return Handle(::CreateFileW(SystemPath(path)->c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr)).Open();
}

TEST(FileNames, UnpairedSurrogatesAreKept) {
  const TempFolder folder;
  const std::string name = "a\xED\xA0\xBDz.mid";
  const bool made = MakeLiterally(folder.Path() + name);
  if (!made || NamesIn(folder.Path()) != std::vector{name}) GTEST_SKIP() << "the volume does not hold such a name";
  EXPECT_EQ(MakeFileChanges()->Rename(folder.Path() + name, folder.At("b.mid")), std::nullopt);
  EXPECT_THAT(NamesIn(folder.Path()), ElementsAre("b.mid"));
}

TEST(FileNames, ExistingNamesWithDotsAndBlanksAtTheEndAreFound) {
  const TempFolder folder;
  ASSERT_TRUE(MakeLiterally(folder.Path() + "song. "));
  EXPECT_THAT(NamesIn(folder.Path()), ElementsAre("song. "));
  EXPECT_TRUE(OpenSystemFile(folder.Path() + "song. "));
  EXPECT_EQ(MakeFileChanges()->Rename(folder.Path() + "song. ", folder.Path() + "song. "), std::nullopt);
  EXPECT_EQ(MakeFileChanges()->Rename(folder.Path() + "song. ", folder.Path() + "song.mid"), std::nullopt);
  EXPECT_THAT(NamesIn(folder.Path()), ElementsAre("song.mid"));
}

TEST(FileNames, AFileIsFoundThoughItsNameIsGivenWithADotAtTheEnd) {
  const TempFolder folder;
  folder.Write("song", "content");
  EXPECT_EQ(ContentOf(folder.Path() + "song."), "content");
  const auto status = MakeFileReads()->Status(folder.Path() + "song. .");
  ASSERT_TRUE(status.Ok());
  EXPECT_EQ(status->kind, FileStatus::Kind::kFile);
  EXPECT_EQ(MakeFileChanges()->Rename(folder.Path() + "song.", folder.Path() + "new"), std::nullopt);
  EXPECT_THAT(NamesIn(folder.Path()), ElementsAre("new"));
}

TEST(FileNames, DevicesAndStreamsAreNoNames) {
  const TempFolder folder;
  const std::string old = folder.Write("song.mid", "content");
  for (const char* name : {"NUL", "aux.mid", "COM1", "song.mid:stream", "b:stream"}) {
    EXPECT_EQ(NumberOf(MakeFileChanges()->Rename(old, folder.Path() + name)), file_error::kNotFound) << name;
  }
  EXPECT_THAT(NamesIn(folder.Path()), ElementsAre("song.mid"));
}

TEST(FileNames, DevicesAreNotOpened) {
  EXPECT_FALSE(OpenSystemFile("NUL"));
  EXPECT_FALSE(OpenSystemFile(R"(\\.\NUL)"));
}

TEST(FileNames, PathsMayBeLongerThan260Characters) {
  const TempFolder folder;
  std::string deep = folder.Path();
  for (int i = 0; i < 6; ++i) deep += std::string(80, 'a') + '\\';
  ASSERT_EQ(ReplaceWholeFile(deep + "song.mid", "content"), std::nullopt);
  EXPECT_EQ(MakeFileChanges()->Rename(deep + "song.mid", deep + "曲.mid"), std::nullopt);
  EXPECT_THAT(NamesIn(deep), ElementsAre("曲.mid"));
  EXPECT_EQ(ContentOf(deep + "曲.mid"), "content");
  EXPECT_TRUE(MakeFileChanges()->Move(deep + "曲.mid", folder.At("曲.mid")));
}

TEST(FileNames, RealPathsMayBeLongerThan260Characters) {
  if (RunsUnderWine()) GTEST_SKIP() << "Wine's GetFinalPathNameByHandle knows no longer ones";
  const TempFolder folder;
  const std::string deep = folder.Path() + std::string(200, 'a') + '\\' + std::string(200, 'b');
  ASSERT_EQ(ReplaceWholeFile(deep + "\\song.mid", "content"), std::nullopt);
  EXPECT_NE(MakeFileReads()->RealPath(deep), "");
}

TEST(FileNames, SlashesAreSeparatorsToo) {
  const TempFolder folder;
  folder.Write("inner/song.mid", "content");
  EXPECT_EQ(ContentOf(folder.Path() + "inner/song.mid"), "content");
}

TEST(FileNames, InvalidBytesAreNoFileName) {
  const TempFolder folder;
  const std::string old = folder.Write("song.mid", "content");
  EXPECT_EQ(NumberOf(MakeFileChanges()->Rename(old, folder.Path() + "\xFF.mid")), file_error::kNotFound);
  EXPECT_FALSE(OpenSystemFile(folder.Path() + "\xFF.mid"));
}

TEST(FileAttributes, HiddenAndSystemFilesAreReported) {
  const TempFolder folder;
  struct Row {
    const char* name;
    DWORD attributes;
    bool expected;
  };
  for (const Row& row :
       {Row{"plain", FILE_ATTRIBUTE_NORMAL, false}, Row{"hidden", FILE_ATTRIBUTE_HIDDEN, true},
        Row{"system", FILE_ATTRIBUTE_SYSTEM, true}, Row{"read-only", FILE_ATTRIBUTE_READONLY, false}}) {
    SCOPED_TRACE(row.name);
    const std::string path = folder.Write(row.name, "content");
    ASSERT_TRUE(::SetFileAttributesW(ToWide(path)->c_str(), row.attributes));
    const auto file = OpenSystemFile(path);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->IsHiddenOrSystem(), row.expected);
    ::SetFileAttributesW(ToWide(path)->c_str(), FILE_ATTRIBUTE_NORMAL);
  }
}

TEST(FileAttributes, AReadOnlyFileIsRenamedButNeitherReplacedNorDeleted) {
  const TempFolder folder;
  const std::string path = folder.Write("old", "content");
  ASSERT_TRUE(::SetFileAttributesW(ToWide(path)->c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_EQ(NumberOf(ReplaceWholeFile(path, "new")), file_error::kAccess);
  EXPECT_EQ(NumberOf(MakeFileChanges()->Remove(path)), file_error::kAccess);
  EXPECT_EQ(MakeFileChanges()->Rename(path, folder.At("new")), std::nullopt);
  EXPECT_EQ(folder.Read("new"), "content");
  ::SetFileAttributesW(ToWide(folder.At("new"))->c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST(OpenFiles, AFileThatAnotherProgramHasOpenExclusivelyIsAnAccessError) {
  const TempFolder folder;
  const std::string path = folder.Write("song.mid", "content");
  {
    const Handle other(::CreateFileW(ToWide(path)->c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(other.Open());
    EXPECT_EQ(NumberOf(MakeFileChanges()->Rename(path, folder.At("new.mid"))), file_error::kAccess);
    EXPECT_EQ(NumberOf(MakeFileChanges()->Remove(path)), file_error::kAccess);
    EXPECT_FALSE(OpenSystemFile(path));
  }
  EXPECT_EQ(MakeFileChanges()->Rename(path, folder.At("new.mid")), std::nullopt);
}

TEST(LongPath, ExpandsShortNames) {
  const TempFolder folder;
  const std::string path = folder.Write("a long name of a song.music", "content");
  std::wstring shorter(1000, L'\0');
  shorter.resize(::GetShortPathNameW(ToWide(path).value_or(L"").c_str(), shorter.data(), 1000));
  ASSERT_NE(FromWide(shorter), "");
  if (FromWide(shorter).ends_with("song.music")) GTEST_SKIP() << "this volume has no short names";
  EXPECT_TRUE(LongPath(FromWide(shorter)).ends_with("\\a long name of a song.music")) << LongPath(FromWide(shorter));
}

TEST(LongPath, RemovesTheLiteralPrefix) {
  const TempFolder folder;
  const std::string path = folder.Write("song.mid", "content");
  EXPECT_EQ(LongPath("\\\\?\\" + path), LongPath(path));
  EXPECT_EQ(LongPath("\\\\?\\C:\\absent\\song.mid"), "C:\\absent\\song.mid");
  EXPECT_EQ(LongPath("\\\\?\\UNC\\server\\share\\song.mid"), "\\\\server\\share\\song.mid");
}

}  // namespace
}  // namespace quillon::test
