#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "platform/FileWorld.h"
#include "platform/RenameEntry.h"

namespace quillon::test {
namespace {

using testing::ElementsAre;

/// How a volume handles a rename that only changes letter case.
enum class CaseChange { kApart, kDone, kRefused, kPretended };

/// One folder, "/", that maps names to file numbers.
class Volume final : public EntryChanges {
 public:
  explicit Volume(CaseChange caseChange) : caseChange_(caseChange) {}

  void Add(const std::string& name, int file) { entries_[name] = file; }

  [[nodiscard]] std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& [name, file] : entries_) names.push_back(name);
    return names;
  }

  /// From now on renames to this path fail, except the first `successes` ones.
  void FailTo(const std::string& path, int number, int successes = 0) { failures_[path] = {number, successes}; }
  /// The next `count` temporary names are already taken.
  void TakeTemporaryNames(int count) { takenNames_ = count; }
  /// Calls `happens` just before the rename that follows `successes` renames.
  void Before(int successes, std::function<void(Volume&)> happens) { before_[successes + 1] = std::move(happens); }
  /// All renames after the first `successes` ones fail.
  void FailAfter(int successes, int number) { failAfter_ = {number, successes}; }

  [[nodiscard]] int Renames() const { return renames_; }
  [[nodiscard]] int Looks() const { return looks_; }
  [[nodiscard]] int Listings() const { return listings_; }

  FileOutcome RenameNoReplace(const std::string& from, const std::string& to) override {
    ++renames_;
    if (const auto found = before_.find(renames_); found != before_.end()) found->second(*this);
    if (to.starts_with("/.") && takenNames_-- > 0) return FileError{file_error::kAlreadyExists, "taken"};
    if (failAfter_.number != 0 && failAfter_.successes-- <= 0) return FileError{failAfter_.number, "injected"};
    if (const auto failure = failures_.find(to); failure != failures_.end() && failure->second.successes-- <= 0) {
      return FileError{failure->second.number, "injected"};
    }
    const auto source = Find(from);
    if (source == entries_.end()) return FileError{file_error::kNotFound, "absent"};
    const auto target = Find(to);
    if (target == source && caseChange_ == CaseChange::kPretended) return std::nullopt;
    const bool mayBeSame = target == source && caseChange_ == CaseChange::kDone;
    if (target != entries_.end() && !mayBeSame) return FileError{file_error::kAlreadyExists, "exists"};
    const int file = source->second;
    entries_.erase(source);
    entries_[to.substr(1)] = file;
    if (afterwards) afterwards();
    return std::nullopt;
  }

  FileOutcome Look(const std::string& path) override {
    ++looks_;
    return Find(path) == entries_.end() ? FileOutcome(FileError{file_error::kNotFound, "absent"}) : FileOutcome();
  }

  bool SameFile(const std::string& left, const std::string& right) override {
    const auto one = Find(left);
    const auto other = Find(right);
    return one != entries_.end() && other != entries_.end() && one->second == other->second;
  }

  bool HasOneName(const std::string& path) override {
    const auto found = Find(path);
    if (!countsNames || found == entries_.end()) return false;
    return std::count_if(entries_.begin(), entries_.end(),
                         [&](const auto& entry) { return entry.second == found->second; }) == 1;
  }

  std::function<void()> afterwards;  ///< called after every successful rename
  bool countsNames = false;          ///< whether the volume knows how many names a file has

  std::string ListedName(const std::string& path) override {
    ++listings_;
    const auto found = Find(path);
    return found == entries_.end() ? std::string() : found->first;
  }

 private:
  struct Failure {
    int number = 0;
    int successes = 0;
  };

  std::map<std::string, int>::iterator Find(const std::string& path) {
    const std::string name = path.substr(1);
    const auto exact = entries_.find(name);
    if (exact != entries_.end() || caseChange_ == CaseChange::kApart) return exact;
    auto entry = entries_.begin();
    while (entry != entries_.end() && !EqualIgnoringCase(entry->first, name)) ++entry;
    return entry;
  }

  CaseChange caseChange_;
  std::map<std::string, int> entries_;
  std::map<std::string, Failure> failures_;
  std::map<int, std::function<void(Volume&)>> before_;
  int takenNames_ = 0;
  Failure failAfter_;
  int renames_ = 0;
  int looks_ = 0;
  int listings_ = 0;
};

