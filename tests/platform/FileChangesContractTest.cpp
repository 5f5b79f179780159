#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/Text.h"
#include "platform/FileWorld.h"
#include "support/Wine.h"

namespace quillon::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Names = std::vector<std::string>;

class FileChangesContract : public testing::TestWithParam<WorldKind> {
 protected:
  FileOutcome Rename(std::string_view from, std::string_view to) {
    return world_->Changes().Rename(world_->At(from), world_->At(to));
  }

  FileOutcome Move(std::string_view from, std::string_view to) {
    const MoveOutcome outcome = world_->Changes().Move(world_->At(from), world_->At(to));
    return outcome ? FileOutcome() : FileOutcome(outcome.Failure());
  }

  FileOutcome Remove(std::string_view name) { return world_->Changes().Remove(world_->At(name)); }

  static int NumberOf(const FileOutcome& outcome) { return outcome ? outcome->number : 0; }

  std::unique_ptr<FileWorld> world_ = MakeWorld(GetParam());
};

INSTANTIATE_TEST_SUITE_P(Worlds, FileChangesContract,
                         testing::Values(WorldKind::kSystem, WorldKind::kMemoryLinux,
                                         WorldKind::kMemoryLinuxIgnoringCase, WorldKind::kMemoryWindows),
                         [](const auto& row) { return NameOf(row.param); });

TEST_P(FileChangesContract, RenameGivesTheFileItsNewNameAndKeepsItsContent) {
  world_->Write("old.mid", "content");
  EXPECT_EQ(Rename("old.mid", "new.mid"), std::nullopt);
  EXPECT_THAT(world_->Names(), ElementsAre("new.mid"));
  EXPECT_EQ(world_->Read("new.mid"), "content");
}

TEST_P(FileChangesContract, RenameNeverReplacesAFile) {
  world_->Write("one.mid", "1");
  world_->Write("two.mid", "2");
  EXPECT_EQ(NumberOf(Rename("one.mid", "two.mid")), file_error::kAlreadyExists);
  EXPECT_EQ(world_->Read("one.mid"), "1");
  EXPECT_EQ(world_->Read("two.mid"), "2");
}

TEST_P(FileChangesContract, RenameNeverReplacesAFolder) {
  world_->Write("one.mid", "1");
  world_->MakeFolder("folder");
  EXPECT_EQ(NumberOf(Rename("one.mid", "folder")), file_error::kAlreadyExists);
  EXPECT_THAT(world_->Names(), ElementsAre("folder", "one.mid"));
}

TEST_P(FileChangesContract, RenameNeverReplacesADanglingLink) {
  world_->Write("one.mid", "1");
  if (!world_->MakeLink("link", "nowhere", false)) GTEST_SKIP() << "no links can be made here";
  EXPECT_EQ(NumberOf(Rename("one.mid", "link")), file_error::kAlreadyExists);
  EXPECT_THAT(world_->Names(), ElementsAre("link", "one.mid"));
}

TEST_P(FileChangesContract, FailuresCarryADescription) {
  const FileOutcome outcome = Rename("absent.mid", "new.mid");
  ASSERT_TRUE(outcome);
  EXPECT_NE(outcome->description, "");
}

TEST_P(FileChangesContract, RenameToTheCurrentNameSucceedsAndChangesNothing) {
  world_->Write("song.mid", "content");
  EXPECT_EQ(Rename("song.mid", "song.mid"), std::nullopt);
  EXPECT_THAT(world_->Names(), ElementsAre("song.mid"));
  EXPECT_EQ(world_->Read("song.mid"), "content");
}

TEST_P(FileChangesContract, RenameToTheCurrentNameSucceedsThoughTheFolderIsSpelledDifferently) {
  world_->Write("folder/song.mid", "content");
  EXPECT_EQ(Rename("folder/song.mid", "./folder/song.mid"), std::nullopt);
  EXPECT_THAT(world_->Names("folder"), ElementsAre("song.mid"));
}

TEST_P(FileChangesContract, RenameOfAnAbsentFileToItsOwnNameIsNotFound) {
  EXPECT_EQ(NumberOf(Rename("absent.mid", "absent.mid")), file_error::kNotFound);
}

TEST_P(FileChangesContract, RenameOfAnAbsentFileIsNotFound) {
  EXPECT_EQ(NumberOf(Rename("absent.mid", "new.mid")), file_error::kNotFound);
  EXPECT_EQ(NumberOf(Rename("absent/song.mid", "absent/new.mid")), file_error::kNotFound);
  EXPECT_THAT(world_->Names(), IsEmpty());
}

