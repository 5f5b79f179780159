#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "rename/PlannedChanges.h"
#include "rename/basQuillon.h"
#include "support/MemoryFileSystem.h"
#include "support/RecordedProgress.h"
#include "support/Rows.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

using Texts = std::vector<std::string>;
using Codes = std::vector<int>;

bool OnWindows() {
  return SystemPathStyle() == PathStyle::kWindows;
}

struct Outcome {
  Codes codes;  ///< by row
  Texts locations;

  bool operator==(const Outcome&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
  for (std::size_t i = 0; i < outcome.codes.size(); ++i) {
    out << '\n' << outcome.codes[i] << ' ' << outcome.locations[i];
  }
  return out;
}

/// One row per path; a batch over all of them.
Outcome Apply(FileChanges& changes, const Texts& paths, const Texts& renameNames) {
  FileList list;
  PlayerControl player;
  test::PendingRecorder pending;
  test::RecordedProgress progress(pending);
  const ApplyMode mode;
  for (std::size_t i = 0; i < paths.size(); ++i) {
    FileItem row = test::RowFor(paths[i]);
    row.renameName = renameNames[i];
    list.Add(row);
  }
  RenameEngine engine(list, mode, changes, player);
  Outcome outcome{Codes(paths.size()), {}};
  for (const RowOutcome& failure :
       engine.Apply(Rows::kAll, progress, [](const RowOutcome&) { return true; }).failures) {
    outcome.codes[static_cast<std::size_t>(failure.index) - 1] = static_cast<int>(failure.code);
  }
  outcome.locations = test::Locations(list);
  return outcome;
}

struct BatchCase {
  const char* name;
  Texts files;  ///< the folder's contents; "x/" is a folder
  Texts rows;
  Texts renameNames;
  Codes linux;
  Codes windows;  ///< empty: as on Linux
};

std::vector<BatchCase> BatchCases() {
  return {
      {"to free names", {"a.mid", "b.mid"}, {"a.mid", "b.mid"}, {"x", "y"}, {0, 0}, {}},
      {"own names", {"a.mid", "b.mid"}, {"a.mid", "b.mid"}, {"a", "b"}, {0, 0}, {}},
      {"swap", {"a.mid", "b.mid"}, {"a.mid", "b.mid"}, {"b", "a"}, {3, 3}, {}},
      {"shift up from the top",
       {"1.mid", "2.mid", "3.mid"},
       {"1.mid", "2.mid", "3.mid"},
       {"2", "3", "4"},
       {3, 3, 0},
       {}},
      {"shift up from the end",
       {"1.mid", "2.mid", "3.mid"},
       {"3.mid", "2.mid", "1.mid"},
       {"4", "3", "2"},
       {0, 0, 0},
       {}},
      {"shift down", {"1.mid", "2.mid", "3.mid"}, {"1.mid", "2.mid", "3.mid"}, {"0", "1", "2"}, {0, 0, 0}, {}},
      {"two to one name", {"a.mid", "b.mid"}, {"a.mid", "b.mid"}, {"x", "x"}, {0, 3}, {}},
      {"onto a file that is not listed", {"a.mid", "x.mid"}, {"a.mid"}, {"x"}, {3}, {}},
      {"onto a folder", {"a.mid", "x.mid/"}, {"a.mid"}, {"x"}, {3}, {}},
      {"onto a freed name", {"a.mid", "b.mid"}, {"a.mid", "b.mid"}, {"x", "a"}, {0, 0}, {}},
      {"onto a freed name that is taken again",
       {"a.mid", "b.mid", "c.mid"},
       {"a.mid", "b.mid", "c.mid"},
       {"x", "a", "a"},
       {0, 0, 3},
       {}},
      {"other extension is another name", {"a.mid", "b.mp3"}, {"a.mid", "b.mp3"}, {"b", "a"}, {0, 0}, {}},
      {"extension in capitals collides", {"a.MID", "b.mid"}, {"a.MID"}, {"b"}, {3}, {}},
      {"letter case alone", {"song.mid"}, {"song.mid"}, {"SONG"}, {0}, {}},
      {"another file's name in another case", {"a.mid", "b.mid"}, {"a.mid", "b.mid"}, {"B", "x"}, {0, 0}, {3, 0}},
      {"a name given up by letter case", {"a.mid", "b.mid"}, {"a.mid", "b.mid"}, {"A", "a"}, {0, 0}, {0, 3}},
      {"a freed name in another case", {"a.mid", "b.mid"}, {"a.mid", "b.mid"}, {"x", "A"}, {0, 0}, {}},
      {"the source is missing", {}, {"a.mid"}, {"x"}, {5}, {}},
      {"the source is missing and keeps its name", {}, {"a.mid"}, {"a"}, {5}, {}},
      {"the source was taken by an earlier row", {"a.mid"}, {"a.mid", "a.mid"}, {"x", "y"}, {0, 5}, {}},
      {"too long a name", {"a.mid"}, {"a.mid"}, {std::string(300, 'x')}, {5}, {}},
      {"a control character", {"a.mid"}, {"a.mid"}, {"x\ty"}, {0}, {5}},
      {"nothing left of the name", {"readme"}, {"readme"}, {". ."}, {5}, {}},
      {"no name and an invalid one", {"a.mid", "b.mid"}, {"a.mid", "b.mid"}, {" ", "a?"}, {1, 2}, {}},
  };
}

TEST(PlannedChanges, AnswerABatchAsTheDiskDoes) {
  for (const BatchCase& c : BatchCases()) {
    SCOPED_TRACE(c.name);
    const test::TempFolder folder;
    for (const std::string& name : c.files) {
      if (name.back() == '/') {
        (void)folder.MakeFolder(name.substr(0, name.size() - 1));
      } else {
        (void)folder.Write(name, name);
      }
    }
    Texts paths;
    for (const std::string& name : c.rows) paths.push_back(folder.At(name));
    const auto reads = MakeFileReads();
    PlannedChanges planned(*reads);
    const Outcome plan = Apply(planned, paths, c.renameNames);
    const Outcome real = Apply(*MakeFileChanges(), paths, c.renameNames);
    EXPECT_EQ(plan, real);
    EXPECT_EQ(real.codes, OnWindows() && !c.windows.empty() ? c.windows : c.linux);
  }
}

TEST(PlannedChanges, ChangeNothing) {
  const test::TempFolder folder;
  const Texts paths = {folder.Write("a.mid", "A"), folder.Write("b.mid", "B")};
  const auto reads = MakeFileReads();
  PlannedChanges planned(*reads);
  EXPECT_EQ(Apply(planned, paths, {"x", "a"}).codes, Codes({0, 0}));
  EXPECT_EQ(folder.Read("a.mid"), "A");
  EXPECT_EQ(folder.Read("b.mid"), "B");
  EXPECT_FALSE(folder.Exists("x.mid"));
}

TEST(PlannedChanges, ASecondFileWhoseNameDiffersInLetterCaseAloneIsInTheWay) {
  if (OnWindows()) GTEST_SKIP() << "a folder cannot hold two names that differ in letter case alone";
  for (const bool symbolic : {false, true}) {
    const test::TempFolder folder;
    const std::string path = folder.Write("song.mid", "x");
    if (symbolic) {
      std::filesystem::create_symlink(path, folder.At("SONG.mid"));
    } else {
      std::filesystem::create_hard_link(path, folder.At("SONG.mid"));
    }
    const auto reads = MakeFileReads();
    PlannedChanges planned(*reads);
    const Outcome plan = Apply(planned, {path}, {"SONG"});
    EXPECT_EQ(plan, Apply(*MakeFileChanges(), {path}, {"SONG"})) << (symbolic ? "symbolic link" : "hard link");
    EXPECT_EQ(plan.codes, Codes({static_cast<int>(ApplyCode::kTargetExists)}));
  }
}

TEST(PlannedChanges, LetterCaseAloneCanChangeOnAVolumeThatIgnoresIt) {
  const std::string folder = OnWindows() ? "C:\\music\\" : "/music/";
  test::MemoryFileSystem disk({SystemPathStyle(), true});
  for (const char* const name : {"a.mid", "b.mid"}) disk.AddFile(folder + name);
  PlannedChanges plan(disk);
  EXPECT_EQ(plan.Rename(folder + "a.mid", folder + "A.mid"), std::nullopt);
  EXPECT_EQ(plan.Rename(folder + "b.mid", folder + "A.mid"), (FileError{file_error::kAlreadyExists, {}}));
}

TEST(PlannedChanges, PassOnErrorsOfQueries) {
  test::MemoryFileSystem files;
  const std::string top = OnWindows() ? "C:\\m\\" : "/m/";
  files.AddFile(top + "a.mid");
  files.Fail(test::FileCall::kStatus, top + "x.mid", {file_error::kAccess, "denied"});
  PlannedChanges planned(files);
  EXPECT_EQ(Apply(planned, {top + "a.mid"}, {"x"}).codes, Codes({static_cast<int>(ApplyCode::kNoAccess)}));
}

TEST(PlannedChanges, AnswerMovesAndDeletionsAsTheDiskWouldAndChangeNothing) {
  test::MemoryFileSystem files;
  const std::string top = OnWindows() ? "C:\\m\\" : "/m/";
  const std::string there = OnWindows() ? "C:\\t\\" : "/t/";
  for (const char* const name : {"a.mid", "b.mid"}) files.AddFile(top + name);
  files.AddFile(there + "b.mid");
  PlannedChanges planned(files);
  EXPECT_TRUE(planned.Move(top + "a.mid", there + "a.mid"));
  EXPECT_EQ(planned.Move(top + "a.mid", there + "c.mid").Failure().number, file_error::kNotFound) << "it has gone";
  EXPECT_EQ(planned.Move(top + "b.mid", there + "a.mid").Failure().number, file_error::kAlreadyExists);
  EXPECT_EQ(planned.Move(top + "b.mid", there + "b.mid").Failure().number, file_error::kAlreadyExists);
  EXPECT_EQ(planned.Move(top + "b.mid", top + (OnWindows() ? "no\\b.mid" : "no/b.mid")).Failure().number,
            file_error::kNotFound);
  EXPECT_EQ(planned.Remove(there + "b.mid"), std::nullopt);
  EXPECT_TRUE(planned.Move(top + "b.mid", there + "b.mid")) << "the name is free now";
  EXPECT_EQ(planned.Recycle(there + "b.mid", 0), 0);
  EXPECT_EQ(planned.Recycle(there + "b.mid", 0), kRecycleNotDone);
  EXPECT_EQ(planned.Remove(there + "b.mid")->number, file_error::kNotFound);
  EXPECT_EQ(files.NamesIn(top).size() + files.NamesIn(there).size(), 3u);
}

/// Random batches whose names collide often.
class RandomBatch {
 public:
  explicit RandomBatch(unsigned seed) : random_(seed) {
    const int count = Below(7) + 2;
    for (int i = 0; i < count; ++i) files.push_back(Name() + Ending());
    for (int i = 0; i < count; ++i) {
      rows.push_back(files[static_cast<std::size_t>(Below(count))]);
      renameNames.push_back(Below(12) == 0 ? "" : Name());
    }
  }

