// Random plans with swaps, cycles and chains, each stopped at a random step and taken back from its log.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <numeric>
#include <random>

#include "plan/LoggedChanges.h"
#include "plan/MemoryLog.h"
#include "plan/RenamePlan.h"
#include "plan/Undo.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

namespace fs = std::filesystem;

struct Killed {};

/// The disk of a program that is killed: before one of its renames, or right after it.
class MortalDisk final : public FileChanges {
 public:
  MortalDisk(FileChanges& disk, std::size_t renames, bool after) : disk_(disk), left_(renames), after_(after) {}

  FileOutcome Rename(const std::string& from, const std::string& to) override {
    if (left_ == 0 && !after_) throw Killed();
    const FileOutcome outcome = disk_.Rename(from, to);
    if (left_ == 0) throw Killed();
    --left_;
    return outcome;
  }
  using FileChanges::Move;
  MoveOutcome Move(const std::string& from, const std::string& to, Progress* progress) override {
    if (left_ == 0 && !after_) throw Killed();
    MoveOutcome outcome = disk_.Move(from, to, progress);
    if (left_ == 0) throw Killed();
    --left_;
    return outcome;
  }
  void RemoveLeftovers(const std::string&) override {}
  FileOutcome Remove(const std::string&) override { return FileError{file_error::kAccess, {}}; }
  int Recycle(const std::string&, std::uintptr_t) override { return kRecycleNotDone; }

 private:
  FileChanges& disk_;
  std::size_t left_;
  bool after_;
};

using Contents = std::map<std::string, std::string>;  // by name

std::string NameOf(int number) {
  static const std::vector<std::string> kNames = {"a.mid", "b.mid", "c.MP3", "荒城の月.wav",
                                                  "e",     ".f",    "g.h.i", "j k.avi"};
  return kNames[static_cast<std::size_t>(number)];
}

/// A folder whose files each hold their own first name.
class Music {
 public:
  explicit Music(int count) {
    for (int i = 0; i < count; ++i) {
      folder_.Write(NameOf(i), NameOf(i));
      first_[NameOf(i)] = NameOf(i);
    }
  }

  [[nodiscard]] Contents Now() const {
    Contents contents;
    for (const fs::directory_entry& entry :
         fs::directory_iterator(fs::path(std::u8string(folder_.Path().begin(), folder_.Path().end())))) {
      const std::u8string name = entry.path().filename().u8string();
      std::ifstream file(entry.path(), std::ios::binary);
      contents[std::string(name.begin(), name.end())] = std::string(std::istreambuf_iterator<char>(file), {});
    }
    return contents;
  }

  // What every name holds at first, and again when a plan was taken back: one folder serves many plans.
  [[nodiscard]] const Contents& First() const { return first_; }
  [[nodiscard]] std::string At(const std::string& name) const { return folder_.At(name); }

 private:
  TempFolder folder_;
  Contents first_;
};

using Random = std::mt19937;

int Below(Random& random, int bound) {
  return static_cast<int>(random() % static_cast<unsigned>(bound));
}

/// Renames some files to each other's names and to new ones; what each name then holds is in `after`.
std::vector<PlannedRename> RandomPlan(const Music& music, int count, Random& random, Contents& after) {
  std::vector<int> sources(static_cast<std::size_t>(count));
  std::iota(sources.begin(), sources.end(), 0);
  std::shuffle(sources.begin(), sources.end(), random);
  sources.resize(static_cast<std::size_t>(1 + Below(random, count)));
  std::vector<std::string> targets;
  for (const int source : sources) targets.push_back(NameOf(source));
  const int newNames = Below(random, 3);
  for (int i = 0; i < newNames; ++i)
    targets[static_cast<std::size_t>(Below(random, static_cast<int>(targets.size())))] = "new " + std::to_string(i);
  std::shuffle(targets.begin(), targets.end(), random);
  std::vector<PlannedRename> plan;
  after = music.First();
  for (const int source : sources) after.erase(NameOf(source));
  for (std::size_t i = 0; i < sources.size(); ++i) {
    plan.push_back({music.At(NameOf(sources[i])), music.At(targets[i])});
    after[targets[i]] = NameOf(sources[i]);
  }
  return plan;
}