TEST_P(FileChangesContract, ChangingOnlyTheLetterCaseOfAnAbsentFileIsNotFound) {
  EXPECT_EQ(NumberOf(Rename("absent.mid", "ABSENT.mid")), file_error::kNotFound);
}

TEST_P(FileChangesContract, RenameIntoAnAbsentFolderIsNotFound) {
  world_->Write("song.mid", "content");
  EXPECT_EQ(NumberOf(Rename("song.mid", "absent/song.mid")), file_error::kNotFound);
  EXPECT_EQ(world_->Read("song.mid"), "content");
}

TEST_P(FileChangesContract, RenameCanChangeOnlyLetterCase) {
  struct Row {
    const char* name;
    const char* from;
    const char* to;
  };
  const std::vector<Row> rows = {{"to capitals", "song.mid", "SONG.mid"}, {"to small letters", "SONG.MID", "song.mid"},
                                 {"one letter", "song.mid", "Song.mid"},  {"full width", "ａｂｃ.mid", "ＡＢＣ.mid"},
                                 {"Greek", "αβγ.mid", "ΑΒΓ.mid"},         {"Cyrillic", "Привет.mid", "ПРИВЕТ.mid"}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    world_ = MakeWorld(GetParam());
    world_->Write(row.from, "content");
    EXPECT_EQ(Rename(row.from, row.to), std::nullopt);
    EXPECT_EQ(world_->Names(), Names{row.to});
    EXPECT_EQ(world_->Read(row.to), "content");
  }
}

TEST_P(FileChangesContract, RenameToTheRealSpellingFromAnotherOneChangesNothing) {
  if (!world_->IgnoresCase()) GTEST_SKIP() << "letter case is kept apart here";
  world_->Write("Song.mid", "content");
  EXPECT_EQ(Rename("SONG.mid", "Song.mid"), std::nullopt);
  EXPECT_THAT(world_->Names(), ElementsAre("Song.mid"));
}

TEST_P(FileChangesContract, RenameFromAnotherSpellingToAThirdOneIsCarriedOut) {
  if (!world_->IgnoresCase()) GTEST_SKIP() << "letter case is kept apart here";
  world_->Write("Song.mid", "content");
  EXPECT_EQ(Rename("SONG.mid", "song.mid"), std::nullopt);
  EXPECT_THAT(world_->Names(), ElementsAre("song.mid"));
}

TEST_P(FileChangesContract, RenameNeverReplacesANeighbourOfTheSameLetters) {
  if (world_->IgnoresCase()) GTEST_SKIP() << "letter case is ignored here";
  world_->Write("song.mid", "small");
  world_->Write("SONG.mid", "large");
  EXPECT_EQ(NumberOf(Rename("song.mid", "SONG.mid")), file_error::kAlreadyExists);
  EXPECT_EQ(world_->Read("song.mid"), "small");
  EXPECT_EQ(world_->Read("SONG.mid"), "large");
}

TEST_P(FileChangesContract, TwoHardLinksThatDifferInLetterCaseAreTwoFiles) {
  if (world_->IgnoresCase()) GTEST_SKIP() << "letter case is ignored here";
  world_->Write("song.mid", "content");
  ASSERT_TRUE(world_->MakeHardLink("SONG.mid", "song.mid"));
  EXPECT_EQ(NumberOf(Rename("song.mid", "SONG.mid")), file_error::kAlreadyExists);
  EXPECT_THAT(world_->Names(), ElementsAre("SONG.mid", "song.mid"));
}

TEST_P(FileChangesContract, TwoHardLinksAreTwoFiles) {
  const bool wine = GetParam() == WorldKind::kSystem && RunsUnderWine();
  if (wine) GTEST_SKIP() << "Wine reports success for a rename between two hard links and does nothing";
  world_->Write("one.mid", "content");
  if (!world_->MakeHardLink("two.mid", "one.mid")) GTEST_SKIP() << "no hard links can be made here";
  EXPECT_EQ(NumberOf(Rename("one.mid", "two.mid")), file_error::kAlreadyExists);
  EXPECT_THAT(world_->Names(), ElementsAre("one.mid", "two.mid"));
}

TEST_P(FileChangesContract, InvalidNamesAreNotFound) {
  struct Row {
    const char* name;
    std::string to;
  };
  const std::vector<Row> rows = {{"no name", ""},
                                 {"this folder", "."},
                                 {"the folder above", ".."},
                                 {"a zero character", std::string("a\0b.mid", 7)},
                                 {"256 characters", std::string(256, 'x')},
                                 {"300 Japanese characters", [] {
                                    std::string name;
                                    for (int i = 0; i < 300; ++i) name += "曲";
                                    return name;
                                  }()}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    world_->Write("song.mid", "content");
    EXPECT_EQ(NumberOf(Rename("song.mid", row.to)), file_error::kNotFound);
    EXPECT_EQ(NumberOf(Move("song.mid", row.to)), file_error::kNotFound);
    EXPECT_THAT(world_->Names(), ElementsAre("song.mid"));
  }
}