  Texts files;
  Texts rows;  ///< some twice, some not at all
  Texts renameNames;

 private:
  int Below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(random_); }
  std::string Name() {
    static const Texts kNames = {"a", "b", "c", "d", "A", "B", "表", "が", "か\u3099", " a", "a.b", "x"};
    return kNames[static_cast<std::size_t>(Below(static_cast<int>(kNames.size())))];
  }
  std::string Ending() {
    static const Texts kEndings = {".mid", ".MID", "", ".mp3"};
    return kEndings[static_cast<std::size_t>(Below(static_cast<int>(kEndings.size())))];
  }

  std::mt19937 random_;
};

TEST(PlannedChangesProperty, AnyBatchIsAnsweredAsTheDiskDoes) {
  const auto reads = MakeFileReads();
  const auto changes = MakeFileChanges();
  for (unsigned seed = 1; seed <= 150; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    const RandomBatch batch(seed);
    const test::TempFolder folder;
    for (const std::string& name : batch.files) (void)folder.Write(name);
    Texts paths;
    for (const std::string& name : batch.rows) paths.push_back(folder.At(name));
    PlannedChanges planned(*reads);
    const Outcome plan = Apply(planned, paths, batch.renameNames);
    ASSERT_EQ(plan, Apply(*changes, paths, batch.renameNames));
  }
}

TEST(PlannedChangesProperty, AnyBatchIsAnsweredAsTheDiskInMemoryDoes) {
  const std::string top = OnWindows() ? "C:\\m\\" : "/m/";
  for (unsigned seed = 1; seed <= 1000; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    const RandomBatch batch(seed);
    test::MemoryFileSystem files;
    for (const std::string& name : batch.files) files.AddFile(top + name);
    Texts paths;
    for (const std::string& name : batch.rows) paths.push_back(top + name);
    PlannedChanges planned(files);
    const Outcome plan = Apply(planned, paths, batch.renameNames);
    ASSERT_EQ(plan, Apply(files, paths, batch.renameNames));
  }
}

}  // namespace
}  // namespace quillon