FileOutcome Rename(Volume& volume, const std::string& from, const std::string& to) {
  return RenameEntry(volume, "/" + from, "/" + to, PathStyle::kLinux);
}

int NumberOf(const FileOutcome& outcome) {
  return outcome ? outcome->number : 0;
}

TEST(RenameEntry, AnOrdinaryRenameNeedsOneCall) {
  Volume volume(CaseChange::kApart);
  volume.Add("old", 1);
  EXPECT_EQ(Rename(volume, "old", "new"), std::nullopt);
  EXPECT_EQ(volume.Renames(), 1);
  EXPECT_EQ(volume.Looks(), 0);
  EXPECT_EQ(volume.Listings(), 0);
}

TEST(RenameEntry, AnExistingTargetIsReportedWithoutFurtherCalls) {
  Volume volume(CaseChange::kRefused);
  volume.Add("old", 1);
  volume.Add("new", 2);
  EXPECT_EQ(NumberOf(Rename(volume, "old", "new")), file_error::kAlreadyExists);
  EXPECT_EQ(volume.Renames(), 1);
  EXPECT_EQ(volume.Looks() + volume.Listings(), 0);
}

TEST(RenameEntry, OnACaseSensitiveVolumeTheFolderIsNotRead) {
  Volume volume(CaseChange::kApart);
  volume.Add("song", 1);
  EXPECT_EQ(Rename(volume, "song", "SONG"), std::nullopt);
  EXPECT_EQ(volume.Renames(), 1);
  EXPECT_EQ(volume.Looks(), 1);
  EXPECT_EQ(volume.Listings(), 0);
}

TEST(RenameEntry, AChangeOfCaseWorksHoweverTheVolumeHandlesIt) {
  struct Row {
    const char* name;
    CaseChange caseChange;
    int renames;
  };
  for (const Row& row :
       {Row{"does it", CaseChange::kDone, 1}, Row{"takes the file for its obstacle", CaseChange::kRefused, 3},
        Row{"reports success and does nothing", CaseChange::kPretended, 3}}) {
    SCOPED_TRACE(row.name);
    Volume volume(row.caseChange);
    volume.Add("song", 1);
    EXPECT_EQ(Rename(volume, "song", "SONG"), std::nullopt);
    EXPECT_THAT(volume.Names(), ElementsAre("SONG"));
    EXPECT_EQ(volume.Renames(), row.renames);
  }
}

TEST(RenameEntry, TheFilesRealNameIsRecognisedHoweverTheCallerSpellsIt) {
  for (const CaseChange caseChange : {CaseChange::kDone, CaseChange::kRefused, CaseChange::kPretended}) {
    Volume volume(caseChange);
    volume.Add("Song", 1);
    EXPECT_EQ(Rename(volume, "SONG", "Song"), std::nullopt);
    EXPECT_THAT(volume.Names(), ElementsAre("Song"));
    EXPECT_EQ(volume.Renames(), 1);
  }
}

TEST(RenameEntry, HardLinksThatDifferInCaseAreTwoEntries) {
  Volume volume(CaseChange::kApart);
  volume.Add("song", 1);
  volume.Add("SONG", 1);
  EXPECT_EQ(NumberOf(Rename(volume, "song", "SONG")), file_error::kAlreadyExists);
  EXPECT_THAT(volume.Names(), ElementsAre("SONG", "song"));
  EXPECT_EQ(volume.Renames(), 1);
}

TEST(RenameEntry, AFileWithOneNameChangesItsCaseWithoutReadingTheFolder) {
  for (const CaseChange caseChange : {CaseChange::kDone, CaseChange::kRefused, CaseChange::kPretended}) {
    Volume volume(caseChange);
    volume.countsNames = true;
    volume.Add("song", 1);
    volume.Add("other", 2);
    EXPECT_EQ(Rename(volume, "song", "SONG"), std::nullopt);
    EXPECT_THAT(volume.Names(), ElementsAre("SONG", "other"));
    EXPECT_EQ(volume.Listings(), 0);
  }
}

TEST(RenameEntry, NeighboursThatDifferInCaseAreTwoEntriesWithoutReadingTheFolder) {
  Volume volume(CaseChange::kApart);
  volume.Add("song", 1);
  volume.Add("SONG", 2);
  EXPECT_EQ(NumberOf(Rename(volume, "song", "SONG")), file_error::kAlreadyExists);
  EXPECT_EQ(volume.Listings(), 0);
}

