#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/FileWorld.h"
#include "platform/ReplaceContent.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

using testing::ElementsAre;

const std::string kPath = "/a/file.ini";

/// The state after a failed replacement.
enum class HalfWay {
  kBothStay,
  kOldIsGone,          ///< the new file still has its temporary name
  kOldIsNoLongerSeen,  ///< the path's status cannot be read
};

/// Maps paths to contents; calls can be made to fail.
class Volume final : public ReplaceSteps {
 public:
  std::map<std::string, std::string> files;
  std::set<std::string> failing;
  HalfWay halfWay = HalfWay::kBothStay;
  int collisions = 0;
  std::vector<std::string> calls;
  std::string temporary;

  FileOutcome Look(const std::string& path) override {
    if (failing.contains("look")) return FileError{file_error::kOwn + 5, "injected"};
    return files.contains(path) ? FileOutcome() : FileError{file_error::kNotFound, "absent"};
  }

  FileOutcome Write(const std::string& name, std::string_view bytes, const std::string& path) override {
    EXPECT_EQ(path, kPath);
    if (collisions-- > 0) return FileError{file_error::kAlreadyExists, "exists"};
    if (Fails("write")) return Injected();
    temporary = name;
    files[name] = bytes;
    return std::nullopt;
  }

  FileOutcome Replace(const std::string& from, const std::string& to) override {
    EXPECT_TRUE(files.contains(to));
    if (!Fails("replace")) return Move(from, to);
    if (halfWay == HalfWay::kOldIsGone) files.erase(to);
    if (halfWay == HalfWay::kOldIsNoLongerSeen) failing.insert("look");
    return Injected();
  }

  FileOutcome Publish(const std::string& from, const std::string& to) override {
    if (Fails("publish")) return Injected();
    if (files.contains(to)) return FileError{file_error::kAlreadyExists, "exists"};
    return Move(from, to);
  }

  FileOutcome FlushFolder(const std::string& folder) override {
    EXPECT_EQ(folder, "/a/");
    return Fails("flush") ? FileOutcome(Injected()) : std::nullopt;
  }

  FileOutcome Remove(const std::string& path) override {
    EXPECT_EQ(path, temporary) << "nothing else is this program's to delete";
    if (Fails("remove")) return Injected();
    files.erase(path);
    return std::nullopt;
  }

 private:
  bool Fails(const std::string& call) {
    calls.push_back(call);
    return failing.contains(call);
  }

  FileOutcome Move(const std::string& from, const std::string& to) {
    files[to] = files.at(from);
    files.erase(from);
    return std::nullopt;
  }

  static FileError Injected() { return {file_error::kAccess, "injected"}; }
};

using Files = std::map<std::string, std::string>;
const Files kOld = {{kPath, "old"}};
const Files kNew = {{kPath, "new"}};

FileOutcome Save(Volume& volume) {
  return ReplaceContent(volume, kPath, "new", PathStyle::kLinux);
}

TEST(ReplaceContent, ANewFileReplacesTheOldOneDurably) {
  Volume volume;
  volume.files = kOld;
  EXPECT_EQ(Save(volume), std::nullopt);
  EXPECT_EQ(volume.files, kNew);
  EXPECT_THAT(volume.calls, ElementsAre("write", "replace", "flush"));
  EXPECT_THAT(volume.temporary, testing::StartsWith("/a/."));
}

TEST(ReplaceContent, AFirstFileReplacesNothing) {
  Volume volume;
  EXPECT_EQ(Save(volume), std::nullopt);
  EXPECT_EQ(volume.files, kNew);
  EXPECT_THAT(volume.calls, ElementsAre("write", "publish", "flush"));
}

TEST(ReplaceContent, APathThatCannotBeCheckedIsNotChanged) {
  Volume volume;
  volume.files = kOld;
  volume.failing = {"look"};
  EXPECT_TRUE(Save(volume));
  EXPECT_EQ(volume.files, kOld);
  EXPECT_THAT(volume.calls, ElementsAre());
}

TEST(ReplaceContent, AfterAFailureTheOldFileStaysAndTheTemporaryGoes) {
  for (const char* call : {"write", "replace"}) {
    SCOPED_TRACE(call);
    Volume volume;
    volume.files = kOld;
    volume.failing = {call};
    const FileOutcome outcome = Save(volume);
    ASSERT_TRUE(outcome);
    EXPECT_EQ(outcome->description, "injected");
    EXPECT_EQ(volume.files, kOld);
  }
}

TEST(ReplaceContent, AFirstFileThatCannotBeRenamedIsDeleted) {
  Volume volume;
  volume.failing = {"publish"};
  EXPECT_TRUE(Save(volume));
  EXPECT_EQ(volume.files, Files());
}

