#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>

#include "paths/basFileControl.h"
#include "plan/LoggedChanges.h"
#include "plan/MemoryLog.h"
#include "plan/RenameLog.h"
#include "plan/Undo.h"
#include "rename/PlannedChanges.h"
#include "support/MemoryFileSystem.h"
#include "support/TempFolder.h"

namespace quillon {

void PrintTo(const UndoStep& step, std::ostream* out) {
  *out << step.from << " -> " << step.to;
  if (step.obstacle) *out << " obstacle " << static_cast<int>(*step.obstacle) << " error " << step.error.number;
}

}  // namespace quillon

namespace quillon::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A disk on which every folder is a volume of its own, so that a move between folders copies.
class OtherVolumes final : public FileChanges {
 public:
  OtherVolumes(FileChanges& disk, MemoryFileSystem& files) : disk_(disk), files_(files) {}

  FileOutcome Rename(const std::string& from, const std::string& to) override { return disk_.Rename(from, to); }
  using FileChanges::Move;
  MoveOutcome Move(const std::string& from, const std::string& to, Progress*) override {
    if (FolderPart(from) == FolderPart(to)) return disk_.Move(from, to);
    if (!files_.Exists(from)) return FileError{file_error::kNotFound, {}};
    if (files_.Exists(to)) return FileError{file_error::kAlreadyExists, {}};
    files_.AddFile(to, files_.BytesOf(from));
    static_cast<void>(disk_.Remove(from));
    return NotKept();
  }
  void RemoveLeftovers(const std::string&) override {}
  FileOutcome Remove(const std::string& path) override { return disk_.Remove(path); }
  int Recycle(const std::string&, std::uintptr_t) override { return kRecycleNotDone; }

 private:
  FileChanges& disk_;
  MemoryFileSystem& files_;
};

class UndoTest : public testing::Test {
 protected:
  UndoTest() {
    for (const char* const name : {"a", "b", "c"}) disk_.AddFile(At(name), std::string("content of ") + name);
    disk_.AddFolder(At("other"));
  }

  // Names with "/" lie in subfolders.
  static std::string At(std::string name) {
    if (SystemPathStyle() == PathStyle::kLinux) return "/music/" + name;
    std::replace(name.begin(), name.end(), '/', '\\');
    return "C:\\music\\" + name;
  }

  void Rename(const std::string& from, const std::string& to) {
    EXPECT_EQ(logged_.Rename(At(from), At(to)), std::nullopt);
  }

  std::vector<UndoStep> UndoBy(FileChanges& changes, UndoMode mode) {
    const Result<RenameLog, std::size_t> log = ReadRenameLog(log_.text);
    EXPECT_TRUE(log.Ok());
    std::vector<UndoStep> steps;
    Unwatched progress;
    Undo(log->renames, disk_, changes, mode, progress, [&](const UndoStep& step) {
      steps.push_back(step);
      return true;
    });
    return steps;
  }

  std::vector<UndoStep> UndoAll() { return UndoBy(disk_, UndoMode::kApply); }

  std::vector<UndoStep> ShowAll() {
    PlannedChanges plan(disk_);
    return UndoBy(plan, UndoMode::kShow);
  }

  void ExpectAllBack() {
    for (const char* const name : {"a", "b", "c"}) {
      EXPECT_EQ(disk_.BytesOf(At(name)), std::string("content of ") + name);
    }
    EXPECT_THAT(disk_.NamesIn(At("")), ElementsAre("a", "b", "c", "other"));
  }

  static UndoStep Back(const std::string& from, const std::string& to) { return {At(from), At(to)}; }
  static UndoStep Kept(const std::string& from, const std::string& to, UndoObstacle obstacle) {
    return {At(from), At(to), obstacle};
  }

  MemoryFileSystem disk_ = MemoryFileSystem({SystemPathStyle(), false});
  MemoryLog log_;
  LoggedChanges logged_ = LoggedChanges(disk_, disk_, log_);
};

TEST_F(UndoTest, AFailedMoveIsLoggedAsFailed) {
  disk_.Fail(FileCall::kMove, At("a"), {file_error::kAccess, "denied"});
  EXPECT_FALSE(logged_.Move(At("a"), At("other/a")));
  const Result<RenameLog, std::size_t> log = ReadRenameLog(log_.text);
  ASSERT_TRUE(log);
  ASSERT_EQ(log->renames.size(), 1U);
  EXPECT_TRUE(log->renames[0].failed);
}

