#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>

#include "platform/FileWorld.h"
#include "platform/MoveByCopying.h"

namespace quillon::test {
namespace {

enum class Step { kNone, kOpenSource, kCopy, kPublish, kFlushFolder, kRemoveSource };

/// How much of a failing step is carried out: nothing, half (of a rename in two steps), or everything.
enum class Extent { kNothing, kHalf, kAll };

/// Thrown to simulate that the program is killed.
struct Killed {};

constexpr const char* kSource = "/a/song";
constexpr const char* kTemporary = "/b/.temporary";
constexpr const char* kTarget = "/b/song";

/// Files by path, each with a text. A different text means a modified file; a text that begins with "other" means
/// another file. One step can be made to fail, and a function can be called just before a step.
class TwoVolumes final : public CopySteps {
 public:
  using Files = std::map<std::string, std::string>;

  Files files = {{kSource, "content"}};
  Step failing = Step::kNone;
  Extent failsAfter = Extent::kNothing;
  bool dies = false;  ///< the program is killed at the failing step
  std::map<Step, std::function<void(Files&)>> before;
  bool copyMayGo = true;
  bool sourceIsOutOfSight = false;  ///< its status cannot be read
  NotKept notKept;
  int copies = 0;

  FileOutcome Look(const std::string& path) override { return Outcome(files.contains(path)); }

  FileOutcome OpenSource(const std::string& from) override {
    if (Fails(Step::kOpenSource)) return Injected();
    if (!files.contains(from)) return FileError{file_error::kNotFound, "absent"};
    opened_ = files.at(from);
    return std::nullopt;
  }

  MoveOutcome CopyInto(const std::string& folder) override {
    EXPECT_EQ(folder, "/b/");
    const bool fails = Fails(Step::kCopy);
    if (fails && failsAfter == Extent::kNothing) return Injected();
    ++copies;
    files[kTemporary] = failsAfter == Extent::kHalf && fails ? opened_.substr(0, 3) : opened_;
    if (fails) return Injected();
    return notKept;
  }

  [[nodiscard]] std::string Temporary() const override { return kTemporary; }

  FileOutcome Publish(const std::string& to) override {
    const bool fails = Fails(Step::kPublish);
    if (fails && failsAfter == Extent::kNothing) return Injected();
    if (files.contains(to)) return FileError{file_error::kAlreadyExists, "exists"};
    files[to] = files.at(kTemporary);
    if (!fails || failsAfter == Extent::kAll) files.erase(kTemporary);
    return Outcome(!fails);
  }

  FileOutcome FlushFolder(const std::string& folder) override {
    EXPECT_EQ(folder, "/b/");
    return Outcome(!Fails(Step::kFlushFolder));
  }

  SourceNow LookAtSource() override {
    if (sourceIsOutOfSight) return SourceNow::kUnknown;
    const auto found = files.find(kSource);
    if (found == files.end()) return SourceNow::kGone;
    if (found->second == opened_) return SourceNow::kUnchanged;
    return found->second.starts_with("other") ? SourceNow::kReplaced : SourceNow::kModified;
  }

  FileOutcome RemoveSource() override {
    const bool fails = Fails(Step::kRemoveSource);
    if (!fails || failsAfter == Extent::kAll) files.erase(kSource);
    return Outcome(!fails);
  }

  FileOutcome RemoveCopy(const std::string& path) override {
    const auto found = files.find(path);
    if (found == files.end() || found->second.starts_with("other")) return std::nullopt;
    if (!copyMayGo) return Injected();
    files.erase(found);
    return std::nullopt;
  }

 private:
  FileError Injected() const {
    if (dies) throw Killed();
    return {file_error::kAccess, "injected"};
  }
  [[nodiscard]] FileOutcome Outcome(bool succeeded) const {
    return succeeded ? FileOutcome() : FileOutcome(Injected());
  }

  bool Fails(Step step) {
    if (const auto found = before.find(step); found != before.end()) found->second(files);
    return failing == step;
  }