class RandomPlans : public testing::Test {
 protected:
  // Runs with the disk's death until the run is over; true when it died.
  template <class Run>
  static bool Dies(const Run& run) {
    try {
      run();
      return false;
    } catch (const Killed&) {
      return true;
    }
  }

  // The steps that undo could not take.
  static std::size_t UndoBy(const std::string& log, FileReads& files, FileChanges& changes) {
    std::size_t obstacles = 0;
    Unwatched progress;
    const Result<RenameLog, std::size_t> read = ReadRenameLog(log);
    EXPECT_TRUE(read.Ok());
    Undo(read->renames, files, changes, UndoMode::kApply, progress, [&](const UndoStep& step) {
      obstacles += step.obstacle ? 1 : 0;
      return true;
    });
    return obstacles;
  }

  std::unique_ptr<FileReads> files_ = MakeFileReads();
  std::unique_ptr<FileChanges> disk_ = MakeFileChanges();
  Unwatched progress_;
};

TEST_F(RandomPlans, AreAllTakenBackFromWhereverTheyWereStopped) {
  const int plans = SystemPathStyle() == PathStyle::kLinux ? 10'000 : 700;  // Wine takes long for each
  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  RecordProperty("seed", std::to_string(seed));
  Random random(seed);
  int stopped = 0;
  int undoStopped = 0;
  int whole = 0;
  int withTemporary = 0;
  for (int count = 2; count <= 8; ++count) {
    const Music music(count);
    for (int number = count; number < plans + 2; number += 7) {
      SCOPED_TRACE("plan " + std::to_string(number));
      Contents after;
      const std::vector<PlannedRename> lines = RandomPlan(music, count, random, after);
      const auto steps = MakeRenamePlan(lines, *files_);
      ASSERT_TRUE(steps.Ok());
      withTemporary += steps->size() > lines.size() ? 1 : 0;
      MemoryLog log;
      const int length = static_cast<int>(steps->size());
      MortalDisk mortal(*disk_,
                        static_cast<std::size_t>(Below(random, number % 8 == 0 ? length + 9 : std::max(length, 1))),
                        random() % 2 == 0);
      LoggedChanges logged(mortal, *files_, log);
      if (Dies([&] { EXPECT_FALSE(CarryOut(*steps, logged, mortal, progress_).failedStep); })) {
        ++stopped;
      } else {
        ++whole;
        ASSERT_EQ(music.Now(), after);
      }
      MortalDisk mortalUndo(*disk_, static_cast<std::size_t>(Below(random, 2 * length + 2)), random() % 2 == 0);
      undoStopped += Dies([&] { EXPECT_EQ(UndoBy(log.text, *files_, mortalUndo), 0U); }) ? 1 : 0;
      EXPECT_EQ(UndoBy(log.text, *files_, *disk_), 0U);
      ASSERT_EQ(music.Now(), music.First());
    }
  }
  std::cout << plans << " plans, seed " << seed << ": " << stopped << " stopped, " << whole << " whole, "
            << withTemporary << " with temporary names, " << undoStopped << " undos stopped\n";
  EXPECT_GT(stopped, plans * 3 / 4);
  EXPECT_GT(whole, plans / 20);
  EXPECT_GT(withTemporary, plans / 10);
  EXPECT_GT(undoStopped, plans / 10);
}

TEST_F(RandomPlans, ThatFailAreTakenBackAtOnce) {
  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  Random random(seed);
  const Music music(6);
  for (int number = 0; number < 500; ++number) {
    Contents after;
    const std::vector<PlannedRename> lines = RandomPlan(music, 6, random, after);
    const auto steps = MakeRenamePlan(lines, *files_);
    ASSERT_TRUE(steps.Ok());
    MemoryLog log;
    log.linesLeft = Below(random, static_cast<int>(steps->size()) + 1);
    LoggedChanges logged(*disk_, *files_, log);
    const PlanOutcome outcome = CarryOut(*steps, logged, *disk_, progress_);
    EXPECT_EQ(outcome.done, outcome.failedStep ? 0U : steps->size());
    ASSERT_EQ(music.Now(), outcome.failedStep ? music.First() : after);
    EXPECT_EQ(UndoBy(log.text, *files_, *disk_), 0U);
    ASSERT_EQ(music.Now(), music.First());
  }
}

}  // namespace
}  // namespace quillon::test
