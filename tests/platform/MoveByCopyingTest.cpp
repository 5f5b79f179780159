#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "platform/FileWorld.h"
#include "platform/MoveByCopying.h"

namespace quillon::test {
namespace {

enum class Step { kNone, kCopy, kPublish, kFlushFolder, kRemoveSource };

/// Files by path; one step can be made to fail.
class TwoVolumes final : public CopySteps {
 public:
  std::map<std::string, std::string> files;
  Step failing = Step::kNone;
  int collisions = 0;
  std::string temporary;

  FileOutcome Look(const std::string& path) override {
    return files.contains(path) ? FileOutcome() : FileOutcome(FileError{file_error::kNotFound, "absent"});
  }

  FileOutcome Copy(const std::string& from, const std::string& to) override {
    if (failing == Step::kCopy) return Injected();
    if (collisions-- > 0) return FileError{file_error::kAlreadyExists, "exists"};
    temporary = to;
    files[to] = files.at(from);
    return std::nullopt;
  }

  FileOutcome Publish(const std::string& from, const std::string& to) override {
    if (failing == Step::kPublish) return Injected();
    if (files.contains(to)) return FileError{file_error::kAlreadyExists, "exists"};
    files[to] = files.at(from);
    files.erase(from);
    return std::nullopt;
  }

  FileOutcome FlushFolder(const std::string& folder) override {
    EXPECT_EQ(folder, "/b/");
    return failing == Step::kFlushFolder ? FileOutcome(Injected()) : FileOutcome();
  }

  FileOutcome Remove(const std::string& path) override {
    if (failing == Step::kRemoveSource && path == "/a/song") return Injected();
    files.erase(path);
    return std::nullopt;
  }

 private:
  static FileError Injected() { return {file_error::kAccess, "injected"}; }
};

FileOutcome MoveSong(TwoVolumes& volumes) {
  return MoveByCopying(volumes, "/a/song", "/b/song", PathStyle::kLinux);
}

const std::map<std::string, std::string> kBefore = {{"/a/song", "content"}};
const std::map<std::string, std::string> kAfter = {{"/b/song", "content"}};

TEST(MoveByCopying, TheFileIsThereAndNoLongerHere) {
  TwoVolumes volumes;
  volumes.files = kBefore;
  EXPECT_EQ(MoveSong(volumes), std::nullopt);
  EXPECT_EQ(volumes.files, kAfter);
}

TEST(MoveByCopying, TheCopyIsMadeUnderAHiddenNameInTheTargetFolder) {
  TwoVolumes volumes;
  volumes.files = kBefore;
  EXPECT_EQ(MoveSong(volumes), std::nullopt);
  EXPECT_THAT(volumes.temporary, testing::StartsWith("/b/."));
}

TEST(MoveByCopying, OnAnyFailureTheSourceStaysAndTheCopyGoes) {
  for (const Step step : {Step::kCopy, Step::kPublish, Step::kFlushFolder, Step::kRemoveSource}) {
    SCOPED_TRACE(static_cast<int>(step));
    TwoVolumes volumes;
    volumes.files = kBefore;
    volumes.failing = step;
    const FileOutcome outcome = MoveSong(volumes);
    ASSERT_TRUE(outcome);
    EXPECT_EQ(outcome->number, file_error::kAccess);
    EXPECT_EQ(volumes.files, kBefore);
  }
}

TEST(MoveByCopying, AnExistingTargetStaysAndNothingIsCopied) {
  TwoVolumes volumes;
  volumes.files = {{"/a/song", "mine"}, {"/b/song", "yours"}};
  const auto before = volumes.files;
  const FileOutcome outcome = MoveSong(volumes);
  ASSERT_TRUE(outcome);
  EXPECT_EQ(outcome->number, file_error::kAlreadyExists);
  EXPECT_EQ(volumes.files, before);
  EXPECT_EQ(volumes.temporary, "");
}

TEST(MoveByCopying, AnAbsentSourceIsNotFound) {
  TwoVolumes volumes;
  const FileOutcome outcome = MoveSong(volumes);
  ASSERT_TRUE(outcome);
  EXPECT_EQ(outcome->number, file_error::kNotFound);
}

TEST(MoveByCopying, ATakenTemporaryNameIsNotTheEnd) {
  TwoVolumes volumes;
  volumes.files = kBefore;
  volumes.collisions = 3;
  EXPECT_EQ(MoveSong(volumes), std::nullopt);
  EXPECT_EQ(volumes.files, kAfter);
}

}  // namespace
}  // namespace quillon::test
