#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <new>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/FolderListings.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

using Names = std::vector<std::string>;

/// What the threads of a test's listings share: they may outlive the test's own function.
struct Source {
  std::mutex mutex;
  std::condition_variable changed;
  std::map<std::string, std::vector<FolderEntry>> folders;
  Names listed;         ///< in the order of the calls
  std::string hangsIn;  ///< listing this folder does not return before `released`
  std::string throwsIn;
  bool hangs = false;
  bool released = false;
  bool abandoned = false;  ///< what the folder that hung was told in the end
  bool left = false;

  Listing List(const std::string& folder, const std::atomic<bool>& ends) {
    std::unique_lock lock(mutex);
    listed.push_back(folder);
    if (folder == throwsIn) throw std::bad_alloc();
    if (folder == hangsIn) {
      Hang(lock);
      abandoned = ends;
    }
    const auto found = folders.find(folder);
    if (found == folders.end()) return FileError{file_error::kUnreachable, "absent"};
    return found->second;
  }
  std::string Resolve(const std::string& folder) {
    std::unique_lock lock(mutex);
    if (folder == throwsIn) throw std::bad_alloc();
    if (folder == hangsIn) Hang(lock);
    return "/real" + folder;
  }
  void Hang(std::unique_lock<std::mutex>& lock) {
    hangs = true;
    changed.notify_all();
    changed.wait(lock, [this] { return released; });
    left = true;
    changed.notify_all();
  }
  void AwaitHang() {
    std::unique_lock lock(mutex);
    changed.wait(lock, [this] { return hangs; });
  }
  /// Lets the folder that hangs return, and waits for it.
  void Release() {
    std::unique_lock lock(mutex);
    released = true;
    changed.notify_all();
    changed.wait(lock, [this] { return left; });
  }
  Names Listed() {
    const std::lock_guard lock(mutex);
    return listed;
  }
};

/// Goes on for a number of questions.
class Questions final : public Progress {
 public:
  explicit Questions(int most) : left_(most) {}
  bool Continue(std::size_t, std::size_t, const std::string&) override { return true; }
  bool Continue() override {
    ++count;
    return --left_ > 0;
  }
  int count = 0;

 private:
  int left_;
};

FolderEntry FolderNamed(const std::string& name) {
  return {name, true, false};
}

struct Fixture {
  std::shared_ptr<Source> source = std::make_shared<Source>();
  Unwatched unwatched;

  std::unique_ptr<FolderListings> Start(bool subfolders) const {
    return MakeListingsAhead(
        {.list = [shared = source](const std::string& folder,
                                   const std::atomic<bool>& ends) { return shared->List(folder, ends); },
         .realPath = [shared = source](const std::string& folder) { return shared->Resolve(folder); }},
        subfolders, '/');
  }

  /// The order in which a search reads the folders.
  void ExpectTree(FolderListings& listings, const std::string& folder, Names& order) {
    order.push_back(folder);
    const std::optional<Listing> listing = listings.Read(folder, unwatched);
    ASSERT_TRUE(listing);
    ASSERT_TRUE(listing->Ok()) << folder;
    ASSERT_EQ(**listing, source->folders.at(folder)) << folder;
    for (const FolderEntry& entry : **listing) {
      if (entry.isFolder) ExpectTree(listings, folder + entry.name + "/", order);
    }
  }

  /// Folders with `width` folders each, to a depth.
  void Grow(const std::string& folder, int width, int depth) {
    std::vector<FolderEntry>& entries = source->folders[folder];
    entries = {{"file of " + folder, false, false}};
    for (int i = 0; depth > 0 && i < width; ++i) entries.push_back(FolderNamed(std::to_string(i)));
    for (int i = 0; depth > 0 && i < width; ++i) Grow(folder + std::to_string(i) + "/", width, depth - 1);
  }
};