TEST_F(UndoTest, DeletionsAreNotLogged) {
  disk_.AddFile(At("deleted"));
  disk_.AddFile(At("recycled"));
  EXPECT_EQ(logged_.Remove(At("deleted")), std::nullopt);
  EXPECT_EQ(logged_.Recycle(At("recycled"), 0), 0);
  EXPECT_EQ(logged_.RecycleAsks(), disk_.RecycleAsks());
  EXPECT_FALSE(disk_.Exists(At("deleted")));
  EXPECT_THAT(disk_.Recycled(), ElementsAre(At("recycled")));
  EXPECT_EQ(log_.text, "");
}

TEST_F(UndoTest, RenamesAreTakenBackNewestFirst) {
  Rename("a", "x");
  Rename("b", "a");
  Rename("x", "b");
  const std::vector<UndoStep> expected = {Back("b", "x"), Back("a", "b"), Back("x", "a")};
  EXPECT_EQ(ShowAll(), expected);
  EXPECT_EQ(disk_.BytesOf(At("a")), "content of b") << "showing changes nothing";
  EXPECT_EQ(UndoAll(), expected);
  ExpectAllBack();
}

TEST_F(UndoTest, FilesThatAreBackAreLeftAloneSilently) {
  Rename("a", "x");
  Rename("x", "y");
  UndoAll();
  EXPECT_THAT(UndoAll(), IsEmpty());
  EXPECT_THAT(ShowAll(), IsEmpty());
  ExpectAllBack();
}

TEST_F(UndoTest, AnInterruptedUndoIsContinued) {
  Rename("a", "x");
  Rename("x", "y");
  Rename("b", "x");
  EXPECT_EQ(disk_.Rename(At("x"), At("b")), std::nullopt);
  EXPECT_THAT(UndoAll(), ElementsAre(Back("y", "x"), Back("x", "a")));
  ExpectAllBack();
}

TEST_F(UndoTest, TheLineIsThereBeforeTheRename) {
  disk_.Fail(FileCall::kRename, At("a"), {file_error::kAccess, "denied"});
  EXPECT_TRUE(logged_.Rename(At("a"), At("x")));
  EXPECT_EQ(log_.text, RenameLine(At("a"), At("x"), *disk_.Identity(At("a"))) + FailedLine(At("a"), At("x"), 75));
  EXPECT_THAT(UndoAll(), IsEmpty());
}

TEST_F(UndoTest, ARenameThatWasNeverBegunNeedsNothing) {
  log_.text = RenameLine(At("a"), At("x"), *disk_.Identity(At("a")));
  EXPECT_THAT(UndoAll(), IsEmpty());
}

TEST_F(UndoTest, AFailedRenameIsNotMissedLater) {
  disk_.Fail(FileCall::kRename, At("a"), {file_error::kAccess, "denied"});
  EXPECT_TRUE(logged_.Rename(At("a"), At("x")));
  EXPECT_EQ(disk_.Remove(At("a")), std::nullopt);
  EXPECT_THAT(UndoAll(), IsEmpty());
}

TEST_F(UndoTest, WhatIsGoneOrAnotherFileIsToldAndTheRestGoesBack) {
  Rename("a", "x");
  Rename("b", "y");
  Rename("c", "z");
  EXPECT_EQ(disk_.Remove(At("x")), std::nullopt);
  EXPECT_EQ(disk_.Remove(At("y")), std::nullopt);
  disk_.AddFile(At("y"), "content of b");
  const std::vector<UndoStep> expected = {Back("z", "c"), Kept("y", "b", UndoObstacle::kAnotherFile),
                                          Kept("x", "a", UndoObstacle::kGone)};
  EXPECT_EQ(ShowAll(), expected);
  EXPECT_EQ(UndoAll(), expected);
  EXPECT_EQ(disk_.BytesOf(At("c")), "content of c");
  EXPECT_TRUE(disk_.Exists(At("y")));
}

TEST_F(UndoTest, ATakenOldNameIsNeverReplaced) {
  Rename("a", "x");
  disk_.AddFile(At("a"), "new");
  for (const std::vector<UndoStep>& steps : {ShowAll(), UndoAll()}) {
    ASSERT_EQ(steps.size(), 1U);
    EXPECT_EQ(steps[0].obstacle, UndoObstacle::kRefused);
    EXPECT_EQ(steps[0].error.number, file_error::kAlreadyExists);
  }
  EXPECT_EQ(disk_.BytesOf(At("a")), "new");
  EXPECT_EQ(disk_.BytesOf(At("x")), "content of a");
}

