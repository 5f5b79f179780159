// How little of the disk is asked for, where a folder's listing answers for its names.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <utility>

#include "rename/PlannedChanges.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

/// The real disk; counts what it is asked.
class CountedReads final : public FileReads {
 public:
  Result<std::vector<FolderEntry>, FileError> ReadFolder(const std::string& folder) override {
    ++foldersRead;
    return files_->ReadFolder(folder);
  }
  std::string RealPath(const std::string& folder) override { return files_->RealPath(folder); }
  std::unique_ptr<ByteSource> OpenFile(const std::string& path) override { return files_->OpenFile(path); }
  Result<FileStatus, FileError> Status(const std::string& path) override {
    ++statuses;
    return files_->Status(path);
  }
  std::optional<ExactNames> ExactNamesIn(const std::string& folder) override {
    ++listings;
    return exact ? files_->ExactNamesIn(folder) : std::nullopt;
  }
  bool SameFile(const std::string& left, const std::string& right) override { return files_->SameFile(left, right); }
  Result<FileIdentity, FileError> Identity(const std::string& path) override { return files_->Identity(path); }
  NameUnit NameUnitOf(const std::string& folder) override { return files_->NameUnitOf(folder); }

  bool exact = true;
  int statuses = 0;
  int listings = 0;
  int foldersRead = 0;

 private:
  std::unique_ptr<FileReads> files_ = MakeFileReads();
};

bool NamesAreExact(const test::TempFolder& folder) {
  return MakeFileReads()->ExactNamesIn(folder.Path()).has_value();
}

TEST(PlannedChangesAsk, ForAFewFilesTheDiskAlone) {
  const test::TempFolder folder;
  CountedReads files;
  PlannedChanges planned(files);
  for (const char* const name : {"1", "2", "3", "4", "5", "6", "7", "8"}) {
    EXPECT_FALSE(planned.Rename(folder.Write(name), folder.At(std::string("to ") + name)));
  }
  EXPECT_EQ(files.statuses, 16);
  EXPECT_EQ(files.listings, 0);
}

TEST(PlannedChangesAsk, ForManyFilesTheFolderOnce) {
  const test::TempFolder folder;
  for (int i = 0; i < 50; ++i) folder.Write(std::to_string(i) + ".mid");
  if (!NamesAreExact(folder)) GTEST_SKIP() << "the temporary folder is on a volume whose names may not be exact";
  CountedReads files;
  PlannedChanges planned(files);
  for (int i = 0; i < 50; ++i) {
    const std::string name = std::to_string(i);
    EXPECT_FALSE(planned.Rename(folder.At(name + ".mid"), folder.At("title " + name + ".mid")));
  }
  EXPECT_EQ(planned.Rename(folder.At("title 1.mid"), folder.At("title 2.mid"))->number, file_error::kAlreadyExists);
  EXPECT_EQ(planned.Rename(folder.At("1.mid"), folder.At("x.mid"))->number, file_error::kNotFound);
  EXPECT_FALSE(planned.Rename(folder.At("title 2.mid"), folder.At("1.mid"))) << "freed names are free";
  EXPECT_EQ(files.statuses, 16) << "for eight files";
  EXPECT_EQ(files.listings, 1);
  EXPECT_EQ(files.foldersRead, 0);
}

TEST(PlannedChangesAsk, ForEachNameWhereAListingDoesNotTell) {
  const test::TempFolder folder;
  for (int i = 0; i < 10; ++i) folder.Write(std::to_string(i) + ".mid");
  CountedReads files;
  files.exact = false;
  PlannedChanges planned(files);
  for (int i = 0; i < 10; ++i) {
    const std::string name = std::to_string(i);
    EXPECT_FALSE(planned.Rename(folder.At(name + ".mid"), folder.At("title " + name + ".mid")));
  }
  EXPECT_EQ(files.statuses, 20);
  EXPECT_EQ(files.listings, 1) << "asking again would not help";
}

TEST(PlannedChangesAsk, AndAnswerTheSameWithAListingAndWithout) {
  const test::TempFolder folder;
  for (const char* const name : {"1.mid", "2.mid", "3.mid", "4.mid", "5.mid", "6.mid", "7.mid"}) folder.Write(name);
  ASSERT_EQ(symlink("nowhere", folder.At("dangling.mid").c_str()), 0);
  ASSERT_EQ(symlink("circle.mid", folder.At("circle.mid").c_str()), 0);
  ASSERT_EQ(mkfifo(folder.At("pipe.mid").c_str(), 0600), 0);
  std::filesystem::create_directory(folder.At("folder.mid"));
  const std::pair<std::string, std::string> renames[] = {{"1.mid", "one.mid"},
                                                         {"2.mid", "two.mid"},
                                                         {"3.mid", "dangling.mid"},
                                                         {"3.mid", "pipe.mid"},
                                                         {"3.mid", "folder.mid"},
                                                         {"3.mid", "circle.mid"},
                                                         {"3.mid", "4.mid"},
                                                         {"3.mid", "1.mid"},
                                                         {"4.mid", std::string(255, 'x')},
                                                         {"5.mid", std::string(256, 'x')},
                                                         {"5.mid", "nul" + std::string(1, '\0')},
                                                         {"5.mid", "."},
                                                         {"5.mid", ".."},
                                                         {"missing.mid", "x.mid"},
                                                         {"5.mid", "5.MID"},
                                                         {"circle.mid", "c.mid"},
                                                         {"dangling.mid", "d.mid"},
                                                         {"6.mid", "no/6.mid"},
                                                         {"6.mid", "folder.mid/6.mid"},
                                                         {"7.mid", std::string(5000, '/') + "7.mid"}};
  CountedReads exact;
  CountedReads asked;
  asked.exact = false;
  PlannedChanges one(exact);
  PlannedChanges other(asked);
  for (int i = 0; exact.listings == 0 && i < 100; ++i) {
    EXPECT_TRUE(one.Rename(folder.At("absent " + std::to_string(i)), folder.At("x")));
  }
  ASSERT_EQ(exact.listings, 1);
  for (const auto& [from, to] : renames) {
    SCOPED_TRACE(from + " -> " + to.substr(0, 20));
    const FileOutcome expected = other.Rename(folder.At(from), folder.At(to));
    const FileOutcome outcome = one.Rename(folder.At(from), folder.At(to));
    ASSERT_EQ(outcome.has_value(), expected.has_value());
    EXPECT_EQ(outcome.value_or(FileError{}).number, expected.value_or(FileError{}).number);
  }
  EXPECT_GT(asked.statuses, exact.statuses);
}

}  // namespace
}  // namespace quillon
