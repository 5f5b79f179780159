#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Text.h"
#include "plan/RenamePlan.h"
#include "platform/TemporaryName.h"
#include "rename/PlannedChanges.h"
#include "support/MemoryFileSystem.h"
#include "support/TempFolder.h"

namespace quillon {

void PrintTo(const PlannedRename& rename, std::ostream* out) {
  *out << rename.from << " -> " << rename.to;
}

void PrintTo(const PlanComplaint& complaint, std::ostream* out) {
  *out << "line " << complaint.line << " problem " << static_cast<int>(complaint.problem);
}

}  // namespace quillon

namespace quillon::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Names = std::vector<std::pair<std::string, std::string>>;

class RenamePlanTest : public testing::Test {
 protected:
  explicit RenamePlanTest(MemoryFileSystem::Options options = {PathStyle::kLinux, false}) : disk_(options) {
    for (const char* const name : {"a", "b", "c", "d"}) disk_.AddFile(At(name), std::string("content of ") + name);
  }

  static std::string At(const std::string& name) { return "/music/" + name; }

  static std::vector<PlannedRename> Lines(const Names& names) {
    std::vector<PlannedRename> lines;
    lines.reserve(names.size());
    for (const auto& [from, to] : names) lines.push_back({At(from), At(to)});
    return lines;
  }

  std::vector<PlannedRename> StepsOf(const Names& names) {
    const auto steps = MakeRenamePlan(Lines(names), disk_, PathStyle::kLinux);
    EXPECT_TRUE(steps.Ok());
    return steps ? *steps : std::vector<PlannedRename>();
  }

  std::vector<PlanComplaint> ComplaintsAbout(const std::vector<PlannedRename>& lines) {
    const auto steps = MakeRenamePlan(lines, disk_, PathStyle::kLinux);
    EXPECT_FALSE(steps.Ok());
    return steps ? std::vector<PlanComplaint>() : steps.Failure();
  }

  PlanOutcome Run(const std::vector<PlannedRename>& steps) { return CarryOut(steps, disk_, disk_, progress_); }

  void ExpectUnchanged() {
    EXPECT_THAT(disk_.NamesIn("/music"), ElementsAre("a", "b", "c", "d"));
    for (const char* const name : {"a", "b", "c", "d"}) {
      EXPECT_EQ(disk_.BytesOf(At(name)), std::string("content of ") + name);
    }
  }

  MemoryFileSystem disk_;
  Unwatched progress_;
};

TEST_F(RenamePlanTest, AChainIsRenamedFromItsEnd) {
  EXPECT_EQ(StepsOf({{"a", "b"}, {"b", "c"}, {"c", "x"}}), Lines({{"c", "x"}, {"b", "c"}, {"a", "b"}}));
  EXPECT_EQ(StepsOf({{"c", "x"}, {"b", "c"}, {"a", "b"}}), Lines({{"c", "x"}, {"b", "c"}, {"a", "b"}}));
  EXPECT_EQ(StepsOf({{"b", "c"}, {"a", "b"}, {"c", "x"}}), Lines({{"c", "x"}, {"b", "c"}, {"a", "b"}}));
}

TEST_F(RenamePlanTest, ACycleGoesThroughATemporaryNameThatKeepsTheOldOneRecognisable) {
  disk_.AddFile(At("song.mp3"));
  disk_.AddFile(At("other.mp3"));
  const std::vector<PlannedRename> steps = StepsOf({{"song.mp3", "other.mp3"}, {"other.mp3", "song.mp3"}});
  ASSERT_EQ(steps.size(), 3U);
  const std::string temporary = steps[0].to;
  EXPECT_TRUE(temporary.starts_with(At("song.quillon-")) && temporary.ends_with(".mp3")) << temporary;
  EXPECT_EQ(steps,
            Lines({{"song.mp3", temporary.substr(7)}, {"other.mp3", "song.mp3"}, {temporary.substr(7), "other.mp3"}}));
  EXPECT_EQ(MarkedName(temporary.substr(7)), std::nullopt) << "it would be deleted as a leftover";
}

TEST_F(RenamePlanTest, LongTemporaryNamesAreCutAtACharacter) {
  const std::string longName = std::string(2, 'x') + std::string(83, 'x') + std::string(160, 'x') + "あ.mid";
  disk_.AddFile(At(longName));
  const std::vector<PlannedRename> steps = StepsOf({{longName, "a"}, {"a", longName}});
  ASSERT_EQ(steps.size(), 3U);
  const std::string name = steps[0].to.substr(7);
  EXPECT_LE(name.size(), 255U);
  EXPECT_TRUE(IsValidUtf8(name));
  EXPECT_TRUE(name.ends_with(".mid"));
}