TEST_P(FileChangesContract, InvalidSourcesAreNotFound) {
  const std::vector<std::string> sources = {"", ".", "..", std::string("a\0b", 3)};
  for (const std::string& from : sources) {
    SCOPED_TRACE(from);
    EXPECT_EQ(NumberOf(Rename(from, "new.mid")), file_error::kNotFound);
    EXPECT_EQ(NumberOf(Rename(from, from)), file_error::kNotFound);
  }
}

TEST_P(FileChangesContract, WindowsAllowsNoneOfItsSpecialCharactersInAName) {
  if (world_->Style() != PathStyle::kWindows) GTEST_SKIP() << "a rule of Windows";
  for (const char* to : {"a?b", "a*b", "a<b", "a>b", "a|b", "a\"b", "a:b", "a\tb"}) {
    SCOPED_TRACE(to);
    world_->Write("song.mid", "content");
    EXPECT_EQ(NumberOf(Rename("song.mid", to)), file_error::kNotFound);
    EXPECT_THAT(world_->Names(), ElementsAre("song.mid"));
  }
}

TEST_P(FileChangesContract, WindowsDropsDotsAndBlanksFromTheEndOfANewName) {
  if (world_->Style() != PathStyle::kWindows) GTEST_SKIP() << "a rule of Windows";
  for (const char* to : {"song.", "song ", "song. . "}) {
    SCOPED_TRACE(to);
    world_ = MakeWorld(GetParam());
    world_->Write("old", "content");
    EXPECT_EQ(Rename("old", to), std::nullopt);
    EXPECT_THAT(world_->Names(), ElementsAre("song"));
    EXPECT_EQ(Rename("song", to), std::nullopt) << "its own name";
  }
}

TEST_P(FileChangesContract, WindowsAllowsNoNameOfOnlyDotsAndBlanks) {
  if (world_->Style() != PathStyle::kWindows) GTEST_SKIP() << "a rule of Windows";
  world_->Write("song.mid", "content");
  EXPECT_EQ(NumberOf(Rename("song.mid", "...")), file_error::kNotFound);
  EXPECT_EQ(NumberOf(Rename("song.mid", " ")), file_error::kNotFound);
  EXPECT_THAT(world_->Names(), ElementsAre("song.mid"));
}

TEST_P(FileChangesContract, LinuxKeepsDotsAndBlanksAtTheEndOfAName) {
  if (world_->Style() != PathStyle::kLinux) GTEST_SKIP() << "a rule of Linux";
  world_->Write("old", "content");
  EXPECT_EQ(Rename("old", "song. ."), std::nullopt);
  EXPECT_THAT(world_->Names(), ElementsAre("song. ."));
}

TEST_P(FileChangesContract, RenameAcceptsEveryOrdinaryName) {
  std::string longJapanese;
  for (int i = 0; i < 85; ++i) longJapanese += "曲";
  const std::vector<std::string> names = {
      "a",         " leading blank.mid", "two  blanks.mid",     "-rf",          ".hidden",         "100%.mid",
      "a.b.c.mid", "曲名 その１.mid",    "表示ソ能予十.mid",    "ｶﾀｶﾅﾊﾝｶｸ.mid", "～－∥￠￡￢.mid", "①Ⅳ㈱髙﨑.mid",
      "😀🎵.mid",    "é and é.mid",        std::string(255, 'x'), longJapanese};
  std::string current = "start";
  world_->Write(current, "content");
  for (const std::string& name : names) {
    SCOPED_TRACE(name);
    EXPECT_EQ(Rename(current, name), std::nullopt);
    EXPECT_EQ(world_->Names(), Names{name});
    current = name;
  }
  EXPECT_EQ(world_->Read(current), "content");
}

TEST_P(FileChangesContract, MovePutsTheFileIntoTheOtherFolder) {
  world_->Write("from/song.mid", "content");
  world_->MakeFolder("to");
  EXPECT_EQ(Move("from/song.mid", "to/song.mid"), std::nullopt);
  EXPECT_THAT(world_->Names("from"), IsEmpty());
  EXPECT_EQ(world_->Read("to/song.mid"), "content");
}