TEST(FolderListings, EveryFolderIsListedOnceAndInTheOrderOfTheSearch) {
  struct Case {
    int width, depth;
  };
  for (const Case& c : {Case{1, 300}, Case{500, 1}, Case{7, 4}}) {
    Fixture f;
    f.Grow("/", c.width, c.depth);
    Names order;
    f.ExpectTree(*f.Start(true), "/", order);
    EXPECT_EQ(f.source->Listed(), order) << c.width;
    EXPECT_EQ(order.size(), f.source->folders.size());
  }
}

TEST(FolderListings, WithoutSubfoldersOnlyWhatIsAskedForIsListed) {
  Fixture f;
  f.Grow("/", 3, 2);
  const auto listings = f.Start(false);
  ASSERT_TRUE(listings->Read("/", f.unwatched));
  ASSERT_TRUE(listings->Read("/1/2/", f.unwatched));
  EXPECT_EQ(f.source->Listed(), Names({"/", "/1/2/"}));
}

TEST(FolderListings, LinksAreListedOnlyWhenAskedFor) {
  Fixture f;
  f.source->folders["/"] = {{"link", true, true}, FolderNamed("m"), {"other", true, true}};
  f.source->folders["/link/"] = {FolderNamed("in")};
  f.source->folders["/link/in/"] = {};
  f.source->folders["/m/"] = {};
  const auto listings = f.Start(true);
  for (const char* folder : {"/", "/link/", "/link/in/", "/m/"}) {
    const std::optional<Listing> listing = listings->Read(folder, f.unwatched);
    ASSERT_TRUE(listing && *listing) << folder;
    EXPECT_EQ(**listing, f.source->folders.at(folder)) << folder;
  }
  const Names listed = f.source->Listed();
  EXPECT_EQ(listed.size(), 4U);
  EXPECT_EQ(std::count(listed.begin(), listed.end(), "/other/"), 0);
}

TEST(FolderListings, ErrorsBelongToTheirFolder) {
  Fixture f;
  f.source->folders["/"] = {FolderNamed("absent"), FolderNamed("m")};
  f.source->folders["/m/"] = {};
  const auto listings = f.Start(true);
  ASSERT_TRUE(listings->Read("/", f.unwatched));
  const std::optional<Listing> absent = listings->Read("/absent/", f.unwatched);
  ASSERT_TRUE(absent);
  ASSERT_FALSE(absent->Ok());
  EXPECT_EQ(absent->Failure().number, file_error::kUnreachable);
  const std::optional<Listing> listed = listings->Read("/m/", f.unwatched);
  EXPECT_TRUE(listed && listed->Ok());
}

TEST(FolderListings, WhatIsThrownReachesTheReader) {
  Fixture f;
  f.source->folders["/"] = {FolderNamed("m")};
  f.source->throwsIn = "/m/";
  const auto listings = f.Start(true);
  ASSERT_TRUE(listings->Read("/", f.unwatched));
  EXPECT_THROW(static_cast<void>(listings->Read("/m/", f.unwatched)), std::bad_alloc);
}

TEST(FolderListings, AFolderThatHangsIsLeftWhenTheSearchIsCancelled) {
  Fixture f;
  f.source->folders["/"] = {};
  f.source->hangsIn = "/";
  auto listings = f.Start(true);
  Questions questions(5);
  EXPECT_FALSE(listings->Read("/", questions));
  EXPECT_EQ(questions.count, 5) << "it was asked until it cancelled";
  listings = nullptr;
  f.source->Release();
  EXPECT_TRUE(f.source->abandoned);
}

TEST(FolderListings, AFolderThatHangsAheadKeepsNobodyFromTheOnesBeforeIt) {
  Fixture f;
  f.Grow("/", 20, 1);
  f.source->hangsIn = "/15/";
  auto listings = f.Start(true);
  ASSERT_TRUE(listings->Read("/", f.unwatched));
  f.source->AwaitHang();
  for (int i = 0; i < 15; ++i) ASSERT_TRUE(listings->Read("/" + std::to_string(i) + "/", f.unwatched));
  Questions questions(2);
  EXPECT_FALSE(listings->Read("/15/", questions));
  listings = nullptr;
  f.source->Release();
}