TEST_F(RenamePlanTest, ARenameToTheOwnNameNeedsNoStep) {
  EXPECT_THAT(StepsOf({{"a", "a"}}), IsEmpty());
  EXPECT_THAT(ComplaintsAbout(Lines({{"a", "a"}, {"b", "a"}})),
              ElementsAre(PlanComplaint{1, PlanProblem::kSameTarget}));
}

TEST_F(RenamePlanTest, SwapsAndChainsAreCarriedOut) {
  const PlanOutcome outcome = Run(StepsOf({{"a", "b"}, {"b", "a"}, {"c", "d"}, {"d", "e"}}));
  EXPECT_EQ(outcome.done, 5U);
  EXPECT_FALSE(outcome.failedStep);
  EXPECT_THAT(disk_.NamesIn("/music"), ElementsAre("a", "b", "d", "e"));
  EXPECT_EQ(disk_.BytesOf(At("a")), "content of b");
  EXPECT_EQ(disk_.BytesOf(At("b")), "content of a");
  EXPECT_EQ(disk_.BytesOf(At("d")), "content of c");
  EXPECT_EQ(disk_.BytesOf(At("e")), "content of d");
}

TEST_F(RenamePlanTest, EveryMistakeIsToldWithItsLine) {
  disk_.AddFolder(At("folder"));
  disk_.nameUnit = NameUnit::kByte;
  const std::string tooLong = std::string(240, 'x') + "あいうえおか";
  std::vector<PlannedRename> lines =
      Lines({{"a", "x"}, {"a", "y"}, {"absent", "z"}, {"folder", "w"}, {"b", "x"}, {"c", "d"}, {"d", "v?"}});
  EXPECT_THAT(ComplaintsAbout(lines),
              ElementsAre(PlanComplaint{1, PlanProblem::kNamedTwice}, PlanComplaint{2, PlanProblem::kNoSource},
                          PlanComplaint{3, PlanProblem::kNoSource}, PlanComplaint{4, PlanProblem::kSameTarget},
                          PlanComplaint{6, PlanProblem::kInvalidCharacter}));
  const struct {
    std::string to;
    PlanProblem problem;
  } kCases[] = {{"/music/d", PlanProblem::kTargetExists},       {"/other/x", PlanProblem::kOtherFolder},
                {"/music/", PlanProblem::kInvalidName},         {"/music/..", PlanProblem::kInvalidName},
                {"/music/  ", PlanProblem::kInvalidName},       {"/music/" + tooLong, PlanProblem::kInvalidName},
                {"/music/folder", PlanProblem::kTargetExists},  {"/music/a\\b", PlanProblem::kInvalidCharacter},
                {"/music/x\ry", PlanProblem::kInvalidCharacter}};
  for (const auto& row : kCases) {
    EXPECT_THAT(ComplaintsAbout({{At("a"), row.to}}), ElementsAre(PlanComplaint{0, row.problem})) << row.to;
  }
}

TEST_F(RenamePlanTest, ANameIsAsLongAsItsVolumeAllows) {
  const std::string name = std::string(200, 'x') + "あいうえおかきくけこ" + std::string(30, 'x');
  disk_.nameUnit = NameUnit::kUtf16;
  EXPECT_EQ(StepsOf({{"a", name}}).size(), 1U);
  disk_.nameUnit = NameUnit::kByte;
  EXPECT_THAT(ComplaintsAbout(Lines({{"a", name}})), ElementsAre(PlanComplaint{0, PlanProblem::kInvalidName}));
}

TEST_F(RenamePlanTest, AFailureTakesBackWhatWasDone) {
  const std::vector<PlannedRename> steps = StepsOf({{"a", "b"}, {"b", "a"}, {"c", "x"}, {"d", "y"}});
  disk_.Fail(FileCall::kRename, At("d"), {file_error::kAccess, "denied"});
  const PlanOutcome outcome = Run(steps);
  EXPECT_EQ(outcome.failedStep, 4U);
  EXPECT_EQ(outcome.error.number, file_error::kAccess);
  EXPECT_EQ(outcome.done, 0U);
  EXPECT_THAT(outcome.notBack, IsEmpty());
  ExpectUnchanged();
}

TEST_F(RenamePlanTest, WhatCannotBeTakenBackIsToldWithItsPlace) {
  for (const char* const name : {"d", "x", "2"})
    disk_.Fail(FileCall::kRename, At(name), {file_error::kAccess, "denied"});
  const PlanOutcome outcome = Run(Lines({{"a", "1"}, {"1", "2"}, {"c", "x"}, {"d", "y"}}));
  EXPECT_EQ(outcome.failedStep, 3U);
  EXPECT_THAT(outcome.notBack, ElementsAre(PlannedRename{At("c"), At("x")}, PlannedRename{At("a"), At("2")}));
  EXPECT_THAT(disk_.NamesIn("/music"), ElementsAre("2", "b", "d", "x"));
}