TEST(RenameEntry, AnotherFileThatDiffersInCaseIsNotReplaced) {
  Volume volume(CaseChange::kApart);
  volume.Add("song", 1);
  volume.Add("SONG", 2);
  volume.countsNames = true;
  EXPECT_EQ(NumberOf(Rename(volume, "song", "SONG")), file_error::kAlreadyExists);
  EXPECT_EQ(volume.Renames(), 1) << "nothing goes through a temporary name";
}

TEST(RenameEntry, AnotherProgramsNewFileAtTheOldNameIsNotMistakenForTheFile) {
  Volume volume(CaseChange::kApart);
  volume.Add("song", 1);
  volume.countsNames = true;
  // Another program immediately creates a file with the old name.
  volume.afterwards = [&volume] { volume.Add("song", 2); };
  EXPECT_EQ(Rename(volume, "song", "SONG"), std::nullopt);
  EXPECT_THAT(volume.Names(), ElementsAre("SONG", "song"));
  EXPECT_EQ(volume.Renames(), 1);
}

TEST(RenameEntry, ATakenTemporaryNameIsRetried) {
  for (const CaseChange caseChange : {CaseChange::kRefused, CaseChange::kPretended}) {
    Volume volume(caseChange);
    volume.Add("song", 1);
    volume.TakeTemporaryNames(3);
    EXPECT_EQ(Rename(volume, "song", "SONG"), std::nullopt);
    EXPECT_THAT(volume.Names(), ElementsAre("SONG"));
    EXPECT_EQ(volume.Renames(), 6);
  }
}

TEST(RenameEntry, WhereverItIsKilledTheFileHasOneName) {
  struct Killed {};
  for (const CaseChange caseChange : {CaseChange::kDone, CaseChange::kRefused, CaseChange::kPretended}) {
    for (int successes = 0; successes < 3; ++successes) {
      Volume volume(caseChange);
      volume.Add("song", 1);
      volume.Before(successes, [](Volume&) { throw Killed(); });
      const bool isReached = successes == 0 || caseChange != CaseChange::kDone;
      if (isReached) {
        EXPECT_THROW(static_cast<void>(Rename(volume, "song", "SONG")), Killed);
      } else {
        EXPECT_EQ(Rename(volume, "song", "SONG"), std::nullopt);
      }
      EXPECT_EQ(volume.Names().size(), 1U);
    }
  }
}

TEST(RenameEntry, WhenTheFirstOfTwoStepsFailsNothingHasHappened) {
  Volume volume(CaseChange::kRefused);
  volume.Add("song", 1);
  volume.FailAfter(1, file_error::kAccess);
  EXPECT_EQ(NumberOf(Rename(volume, "song", "SONG")), file_error::kAccess);
  EXPECT_THAT(volume.Names(), ElementsAre("song"));
}

TEST(RenameEntry, WhenTheSecondOfTwoStepsFailsTheFileGetsItsOldNameBack) {
  Volume volume(CaseChange::kPretended);
  volume.Add("song", 1);
  volume.FailTo("/SONG", file_error::kAccess, 1);
  EXPECT_EQ(NumberOf(Rename(volume, "song", "SONG")), file_error::kAccess);
  EXPECT_THAT(volume.Names(), ElementsAre("song"));
}

TEST(RenameEntry, AFileThatCannotGetItsOldNameBackIsNamedInTheErrorAndKeepsItsEnding) {
  for (const char* const ending : {"", ".mid"}) {
    Volume volume(CaseChange::kPretended);
    volume.Add(std::string("song") + ending, 1);
    volume.FailAfter(2, file_error::kAccess);
    const FileOutcome outcome = Rename(volume, std::string("song") + ending, std::string("SONG") + ending);
    ASSERT_TRUE(outcome);
    EXPECT_EQ(outcome->number, file_error::kStranded);
    ASSERT_EQ(volume.Names().size(), 1U);
    EXPECT_EQ(outcome->fileAt, "/" + volume.Names().front());
    EXPECT_THAT(outcome->fileAt, testing::EndsWith(ending));
  }
}

TEST(RenameEntry, RenamingToTheCurrentNameOnlyChecksTheFile) {
  Volume volume(CaseChange::kApart);
  volume.Add("song", 1);
  EXPECT_EQ(Rename(volume, "song", "song"), std::nullopt);
  EXPECT_EQ(volume.Renames(), 0);
  EXPECT_EQ(volume.Looks(), 1);
}

}  // namespace
}  // namespace quillon::test