  std::string opened_;
};

using Files = TwoVolumes::Files;

MoveOutcome MoveSong(TwoVolumes& volumes) {
  return MoveByCopying(volumes, kSource, kTarget, PathStyle::kLinux);
}

FileError FailureOf(TwoVolumes& volumes) {
  const MoveOutcome outcome = MoveSong(volumes);
  return outcome ? FileError() : outcome.Failure();
}

const Files kBefore = {{kSource, "content"}};
const Files kAfter = {{kTarget, "content"}};

TEST(MoveByCopying, TheFileIsAtTheNewPathOnly) {
  TwoVolumes volumes;
  const MoveOutcome outcome = MoveSong(volumes);
  ASSERT_TRUE(outcome);
  EXPECT_EQ(*outcome, NotKept());
  EXPECT_EQ(volumes.files, kAfter);
}

TEST(MoveByCopying, SaysWhatTheCopyCouldNotKeep) {
  TwoVolumes volumes;
  volumes.notKept.times = true;
  const MoveOutcome outcome = MoveSong(volumes);
  ASSERT_TRUE(outcome);
  EXPECT_EQ(*outcome, NotKept{true});
}

TEST(MoveByCopying, OnAnyFailureTheSourceStaysAndTheCopyGoes) {
  for (const Step step : {Step::kOpenSource, Step::kCopy, Step::kPublish, Step::kFlushFolder, Step::kRemoveSource}) {
    SCOPED_TRACE(static_cast<int>(step));
    TwoVolumes volumes;
    volumes.failing = step;
    const FileError failure = FailureOf(volumes);
    EXPECT_EQ(failure.number, file_error::kAccess);
    EXPECT_EQ(failure.fileAt, "");
    EXPECT_EQ(volumes.files, kBefore);
  }
}

TEST(MoveByCopying, AnExistingTargetStaysAndNothingIsCopied) {
  TwoVolumes volumes;
  volumes.files[kTarget] = "yours";
  const Files before = volumes.files;
  EXPECT_EQ(FailureOf(volumes).number, file_error::kAlreadyExists);
  EXPECT_EQ(volumes.files, before);
  EXPECT_EQ(volumes.copies, 0);
}

TEST(MoveByCopying, AnAbsentSourceIsNotFound) {
  TwoVolumes volumes;
  volumes.files.clear();
  EXPECT_EQ(FailureOf(volumes).number, file_error::kNotFound);
}

TEST(MoveByCopying, ASourceThatChangesUntilTheLastMomentStaysAndSoDoesTheCopy) {
  for (const Step moment : {Step::kCopy, Step::kPublish, Step::kFlushFolder, Step::kRemoveSource}) {
    for (const char* const now : {"content and more", "other content"}) {
      SCOPED_TRACE(now + std::to_string(static_cast<int>(moment)));
      TwoVolumes volumes;
      volumes.before[moment] = [now](Files& files) { files[kSource] = now; };
      if (moment == Step::kRemoveSource) volumes.failing = moment;  // a deletion that checks the source itself
      const FileError failure = FailureOf(volumes);
      EXPECT_EQ(failure.number, file_error::kBothKept);
      EXPECT_EQ(failure.fileAt, kTarget);
      EXPECT_EQ(volumes.files, Files({{kSource, now}, {kTarget, "content"}}));
    }
  }
}

TEST(MoveByCopying, ASourceThatWasDeletedMeanwhileIsASuccess) {
  for (const Step moment : {Step::kCopy, Step::kPublish, Step::kFlushFolder}) {
    TwoVolumes volumes;
    volumes.before[moment] = [](Files& files) { files.erase(kSource); };
    EXPECT_TRUE(MoveSong(volumes));
    EXPECT_EQ(volumes.files, kAfter);
  }
}

TEST(MoveByCopying, ADeletionThatHappenedButReportsAFailureIsASuccess) {
  TwoVolumes volumes;
  volumes.failing = Step::kRemoveSource;
  volumes.failsAfter = Extent::kAll;
  EXPECT_TRUE(MoveSong(volumes));
  EXPECT_EQ(volumes.files, kAfter);
}

TEST(MoveByCopying, TheOnlyCopyIsNeverDeleted) {
  struct Row {
    const char* name;
    Step failing;
    const char* leftAt;
    std::function<void(Files&)> happens;
    Files after;
  };
  const auto deleted = [](Files& files) { files.erase(kSource); };
  const auto replaced = [](Files& files) { files[kSource] = "other"; };
  for (const Row& row :
       {Row{"deleted, no new name", Step::kPublish, kTemporary, deleted, {{kTemporary, "content"}}},
        Row{"deleted, no flush", Step::kFlushFolder, kTarget, deleted, kAfter},
        Row{"replaced, no new name",
            Step::kPublish,
            kTemporary,
            replaced,
            {{kSource, "other"}, {kTemporary, "content"}}},
        Row{"replaced, no flush", Step::kFlushFolder, kTarget, replaced, {{kSource, "other"}, {kTarget, "content"}}}}) {
    SCOPED_TRACE(row.name);
    TwoVolumes volumes;
    volumes.failing = row.failing;
    volumes.before[row.failing] = row.happens;
    const FileError failure = FailureOf(volumes);
    EXPECT_EQ(failure.number, file_error::kStranded);
    EXPECT_EQ(failure.fileAt, row.leftAt);
    EXPECT_EQ(volumes.files, row.after);
  }
}

/// Expects the move to fail at this step (or without a failing step), leaving the copy where it was at that time.
void ExpectACopyThatStays(TwoVolumes& volumes, Step step) {
  volumes.failing = step;
  const FileError failure = FailureOf(volumes);
  EXPECT_EQ(failure.number, file_error::kBothKept);
  EXPECT_EQ(failure.fileAt, step == Step::kPublish ? kTemporary : kTarget);
  EXPECT_EQ(volumes.files.at(kSource), "content");
  EXPECT_EQ(volumes.files.at(failure.fileAt), "content");
}

TEST(MoveByCopying, ACopyWhoseSourceCannotBeCheckedStays) {
  for (const Step step : {Step::kNone, Step::kPublish, Step::kFlushFolder}) {
    TwoVolumes volumes;
    volumes.sourceIsOutOfSight = true;
    ExpectACopyThatStays(volumes, step);
  }
}

TEST(MoveByCopying, AnotherProgramsFileAtTheNewNameIsKept) {
  TwoVolumes volumes;
  volumes.failing = Step::kRemoveSource;
  volumes.before[Step::kRemoveSource] = [](Files& files) { files[kTarget] = "other"; };
  EXPECT_EQ(FailureOf(volumes).number, file_error::kAccess);
  EXPECT_EQ(volumes.files, Files({{kSource, "content"}, {kTarget, "other"}}));
}

TEST(MoveByCopying, ANewNameThatWasGivenDespiteAFailureIsRemoved) {
  TwoVolumes volumes;
  volumes.failing = Step::kPublish;
  volumes.failsAfter = Extent::kAll;
  EXPECT_EQ(FailureOf(volumes).number, file_error::kAccess);
  EXPECT_EQ(volumes.files, kBefore);
}

TEST(MoveByCopying, WhereverItIsKilledTheContentIsCompleteAndNoPartHasAFinalName) {
  for (const Step step : {Step::kOpenSource, Step::kCopy, Step::kPublish, Step::kFlushFolder, Step::kRemoveSource}) {
    for (const Extent extent : {Extent::kNothing, Extent::kHalf, Extent::kAll}) {
      SCOPED_TRACE(std::to_string(static_cast<int>(step)) + std::to_string(static_cast<int>(extent)));
      TwoVolumes volumes;
      volumes.failing = step;
      volumes.failsAfter = extent;
      volumes.dies = true;
      EXPECT_THROW(static_cast<void>(MoveSong(volumes)), Killed);
      EXPECT_TRUE(volumes.files.contains(kSource) || volumes.files.contains(kTarget));
      for (const char* const name : {kSource, kTarget}) {
        const auto found = volumes.files.find(name);
        EXPECT_TRUE(found == volumes.files.end() || found->second == "content") << name;
      }
    }
  }
}

TEST(MoveByCopying, ACopyWithBothNamesIsReportedByItsNewOne) {
  TwoVolumes volumes;
  volumes.failing = Step::kPublish;
  volumes.failsAfter = Extent::kHalf;
  volumes.copyMayGo = false;
  const FileError failure = FailureOf(volumes);
  EXPECT_EQ(failure.number, file_error::kBothKept);
  EXPECT_EQ(failure.fileAt, kTarget);
}

TEST(MoveByCopying, ACopyThatCannotBeDeletedIsReported) {
  for (const Step step : {Step::kPublish, Step::kFlushFolder, Step::kRemoveSource}) {
    TwoVolumes volumes;
    volumes.copyMayGo = false;
    ExpectACopyThatStays(volumes, step);
  }
}

}  // namespace
}  // namespace quillon::test