TEST(ReplaceContent, WhenTheOldFileIsLostTheNewOneTakesItsPlace) {
  Volume volume;
  volume.files = kOld;
  volume.failing = {"replace"};
  volume.halfWay = HalfWay::kOldIsGone;
  EXPECT_EQ(Save(volume), std::nullopt);
  EXPECT_EQ(volume.files, kNew);
  EXPECT_THAT(volume.calls, ElementsAre("write", "replace", "publish", "flush"));
}

TEST(ReplaceContent, TheOnlyCopyIsNeverDeletedAndTheErrorNamesIt) {
  for (const HalfWay halfWay : {HalfWay::kOldIsGone, HalfWay::kOldIsNoLongerSeen}) {
    Volume volume;
    volume.files = kOld;
    volume.failing = {"replace", "publish"};
    volume.halfWay = halfWay;
    const FileOutcome outcome = Save(volume);
    ASSERT_TRUE(outcome);
    EXPECT_EQ(outcome->number, file_error::kStranded);
    EXPECT_EQ(outcome->fileAt, volume.temporary);
    EXPECT_EQ(volume.files[volume.temporary], "new");
  }
}

TEST(ReplaceContent, AnUnknownPathIsNotReplaced) {
  Volume volume;
  volume.files = kOld;
  volume.failing = {"replace"};
  volume.halfWay = HalfWay::kOldIsNoLongerSeen;
  EXPECT_TRUE(Save(volume));
  EXPECT_THAT(volume.calls, ElementsAre("write", "replace"));
}

TEST(ReplaceContent, ATemporaryFileThatCannotBeDeletedChangesNothingElse) {
  Volume volume;
  volume.files = kOld;
  volume.failing = {"replace", "remove"};
  const FileOutcome outcome = Save(volume);
  ASSERT_TRUE(outcome);
  EXPECT_EQ(outcome->number, file_error::kAccess);
  EXPECT_EQ(volume.files[kPath], "old");
}

TEST(ReplaceContent, ANameThatCannotBeMadeDurableIsAnError) {
  Volume volume;
  volume.files = kOld;
  volume.failing = {"flush"};
  EXPECT_TRUE(Save(volume));
  EXPECT_EQ(volume.files, kNew);
}

TEST(ReplaceContent, ATakenTemporaryNameIsRetried) {
  Volume volume;
  volume.files = kOld;
  volume.collisions = 3;
  EXPECT_EQ(Save(volume), std::nullopt);
  EXPECT_EQ(volume.files, kNew);
}

TEST(ReplaceContent, TakenTemporaryNamesAreRetriedALimitedNumberOfTimes) {
  Volume volume;
  volume.collisions = 1000000;
  const FileOutcome outcome = Save(volume);
  ASSERT_TRUE(outcome);
  EXPECT_EQ(outcome->number, file_error::kAlreadyExists);
}

int NumberOf(const FileOutcome& outcome) {
  return outcome ? outcome->number : 0;
}

TEST(ReplaceSteps, OnlyFilesAreSeen) {
  const TempFolder folder;
  const auto steps = MakeReplaceSteps();
  EXPECT_EQ(steps->Look(folder.Write("file")), std::nullopt);
  EXPECT_EQ(NumberOf(steps->Look(folder.At("absent"))), file_error::kNotFound);
  folder.MakeFolder("folder");
  EXPECT_EQ(NumberOf(steps->Look(folder.At("folder"))), file_error::kAccess);
}

TEST(ReplaceSteps, ATakenNameIsNotWrittenTo) {
  const TempFolder folder;
  const std::string taken = folder.Write("taken", "yours");
  const FileOutcome outcome = MakeReplaceSteps()->Write(taken, "mine", folder.At("file"));
  EXPECT_EQ(NumberOf(outcome), file_error::kAlreadyExists);
  EXPECT_EQ(folder.Read("taken"), "yours");
}

TEST(ReplaceSteps, GiveTheOldNameTheNewContent) {
  const TempFolder folder;
  const auto steps = MakeReplaceSteps();
  const std::string path = folder.Write("file", "old");
  EXPECT_EQ(steps->Write(folder.At("temporary"), "new", path), std::nullopt);
  EXPECT_EQ(folder.Read("temporary"), "new");
  EXPECT_EQ(folder.Read("file"), "old");
  EXPECT_EQ(steps->Replace(folder.At("temporary"), path), std::nullopt);
  EXPECT_EQ(folder.Read("file"), "new");
  EXPECT_FALSE(folder.Exists("temporary"));
  EXPECT_EQ(steps->Publish(path, folder.At("other")), std::nullopt);
  EXPECT_EQ(folder.Read("other"), "new");
  EXPECT_EQ(steps->Remove(folder.At("other")), std::nullopt);
  EXPECT_FALSE(folder.Exists("other"));
}

}  // namespace
}  // namespace quillon::test