TEST_P(FileChangesContract, MoveNeverReplacesAFile) {
  world_->Write("from/song.mid", "mine");
  world_->Write("to/song.mid", "yours");
  EXPECT_EQ(NumberOf(Move("from/song.mid", "to/song.mid")), file_error::kAlreadyExists);
  EXPECT_EQ(world_->Read("from/song.mid"), "mine");
  EXPECT_EQ(world_->Read("to/song.mid"), "yours");
}

TEST_P(FileChangesContract, MoveNeverReplacesAFolderOfThatName) {
  world_->Write("from/song.mid", "mine");
  world_->MakeFolder("to/song.mid");
  EXPECT_EQ(NumberOf(Move("from/song.mid", "to/song.mid")), file_error::kAlreadyExists);
  EXPECT_EQ(world_->Read("from/song.mid"), "mine");
}

TEST_P(FileChangesContract, MoveIntoItsOwnFolderSucceedsAndChangesNothing) {
  world_->Write("from/song.mid", "content");
  EXPECT_EQ(Move("from/song.mid", "from/song.mid"), std::nullopt);
  EXPECT_EQ(world_->Read("from/song.mid"), "content");
}

TEST_P(FileChangesContract, MoveIntoItsOwnFolderThroughALinkSucceedsAndChangesNothing) {
  world_->Write("from/song.mid", "content");
  if (!world_->MakeLink("link", "from", true)) GTEST_SKIP() << "no links can be made here";
  EXPECT_EQ(Move("from/song.mid", "link/song.mid"), std::nullopt);
  EXPECT_THAT(world_->Names("from"), ElementsAre("song.mid"));
}

TEST_P(FileChangesContract, MoveOntoAHardLinkOfTheFileIsRefused) {
  const bool wine = GetParam() == WorldKind::kSystem && RunsUnderWine();
  if (wine) GTEST_SKIP() << "Wine reports success for a rename between two hard links and does nothing";
  world_->Write("from/song.mid", "content");
  world_->MakeFolder("to");
  if (!world_->MakeHardLink("to/song.mid", "from/song.mid")) GTEST_SKIP() << "no hard links can be made here";
  EXPECT_EQ(NumberOf(Move("from/song.mid", "to/song.mid")), file_error::kAlreadyExists);
  EXPECT_THAT(world_->Names("from"), ElementsAre("song.mid"));
}

TEST_P(FileChangesContract, MoveOfAnAbsentFileOrIntoAnAbsentFolderIsNotFound) {
  world_->Write("song.mid", "content");
  world_->MakeFolder("to");
  EXPECT_EQ(NumberOf(Move("absent.mid", "to/absent.mid")), file_error::kNotFound);
  EXPECT_EQ(NumberOf(Move("song.mid", "absent/song.mid")), file_error::kNotFound);
  EXPECT_EQ(world_->Read("song.mid"), "content");
}

TEST_P(FileChangesContract, MoveOfALinkMovesTheLink) {
  world_->Write("song.mid", "content");
  world_->MakeFolder("to");
  if (!world_->MakeLink("link.mid", "song.mid", false)) GTEST_SKIP() << "no links can be made here";
  EXPECT_EQ(Move("link.mid", "to/link.mid"), std::nullopt);
  EXPECT_THAT(world_->Names(), ElementsAre("song.mid", "to"));
  EXPECT_EQ(world_->Read("to/link.mid"), "content");
}

TEST_P(FileChangesContract, RemoveDeletesTheFile) {
  world_->Write("song.mid", "content");
  world_->Write("other.mid", "content");
  EXPECT_EQ(Remove("song.mid"), std::nullopt);
  EXPECT_THAT(world_->Names(), ElementsAre("other.mid"));
}

TEST_P(FileChangesContract, RemoveOfAnAbsentFileIsNotFound) {
  EXPECT_EQ(NumberOf(Remove("absent.mid")), file_error::kNotFound);
  EXPECT_EQ(NumberOf(Remove(std::string_view("a\0b", 3))), file_error::kNotFound);
}

TEST_P(FileChangesContract, RemoveNeverDeletesAFolder) {
  world_->MakeFolder("empty");
  EXPECT_EQ(NumberOf(Remove("empty")), file_error::kAccess);
  EXPECT_THAT(world_->Names(), ElementsAre("empty"));
}

TEST_P(FileChangesContract, RemoveOfALinkLeavesTheFile) {
  world_->Write("song.mid", "content");
  if (!world_->MakeLink("link.mid", "song.mid", false)) GTEST_SKIP() << "no links can be made here";
  EXPECT_EQ(Remove("link.mid"), std::nullopt);
  EXPECT_THAT(world_->Names(), ElementsAre("song.mid"));
}

}  // namespace
}  // namespace quillon::test