/// A disk on which the rename to "y" stops under a temporary name.
class HalfWay final : public FileChanges {
 public:
  explicit HalfWay(FileChanges& disk) : disk_(disk) {}

  FileOutcome Rename(const std::string& from, const std::string& to) override {
    if (!to.ends_with("/y")) return disk_.Rename(from, to);
    static_cast<void>(disk_.Rename(from, to + ".half"));
    return FileError{file_error::kStranded, "half-way", to + ".half"};
  }
  using FileChanges::Move;
  MoveOutcome Move(const std::string& from, const std::string& to, Progress* progress) override {
    return disk_.Move(from, to, progress);
  }
  void RemoveLeftovers(const std::string&) override {}
  FileOutcome Remove(const std::string& path) override { return disk_.Remove(path); }
  int Recycle(const std::string&, std::uintptr_t) override { return kRecycleNotDone; }

 private:
  FileChanges& disk_;
};

TEST_F(RenamePlanTest, AFileThatStoppedHalfWayIsTakenBackToo) {
  HalfWay half(disk_);
  const PlanOutcome outcome = CarryOut(StepsOf({{"c", "x"}, {"d", "y"}}), half, disk_, progress_);
  EXPECT_EQ(outcome.failedStep, 1U);
  EXPECT_THAT(outcome.notBack, IsEmpty());
  ExpectUnchanged();
  disk_.Fail(FileCall::kRename, At("y.half"), {file_error::kAccess, "denied"});
  EXPECT_THAT(CarryOut(StepsOf({{"d", "y"}}), half, disk_, progress_).notBack,
              ElementsAre(PlannedRename{At("d"), At("y.half")}));
}

TEST_F(RenamePlanTest, ACancelledPlanIsTakenBack) {
  struct Cancelling final : Progress {
    bool Continue(std::size_t done, std::size_t, const std::string&) override { return done < 2; }
    bool Continue() override { return true; }
  } cancelling;
  const PlanOutcome outcome = CarryOut(StepsOf({{"a", "b"}, {"b", "a"}, {"c", "x"}}), disk_, disk_, cancelling);
  EXPECT_TRUE(outcome.cancelled);
  ExpectUnchanged();
}

TEST(RenamePlanOnDisk, APlanIsShownAndThenCarriedOut) {
  const TempFolder folder;
  for (const char* const name : {"a", "b", "c", "d"}) folder.Write(name, name);
  const std::unique_ptr<FileReads> files = MakeFileReads();
  const std::unique_ptr<FileChanges> disk = MakeFileChanges();
  PlannedChanges plan(*files);
  Unwatched progress;
  std::vector<PlannedRename> lines;
  for (const auto& [from, to] : Names{{"a", "b"}, {"b", "a"}, {"c", "d"}, {"d", "e"}}) {
    lines.push_back({folder.At(from), folder.At(to)});
  }
  const auto steps = MakeRenamePlan(lines, *files);
  ASSERT_TRUE(steps.Ok());
  EXPECT_FALSE(CarryOut(*steps, plan, plan, progress).failedStep);
  EXPECT_EQ(folder.Read("a"), "a");
  EXPECT_FALSE(CarryOut(*steps, *disk, *disk, progress).failedStep);
  EXPECT_EQ(folder.Read("a") + folder.Read("b") + folder.Read("d") + folder.Read("e"), "bacd");
  EXPECT_FALSE(folder.Exists("c"));
}

class RenamePlanIgnoringCase : public RenamePlanTest {
 protected:
  RenamePlanIgnoringCase() : RenamePlanTest({PathStyle::kLinux, true}) {}
};

TEST_F(RenamePlanIgnoringCase, LetterCaseAloneCanChangeAlsoInACycle) {
  EXPECT_FALSE(Run(StepsOf({{"a", "A"}, {"b", "C"}, {"c", "B"}})).failedStep);
  EXPECT_THAT(disk_.NamesIn("/music"), testing::UnorderedElementsAre("A", "B", "C", "d"));
  EXPECT_EQ(disk_.BytesOf(At("a")), "content of a");
  EXPECT_EQ(disk_.BytesOf(At("b")), "content of c");
  EXPECT_EQ(disk_.BytesOf(At("c")), "content of b");
}

TEST_F(RenamePlanTest, TwoLinksToOneFileAreTwoFiles) {
  disk_.AddHardLink(At("A"), At("a"));
  EXPECT_THAT(ComplaintsAbout(Lines({{"a", "A"}})), ElementsAre(PlanComplaint{0, PlanProblem::kTargetExists}));
  EXPECT_EQ(StepsOf({{"a", "A"}, {"A", "a"}}).size(), 3U);
}

}  // namespace
}  // namespace quillon::test