TEST_F(UndoTest, AFileThatCannotGoBackIsToldOnce) {
  Rename("a", "x");
  Rename("x", "y");
  EXPECT_EQ(disk_.Remove(At("y")), std::nullopt);
  EXPECT_THAT(UndoAll(), ElementsAre(Kept("y", "x", UndoObstacle::kGone)));
}

TEST_F(UndoTest, AMoveWithinAVolumeIsTakenBack) {
  ASSERT_TRUE(logged_.Move(At("a"), At("other/a")));
  EXPECT_EQ(log_.text.find("copied"), std::string::npos);
  EXPECT_THAT(UndoAll(), ElementsAre(Back("other/a", "a")));
  ExpectAllBack();
}

TEST_F(UndoTest, AMoveToAnotherVolumeIsTakenBackAlsoWhenTheFileWasRenamedBeforeAndAfter) {
  OtherVolumes volumes(disk_, disk_);
  LoggedChanges logged(volumes, disk_, log_);
  EXPECT_EQ(logged.Rename(At("a"), At("x")), std::nullopt);
  ASSERT_TRUE(logged.Move(At("x"), At("other/x")));
  EXPECT_EQ(logged.Rename(At("other/x"), At("other/y")), std::nullopt);
  EXPECT_NE(log_.text.find("\"copied\":true"), std::string::npos);
  EXPECT_EQ(UndoBy(volumes, UndoMode::kApply),
            (std::vector<UndoStep>{Back("other/y", "other/x"), Back("other/x", "x"), Back("x", "a")}));
  ExpectAllBack();
  EXPECT_THAT(UndoBy(volumes, UndoMode::kApply), IsEmpty());
}

TEST_F(UndoTest, AFileThatWentToOtherVolumesSeveralTimesComesBack) {
  OtherVolumes volumes(disk_, disk_);
  LoggedChanges logged(volumes, disk_, log_);
  ASSERT_TRUE(logged.Move(At("a"), At("other/a")));
  EXPECT_EQ(logged.Rename(At("other/a"), At("other/y")), std::nullopt);
  ASSERT_TRUE(logged.Move(At("other/y"), At("y")));
  ASSERT_TRUE(logged.Move(At("y"), At("other/z")));
  const std::vector<UndoStep> expected = {Back("other/z", "y"), Back("y", "other/y"), Back("other/y", "other/a"),
                                          Back("other/a", "a")};
  EXPECT_EQ(UndoBy(volumes, UndoMode::kApply), expected);
  ExpectAllBack();
  EXPECT_THAT(UndoBy(volumes, UndoMode::kApply), IsEmpty());
}

TEST_F(UndoTest, AMoveThatWasKilledBeforeItsCopyWasLoggedIsTakenBack) {
  disk_.secondDevice = At("other");
  OtherVolumes volumes(disk_, disk_);
  LoggedChanges logged(volumes, disk_, log_);
  EXPECT_EQ(logged.Rename(At("a"), At("x")), std::nullopt);
  log_.linesLeft = 1;
  ASSERT_TRUE(logged.Move(At("x"), At("other/x")));
  EXPECT_EQ(log_.text.find("copied"), std::string::npos);
  EXPECT_EQ(UndoBy(volumes, UndoMode::kApply), (std::vector<UndoStep>{Back("other/x", "x"), Back("x", "a")}));
  ExpectAllBack();
}

TEST_F(UndoTest, AFileOfTheSameSizeOnTheSameVolumeIsNoCopy) {
  log_.text = RenameLine(At("a"), At("other/a"), *disk_.Identity(At("a")));
  EXPECT_EQ(disk_.Remove(At("a")), std::nullopt);
  disk_.AddFile(At("other/a"), "content of x");
  EXPECT_THAT(UndoAll(), ElementsAre(Kept("other/a", "a", UndoObstacle::kAnotherFile)));
}