TEST(FolderListings, RealPathsAreAnsweredBetweenTheListings) {
  Fixture f;
  f.Grow("/", 300, 1);
  const auto listings = f.Start(true);
  for (int i = 0; i < 300; ++i) {
    const std::string link = "/link" + std::to_string(i);
    if (i % 3 == 0) {
      EXPECT_EQ(listings->RealPath(link, f.unwatched), "/real" + link);
    }
    const std::optional<Listing> listing =
        listings->Read(i == 0 ? "/" : "/" + std::to_string(i - 1) + "/", f.unwatched);
    ASSERT_TRUE(listing && *listing) << i;
  }
}

TEST(FolderListings, ALinkWhoseTargetHangsIsLeftWhenTheSearchIsCancelled) {
  Fixture f;
  f.source->folders["/"] = {{"link", true, true}};
  f.source->hangsIn = "/link";
  auto listings = f.Start(true);
  ASSERT_TRUE(listings->Read("/", f.unwatched));
  Questions questions(4);
  EXPECT_FALSE(listings->RealPath("/link", questions));
  EXPECT_EQ(questions.count, 4) << "it was asked until it cancelled";
  listings = nullptr;
  f.source->Release();
}

TEST(FolderListings, WithoutMemoryForAnAnswerTheReaderIsTold) {
  Fixture f;
  f.source->folders["/"] = {};
  f.source->throwsIn = "/link";
  const auto listings = f.Start(true);
  ASSERT_TRUE(listings->Read("/", f.unwatched));
  EXPECT_THROW(static_cast<void>(listings->RealPath("/link", f.unwatched)), std::bad_alloc);
  EXPECT_THROW(static_cast<void>(listings->Read("/m/", f.unwatched)), std::bad_alloc) << "the thread has ended";
}

TEST(FolderListings, NotMoreThanSomeFoldersAreListedAhead) {
  Fixture f;
  f.Grow("/", 5000, 1);
  f.source->hangsIn = "/0/";
  auto listings = f.Start(true);
  ASSERT_TRUE(listings->Read("/", f.unwatched));
  f.source->Release();
  ASSERT_TRUE(listings->Read("/0/", f.unwatched));
  ASSERT_TRUE(listings->Read("/1/", f.unwatched));
  listings = nullptr;
  EXPECT_LT(f.source->Listed().size(), 600U);
}

TEST(FolderListings, LinksReadInBetweenDoNotRaiseThatNumber) {
  constexpr int kLinks = 100;
  Fixture f;
  f.Grow("/", 5000, 1);
  for (int i = 0; i < kLinks; ++i) f.source->folders["/link" + std::to_string(i) + "/"] = {};
  auto listings = f.Start(true);
  ASSERT_TRUE(listings->Read("/", f.unwatched));
  for (int i = 0; i < kLinks; ++i) {
    ASSERT_TRUE(listings->Read("/link" + std::to_string(i) + "/", f.unwatched));
  }
  ASSERT_TRUE(listings->Read("/0/", f.unwatched));
  listings = nullptr;
  EXPECT_LT(f.source->Listed().size(), 600U);
}

TEST(FolderListings, TheSystemsListingsAreThoseOfReadFolder) {
  const TempFolder folder;
  for (int i = 0; i < 300; ++i) folder.Write("a/" + std::to_string(i % 20) + "/" + std::to_string(i) + ".mid");
  Unwatched unwatched;
  for (const bool ahead : {true, false}) {
    const auto files = MakeFileReads({.readAhead = ahead});
    const auto listings = files->ListFolders(true);
    for (const std::string name : {"", "a/", "a/0/", "a/1/", "a/19/", "absent/"}) {
      const std::string path = name.empty() ? folder.Path() : folder.At(name);
      EXPECT_EQ(listings->Read(path, unwatched), files->ReadFolder(path)) << path;
    }
  }
}

}  // namespace
}  // namespace quillon::test
