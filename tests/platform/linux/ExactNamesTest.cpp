#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <set>
#include <string>

#include "platform/FileSystem.h"
#include "platform/linux/ChildProcess.h"
#include "platform/linux/ExactNames.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

std::multiset<std::string> Names(const std::string& ended) {
  std::multiset<std::string> names;
  for (std::size_t start = 0; start < ended.size(); start = ended.find('\0', start) + 1) {
    names.insert(ended.substr(start, ended.find('\0', start) - start));
  }
  return names;
}

std::optional<ExactNames> NamesIn(const std::string& folder) {
  return MakeFileReads()->ExactNamesIn(folder);
}

TEST(ExactNames, EveryNameIsThereAndFilesAreToldFromTheRest) {
  const TempFolder folder;
  folder.Write("a.mid");
  folder.Write("A.mid");
  folder.Write(".hidden\xFF");
  folder.Write("below/b.mid");
  ASSERT_EQ(symlink("a.mid", folder.At("link.mid").c_str()), 0);
  ASSERT_EQ(symlink("nowhere", folder.At("dangling.mid").c_str()), 0);
  ASSERT_EQ(mkfifo(folder.At("pipe.mid").c_str(), 0600), 0);
  const std::optional<ExactNames> names = NamesIn(folder.Path());
  if (!names) GTEST_SKIP() << "the temporary folder is on a volume whose names may not be exact";
  EXPECT_EQ(Names(names->files), (std::multiset<std::string>{"a.mid", "A.mid", ".hidden\xFF"}));
  EXPECT_EQ(Names(names->others), (std::multiset<std::string>{"below", "link.mid", "dangling.mid", "pipe.mid"}));
}

TEST(ExactNames, NothingIsClaimedWithoutAProof) {
  const TempFolder folder;
  EXPECT_FALSE(NamesIn(folder.At("absent")));
  EXPECT_FALSE(NamesIn(folder.Write("file.mid")));
  EXPECT_FALSE(NamesIn(folder.Path() + std::string(1, '\0')));
  folder.Write("letterless/1");
  EXPECT_FALSE(NamesIn(folder.At("letterless"))) << "whether letter case counts was not to be seen";
  EXPECT_FALSE(NamesIn("/proc/self")) << "not a volume of files";
}

TEST(ExactNames, AFolderThatCannotBeSearchedHasNone) {
  const TempFolder folder;
  folder.Write("closed/a.mid");
  ASSERT_EQ(chmod(folder.Path().c_str(), 0755), 0);
  const auto claimed = [&] { return RunAsOrdinaryUser([&] { return NamesIn(folder.At("closed")) ? 1 : 0; }); };
  const int open = claimed();
  EXPECT_EQ(open, NamesIn(folder.At("closed")) ? 1 : 0);
  ASSERT_EQ(chmod(folder.At("closed").c_str(), 0744), 0);
  EXPECT_EQ(claimed(), 0);
}

TEST(ExactNames, LetterCaseIsTriedOnTheFirstNameWithALetter) {
  const auto ended = [](const std::string& name) { return name + std::string(1, '\0'); };
  const ExactNames names = {ended("12") + ended("3.Mid"), ended("x")};
  std::string tried;
  const auto answer = [&](std::optional<bool> there) {
    return [&tried, there](const std::string& name) {
      tried = name;
      return there;
    };
  };
  EXPECT_TRUE(TellsLetterCaseApart(names, answer(false)));
  EXPECT_EQ(tried, "3.mid");
  EXPECT_FALSE(TellsLetterCaseApart(names, answer(true))) << "the same entry in another letter case";
  EXPECT_FALSE(TellsLetterCaseApart(names, answer(std::nullopt))) << "no answer";
  const ExactNames both = {ended("3.Mid"), ended("3.mid")};
  EXPECT_TRUE(TellsLetterCaseApart(both, answer(true))) << "two entries";
  const ExactNames longer = {ended("3.Mid"), ended("13.mid") + ended("3.mid4")};
  EXPECT_FALSE(TellsLetterCaseApart(longer, answer(true))) << "parts of other names are none of its";
  EXPECT_FALSE(TellsLetterCaseApart({ended("12"), ended("あ")}, answer(false))) << "nothing to try";
}

}  // namespace
}  // namespace quillon::test