TEST_F(UndoTest, AFileThatWasLeftHalfWayGoesBackFromThere) {
  disk_.Fail(FileCall::kRename, At("a"), {file_error::kStranded, "half-way", At(".quillon-x")});
  EXPECT_TRUE(logged_.Rename(At("a"), At("A")));
  EXPECT_TRUE(disk_.Exists(At("a")));
  MemoryFileSystem& disk = disk_;
  ASSERT_TRUE(disk.FileChanges::Move(At("a"), At(".quillon-x")));
  EXPECT_THAT(UndoAll(), ElementsAre(Back(".quillon-x", "a")));
  ExpectAllBack();
}

// A rename by link that could not remove the old name leaves both, and has failed.
TEST_F(UndoTest, AFailedRenameThatLeftBothNamesIsLeftAlone) {
  disk_.Fail(FileCall::kRename, At("a"), {file_error::kAccess, "denied"});
  EXPECT_TRUE(logged_.Rename(At("a"), At("x")));
  disk_.AddHardLink(At("x"), At("a"));
  EXPECT_THAT(UndoAll(), IsEmpty());
  EXPECT_THAT(ShowAll(), IsEmpty());
  EXPECT_THAT(disk_.NamesIn(At("")), ElementsAre("a", "b", "c", "other", "x"));
}

TEST_F(UndoTest, ACancelledCopyEndsIt) {
  Rename("a", "x");
  Rename("b", "y");
  disk_.Fail(FileCall::kMove, At("y"), {file_error::kCancelled, "Cancelled"});
  EXPECT_THAT(UndoAll(), IsEmpty());
  EXPECT_THAT(disk_.NamesIn(At("")), ElementsAre("c", "other", "x", "y"));
}

TEST_F(UndoTest, AChangeOfLetterCaseThatWasKilledHalfWayIsTakenBack) {
  log_.text =
      RenameLine(At("a"), At("A"), *disk_.Identity(At("a"))) + RenameLine(At("b"), At("B"), *disk_.Identity(At("b")));
  EXPECT_EQ(disk_.Rename(At("a"), At(".quillon-0123456789ab")), std::nullopt);
  EXPECT_EQ(disk_.Rename(At("b"), At(".quillon-a.mid")), std::nullopt);
  const std::vector<UndoStep> expected = {Back(".quillon-a.mid", "b"), Back(".quillon-0123456789ab", "a")};
  EXPECT_EQ(ShowAll(), expected);
  EXPECT_EQ(UndoAll(), expected);
  ExpectAllBack();
}

TEST_F(UndoTest, AFullDiskEndsTheChangesBeforeTheNextOne) {
  log_.linesLeft = 1;
  Rename("a", "x");
  const FileOutcome outcome = logged_.Rename(At("b"), At("y"));
  ASSERT_TRUE(outcome);
  EXPECT_EQ(outcome->number, kNotLogged);
  EXPECT_TRUE(logged_.Broken());
  log_.linesLeft = 5;
  EXPECT_TRUE(logged_.Rename(At("c"), At("z"))) << "the log would have a gap";
  EXPECT_TRUE(disk_.Exists(At("b")));
  EXPECT_TRUE(disk_.Exists(At("c")));
}

TEST_F(UndoTest, ARenameToTheSameNameIsNotLogged) {
  Rename("a", "a");
  EXPECT_EQ(log_.text, "");
}

// On the real disk a new content changes the time, even when the size stays.
TEST(UndoOnDisk, AFileThatWasWrittenToSinceIsTold) {
  const TempFolder folder;
  folder.Write("a", "one");
  const std::unique_ptr<FileChanges> disk = MakeFileChanges();
  const std::unique_ptr<FileReads> files = MakeFileReads();
  MemoryLog log;
  LoggedChanges logged(*disk, *files, log);
  EXPECT_EQ(logged.Rename(folder.At("a"), folder.At("b")), std::nullopt);
  namespace fs = std::filesystem;
  const std::string text = folder.At("b");
  const fs::path path(std::u8string(text.begin(), text.end()));
  std::ofstream(path, std::ios::in | std::ios::binary) << "two";
  fs::last_write_time(path, fs::last_write_time(path) + std::chrono::seconds(1));
  std::vector<UndoStep> steps;
  Unwatched progress;
  Undo(ReadRenameLog(log.text)->renames, *files, *disk, UndoMode::kApply, progress, [&](const UndoStep& step) {
    steps.push_back(step);
    return true;
  });
  ASSERT_EQ(steps.size(), 1U);
  EXPECT_EQ(steps[0].obstacle, UndoObstacle::kChanged);
  EXPECT_EQ(folder.Read("b"), "two");
}

}  // namespace
}  // namespace quillon::test
