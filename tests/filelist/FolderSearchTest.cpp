#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "filelist/FolderSearch.h"
#include "support/MemoryFileSystem.h"
#include "support/Paths.h"
#include "support/RecordedProgress.h"

namespace quillon {
namespace {

using test::FileCall;
using test::ListOf;
using test::MemoryFileSystem;
using test::PathsOf;
using Passed = std::vector<PassedOver>;
using Texts = std::vector<std::string>;

constexpr PathStyle kWin = PathStyle::kWindows;
constexpr PathStyle kLin = PathStyle::kLinux;

struct Fixture {
  MemoryFileSystem files;
  test::PendingRecorder pending;
  test::RecordedProgress progress{pending};
  FolderSearch search;

  explicit Fixture(PathStyle style = kLin) : files({style, style == kWin}), search(files, progress, style) {}

  void Add(const Texts& paths) {
    for (const std::string& path : paths) files.AddFile(path);
  }
};

TEST(SearchFilter, JoinsTheListsOfTheEnabledGroups) {
  OptionValues::Find find;
  find.media.extensions = "mid mp3";
  find.html.extensions = "htm";
  find.text.extensions = "txt doc";
  find.other.extensions = "xyz";
  struct Case {
    const char* name;
    bool filter, music, html, text, etc;
    std::string expected;
  };
  const std::vector<Case> cases = {
      {"filter off", false, true, true, true, true, ""},
      {"no group", true, false, false, false, false, ""},
      {"one group", true, false, false, true, false, "txt doc"},
      {"two groups", true, true, false, false, true, "mid mp3 xyz"},
      {"all", true, true, true, true, true, "mid mp3 htm txt doc xyz"},
  };
  for (const Case& c : cases) {
    find.filterByExtension = c.filter;
    find.media.on = c.music;
    find.html.on = c.html;
    find.text.on = c.text;
    find.other.on = c.etc;
    EXPECT_EQ(SearchFilter(find), c.expected) << c.name;
  }
}

TEST(SearchFilter, AGroupWithoutExtensionsAddsNoEmptyEntry) {
  OptionValues::Find find;
  find.html.on = true;
  find.other.on = true;
  find.html.extensions = "";
  find.media.extensions = "mid";
  find.other.extensions = "xyz";
  EXPECT_EQ(SearchFilter(find), "mid xyz");
}

TEST(IsInRecycleBin, KnowsTheFoldersOfBothSystems) {
  struct Case {
    const char* name;
    PathStyle style;
    std::string path;
    bool inside;
  };
  const std::vector<Case> cases = {
      {"old", kWin, "C:\\RECYCLED\\a.mid", true},
      {"old, lower case", kWin, "d:\\recycled\\a.mid", true},
      {"today's", kWin, "C:\\$Recycle.Bin\\S-1-5\\a.mid", true},
      {"not at the drive's top", kWin, "C:\\m\\recycled\\a.mid", false},
      {"no drive", kWin, "\\recycled\\a.mid", false},
      {"other file", kWin, "C:\\m\\a.mid", false},
      {"user's", kLin, "/home/u/.local/share/Trash/files/a.mid", true},
      {"another user's", kLin, "/home/v/.local/share/Trash/files/a.mid", false},
      {"volume's", kLin, "/mnt/usb/.Trash-1000/files/a.mid", true},
      {"volume's for all", kLin, "/mnt/usb/.Trash/1000/a.mid", true},
      {"a file of that name", kLin, "/m/.Trash", false},
      {"a longer name", kLin, "/m/.Trashy/a.mid", false},
      {"no number", kLin, "/m/.Trash-/a.mid", false},
      {"no number either", kLin, "/m/.Trash-x/a.mid", false},
      {"no dot", kLin, "/m/Trash/a.mid", false},
      {"today's Windows folder on Linux", kLin, "/m/$Recycle.Bin/a.mid", false},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(IsInRecycleBin(c.path, "/home/u/.local/share/Trash/", c.style), c.inside) << c.name;
  }
  EXPECT_FALSE(IsInRecycleBin("/m/a.mid", "", kLin)) << "no trash folder is known";
}

TEST(FolderSearch, ListsAFoldersOwnFilesThenThoseOfItsSubFoldersByName) {
  Fixture f;
  f.Add({"/m/b.mid", "/m/C.mid", "/m/a.mid", "/m/y/1.mid", "/m/X/2.mid", "/m/X/deep/3.mid", "/m/X/0.mid", "/n/z.mid"});
  EXPECT_EQ(PathsOf(f.search.Search("/m/", "", true).paths),
            Texts({"/m/a.mid", "/m/b.mid", "/m/C.mid", "/m/X/0.mid", "/m/X/2.mid", "/m/X/deep/3.mid", "/m/y/1.mid"}));
}

TEST(FolderSearch, WritesWindowsPathsWithBackslashes) {
  Fixture f(kWin);
  f.Add({"C:\\m\\a.mid", "C:\\m\\X\\b.mid"});
  EXPECT_EQ(PathsOf(f.search.Search("C:\\m", "", true).paths), Texts({"C:\\m\\a.mid", "C:\\m\\X\\b.mid"}));
}

TEST(FolderSearch, LooksIntoSubFoldersOnlyWhenWanted) {
  Fixture f;
  f.Add({"/m/a.mid", "/m/x/b.mid"});
  const FoundFiles found = f.search.Search("/m", "", false);
  EXPECT_EQ(PathsOf(found.paths), Texts({"/m/a.mid"}));
  EXPECT_FALSE(found.cancelled);
  EXPECT_FALSE(found.error);
  EXPECT_EQ(f.files.CountOf(FileCall::kReadFolder), 1u);
}

TEST(FolderSearch, TakesWhatPassesTheFilter) {
  struct Case {
    const char* name;
    std::string filter;
    Texts expected;
  };
  const std::vector<Case> cases = {
      {"everything, files without extension too", "", {"/m/A.MID", "/m/b.mp3", "/m/c", "/m/d.midi"}},
      {"one", "mid", {"/m/A.MID"}},
      {"several, any case", "MP3 midi", {"/m/b.mp3", "/m/d.midi"}},
      {"none matches", "wav", {}},
      {"an empty entry takes files without extension", "mp3  mid", {"/m/A.MID", "/m/b.mp3", "/m/c"}},
  };
  for (const Case& c : cases) {
    Fixture f;
    f.Add({"/m/A.MID", "/m/b.mp3", "/m/c", "/m/d.midi"});
    EXPECT_EQ(PathsOf(f.search.Search("/m/", c.filter, false).paths), c.expected) << c.name;
  }
}

TEST(FolderSearch, CountsWhatItLeavesOut) {
  Fixture f;
  f.Add({"/m/a.mid", "/m/b.txt", "/m/x/c.mid", "/m/x/d.txt", "/m/x/y/e.txt", "/m/z/f.mid"});
  const FoundFiles own = f.search.Search("/m/", "mid", false);
  EXPECT_EQ(own.otherFiles, 1u);
  EXPECT_EQ(own.unsearchedFolders, 2u);
  const FoundFiles all = f.search.Search("/m/", "mid", true);
  EXPECT_EQ(all.otherFiles, 3u);
  EXPECT_EQ(all.unsearchedFolders, 0u);
}

TEST(LeaveOutRecycleBin, CountsTheFilesThere) {
  FoundFiles found;
  found.paths = ListOf({"/m/a", "/m/.Trash/b", "/m/.Trash-1000/files/c", "/m/.Trash-1000/files/d", "/m/e"}, kLin);
  LeaveOutRecycleBin(found, kLin);
  EXPECT_EQ(PathsOf(found.paths), Texts({"/m/a", "/m/e"}));
  EXPECT_EQ(found.inRecycleBin, 3u);
}

TEST(LeaveOutRecycleBin, LooksAtTheNamesOfFilesDirectlyOnADrive) {
  FoundFiles found;
  found.paths = ListOf({"C:\\a", "C:\\Recycled", "C:\\b", "C:\\m\\recycled", "D:\\RECYCLED\\x\\c"}, kWin);
  LeaveOutRecycleBin(found, kWin);
  EXPECT_EQ(PathsOf(found.paths), Texts({"C:\\a", "C:\\b", "C:\\m\\recycled"}));
  EXPECT_EQ(found.inRecycleBin, 2u);
}

TEST(LeaveOutRecycleBin, KeepsAllWhereNothingIsInside) {
  FoundFiles found;
  found.paths = ListOf({"/m/a", "/n/b"}, kLin);
  LeaveOutRecycleBin(found, kLin);
  EXPECT_EQ(PathsOf(found.paths), Texts({"/m/a", "/n/b"}));
  EXPECT_EQ(found.inRecycleBin, 0u);
}

TEST(FolderSearch, AFolderNameIsNotFiltered) {
  Fixture f;
  f.Add({"/m/x.mp3/a.mid", "/m/y.mid/b.mp3"});
  EXPECT_EQ(PathsOf(f.search.Search("/m/", "mid", true).paths), Texts({"/m/x.mp3/a.mid"}));
}

TEST(FolderSearch, ProcessesPendingMessagesOncePerEntry) {
  Fixture f;
  f.Add({"/m/a.mid", "/m/b.txt", "/m/x/c.mid"});
  (void)f.search.Search("/m/", "mid", true);
  EXPECT_EQ(f.pending.Count(), 4u) << "two files, a folder, and the file in it";
}

TEST(FolderSearch, StopsAtTheNextEntryWhenCancelled) {
  Fixture f;
  f.Add({"/m/a.mid", "/m/b.mid", "/m/c.mid", "/m/d.mid", "/m/x/e.mid"});
  f.pending.At(3, [&] { f.progress.cancelled = true; });
  const FoundFiles found = f.search.Search("/m/", "", true);
  EXPECT_TRUE(found.cancelled);
  EXPECT_FALSE(found.error);
  EXPECT_EQ(f.pending.Count(), 3u);
  EXPECT_EQ(f.files.CountOf(FileCall::kReadFolder), 1u);
}

TEST(FolderSearch, CancelledInASubFolderEndsAltogether) {
  Fixture f;
  f.Add({"/m/x/a.mid", "/m/x/b.mid", "/m/y/c.mid"});
  f.pending.At(3, [&] { f.progress.cancelled = true; });
  EXPECT_TRUE(f.search.Search("/m/", "", true).cancelled);
  EXPECT_EQ(f.files.CountOf(FileCall::kReadFolder), 2u);
}

TEST(FolderSearch, FindsTheSameAgain) {
  Fixture f;
  f.Add({"/m/a.mid", "/n/b.mid"});
  f.files.AddLink("/m/x", "/n");
  const Texts expected = {"/m/a.mid", "/m/x/b.mid"};
  EXPECT_EQ(PathsOf(f.search.Search("/m/", "", true).paths), expected);
  EXPECT_EQ(PathsOf(f.search.Search("/m/", "", true).paths), expected) << "nothing of the first search is left";
}

TEST(FolderSearch, EndsWithTheErrorOfTheFolderItself) {
  for (const int number : {file_error::kUnreachable, file_error::kAccess, file_error::kOwn + 5}) {
    Fixture f;
    f.Add({"/m/a.mid"});
    f.files.Fail(FileCall::kReadFolder, "/m/", {number, "why"});
    const FoundFiles found = f.search.Search("/m", "", true);
    EXPECT_EQ(found.error, FileError({number, "why"}));
    EXPECT_EQ(PathsOf(found.paths), Texts());
  }
}

TEST(FolderSearch, AFolderThatIsNotThereIsUnreachable) {
  Fixture f;
  const FoundFiles found = f.search.Search("/absent", "", true);
  ASSERT_TRUE(found.error);
  EXPECT_EQ(found.error->number, file_error::kUnreachable);
}

TEST(FolderSearch, SkipsAndReportsASubFolderThatMayNotBeRead) {
  Fixture f;
  f.Add({"/m/a.mid", "/m/locked/b.mid", "/m/open/c.mid"});
  f.files.Fail(FileCall::kReadFolder, "/m/locked/", {file_error::kAccess, "denied"});
  const FoundFiles found = f.search.Search("/m/", "", true);
  EXPECT_FALSE(found.error);
  EXPECT_EQ(PathsOf(found.paths), Texts({"/m/a.mid", "/m/open/c.mid"}));
  EXPECT_EQ(found.passedOver, Passed({{"/m/locked/", Obstacle::kNoAccess}}));
}

TEST(FolderSearch, SkipsAnUnreachableSubFolderBecauseItMayHaveVanished) {
  Fixture f;
  f.Add({"/m/b/c.mid", "/m/d/e.mid"});
  f.files.Fail(FileCall::kReadFolder, "/m/b/", {file_error::kUnreachable, "gone"});
  const FoundFiles found = f.search.Search("/m/", "", true);
  EXPECT_FALSE(found.error);
  EXPECT_EQ(PathsOf(found.paths), Texts({"/m/d/e.mid"}));
  EXPECT_EQ(found.passedOver, Passed({{"/m/b/", Obstacle::kNoAccess}}));
}

TEST(FolderSearch, AnyOtherErrorInASubFolderEndsIt) {
  Fixture f;
  f.Add({"/m/a.mid", "/m/b/c.mid", "/m/d/e.mid"});
  f.files.Fail(FileCall::kReadFolder, "/m/b/", {file_error::kOwn + 5, "input/output error"});
  const FoundFiles found = f.search.Search("/m/", "", true);
  ASSERT_TRUE(found.error);
  EXPECT_EQ(found.error->number, file_error::kOwn + 5);
  EXPECT_EQ(f.files.CountOf(FileCall::kReadFolder), 2u);
}

TEST(FolderSearch, ReportsEachFolder) {
  Fixture f;
  f.Add({"/m/a.mid"});
  (void)f.search.Search("/m", "", false);
  EXPECT_EQ(f.progress.items, Texts({"/m/"}));
}

TEST(FolderSearchLinks, ALinkToAFolderIsFollowed) {
  Fixture f;
  f.Add({"/n/b.mid", "/n/deep/c.mid"});
  f.files.AddLink("/m/x", "/n");
  EXPECT_EQ(PathsOf(f.search.Search("/m/", "", true).paths), Texts({"/m/x/b.mid", "/m/x/deep/c.mid"}));
}

TEST(FolderSearchLinks, TwoLinksToOneFolderAreFollowedOnce) {
  Fixture f;
  f.Add({"/n/b.mid"});
  f.files.AddLink("/m/x", "/n");
  f.files.AddLink("/m/y", "/n/");
  EXPECT_EQ(PathsOf(f.search.Search("/m/", "", true).paths), Texts({"/m/x/b.mid"}));
}

TEST(FolderSearchLinks, ALinkBackUpIsNotFollowed) {
  const std::vector<std::pair<const char*, std::string>> targets = {{"to itself's folder", "/top/m/x"},
                                                                    {"to the root of the search", "/top/m"},
                                                                    {"above the search", "/top"},
                                                                    {"to the top of everything", "/"}};
  for (const auto& [name, target] : targets) {
    Fixture f;
    f.Add({"/top/m/a.mid", "/top/m/x/b.mid"});
    f.files.AddLink("/top/m/x/up", target);
    EXPECT_EQ(PathsOf(f.search.Search("/top/m/", "", true).paths), Texts({"/top/m/a.mid", "/top/m/x/b.mid"})) << name;
  }
}

TEST(FolderSearchLinks, ALinkAboveTheFolderThatALinkLedToIsNotFollowed) {
  Fixture f;
  f.Add({"/n/a.mid", "/n/sub/b.mid"});
  f.files.AddLink("/m/1/p", "/n/sub");
  f.files.AddLink("/n/sub/q", "/n");
  EXPECT_EQ(PathsOf(f.search.Search("/m/", "", true).paths), Texts({"/m/1/p/b.mid"}));
}

TEST(FolderSearchLinks, ALinkToASiblingWithTheSameStartIsNoLinkBackUp) {
  Fixture f;
  f.Add({"/m/x2/b.mid", "/n/c.mid"});
  f.files.AddLink("/m/x2/to", "/n");
  f.files.AddLink("/m/x2/beside", "/m/x");
  f.files.AddFile("/m/x/d.mid");
  EXPECT_EQ(PathsOf(f.search.Search("/m/x2/", "", true).paths),
            Texts({"/m/x2/b.mid", "/m/x2/beside/d.mid", "/m/x2/to/c.mid"}));
}

TEST(FolderSearchLinks, ALinkAboveAFolderThatAnEarlierLinkWasInIsFollowed) {
  Fixture f;
  f.Add({"/a/1.mid", "/a/x/2.mid", "/b/3.mid"});
  f.files.AddLink("/a/x/inner", "/b");
  f.files.AddLink("/m/p", "/a/x");
  f.files.AddLink("/m/q", "/a");
  EXPECT_EQ(PathsOf(f.search.Search("/m/", "", true).paths),
            Texts({"/m/p/2.mid", "/m/p/inner/3.mid", "/m/q/1.mid", "/m/q/x/2.mid"}));
}

TEST(FolderSearchLinks, FoldersThatLeadIntoEachOtherAreEachListedOnce) {
  Fixture f;
  f.Add({"/m/a.mid", "/n/b.mid"});
  f.files.AddLink("/m/n", "/n");
  f.files.AddLink("/n/m", "/m");
  EXPECT_EQ(PathsOf(f.search.Search("/m/", "", true).paths), Texts({"/m/a.mid", "/m/n/b.mid"}));
}

TEST(FolderSearchLinks, AFolderThatIsSearchedAnywayIsNotSearchedThroughALinkToo) {
  Fixture f;
  f.Add({"/m/a/1.mid", "/m/b/2.mid"});
  f.files.AddLink("/m/a/toB", "/m/b");
  f.files.AddLink("/m/b/toA", "/m/a");
  const Texts paths = PathsOf(f.search.Search("/m/", "", true).paths);
  EXPECT_EQ(paths, Texts({"/m/a/1.mid", "/m/b/2.mid"}));
}

TEST(FolderSearchLinks, ALinkThatLeadsNowhereIsLeftOut) {
  Fixture f;
  f.Add({"/m/a.mid"});
  f.files.AddLink("/m/x", "/absent");
  f.files.AddLink("/m/loop", "/m/loop");
  EXPECT_EQ(PathsOf(f.search.Search("/m/", "", true).paths), Texts({"/m/a.mid"}));
}

TEST(FolderSearchLinks, ALinkThatCannotBeResolvedIsNotEntered) {
  Fixture f;
  f.Add({"/n/b.mid"});
  f.files.AddLink("/m/x", "/n");
  f.files.Fail(FileCall::kRealPath, "/m/x", {file_error::kAccess, "denied"});
  EXPECT_EQ(PathsOf(f.search.Search("/m/", "", true).paths), Texts());
}

TEST(FolderSearchLinks, ALinkToAFileIsAFile) {
  Fixture f;
  f.Add({"/n/b.mid"});
  f.files.AddLink("/m/link.mid", "/n/b.mid");
  EXPECT_EQ(PathsOf(f.search.Search("/m/", "", false).paths), Texts({"/m/link.mid"}));
}

TEST(FolderSearchLinks, AreResolvedOnWindowsToo) {
  Fixture f(kWin);
  f.Add({"C:\\m\\a.mid", "C:\\n\\b.mid"});
  f.files.AddLink("C:\\m\\x", "C:\\n");
  f.files.AddLink("C:\\m\\up", "C:\\m");
  EXPECT_EQ(PathsOf(f.search.Search("C:\\m\\", "", true).paths), Texts({"C:\\m\\a.mid", "C:\\m\\x\\b.mid"}));
}

TEST(FolderSearch, AFolderBelowTheDepthLimitIsSkippedAndReportedAsTooDeep) {
  Fixture f;
  std::string folder = "/m/";
  for (int i = 0; i < 1000; ++i) folder += "d/";
  const std::string tooDeep = folder + "d/";
  f.files.AddFile(folder + "last.mid");
  for (int i = 0; i < 100; ++i) folder += "d/";
  f.files.AddFile(folder + "a.mid");
  f.files.AddFile("/m/d/b.mid");
  const FoundFiles found = f.search.Search("/m/", "", true);
  EXPECT_EQ(PathsOf(found.paths), Texts({"/m/d/b.mid", tooDeep.substr(0, tooDeep.size() - 2) + "last.mid"}));
  EXPECT_FALSE(found.error);
  EXPECT_EQ(found.passedOver, Passed({{tooDeep, Obstacle::kTooDeep}}));
}

}  // namespace
}  // namespace quillon
