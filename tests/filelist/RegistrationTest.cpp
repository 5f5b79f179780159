#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "filelist/Registration.h"
#include "support/MediaBuilders.h"
#include "support/MemoryFileSystem.h"
#include "support/Paths.h"

namespace quillon {
namespace {

using namespace test;  // builders are what these tests are written in

std::string Newer(const std::string& title) {
  return Id3v2Tag({.major = 4, .frames = {{"TIT2", "\x03" + title}, {"TPE1", "\x03人"}}}) + Mp3Audio(1);
}

struct Fixture {
  MemoryFileSystem files{{PathStyle::kLinux}};
  FileList list{PathStyle::kLinux};
  Unwatched progress;

  Registered Register(const std::vector<std::string>& paths, TagSources tags) {
    return RegisterFiles(list, files, ListOf(paths, PathStyle::kLinux), {.tags = tags}, progress, PathStyle::kLinux);
  }
};

TEST(Registration, StandardTagsAskTheDiskForNothingMore) {
  Fixture fixture;
  fixture.files.AddFile("/a.mp3", Newer("歌"));
  fixture.files.AddFile("/b.flac", "fLaC");
  fixture.files.AddFile("/c.wav", WaveFile(1));
  fixture.files.AddFile("/d.mid", SimpleMidiFile("Song", ""));
  fixture.Register({"/a.mp3", "/b.flac", "/c.wav", "/d.mid"}, TagSources::kStandard);
  const std::vector<MemoryFileSystem::LoggedCall> calls = {{FileCall::kOpenFile, "/a.mp3", ""},
                                                           {FileCall::kStatus, "/b.flac", ""},
                                                           {FileCall::kStatus, "/c.wav", ""},
                                                           {FileCall::kOpenFile, "/d.mid", ""}};
  EXPECT_EQ(fixture.files.Calls(), calls);
  EXPECT_EQ(fixture.list.Row(1).title, "");
  EXPECT_EQ(fixture.list.Row(2).title, "---");
}

TEST(Registration, AllTagsOpenEveryTypeThatMayHaveThem) {
  Fixture fixture;
  fixture.files.AddFile("/a.mp3", Newer("歌"));
  fixture.files.AddFile("/b.flac", "fLaC");
  fixture.files.AddFile("/c.txt", "text");
  fixture.files.AddFile("/d.htm", HtmlPage("Page", ""));
  const Registered registered = fixture.Register({"/a.mp3", "/b.flac", "/c.txt", "/d.htm"}, TagSources::kAll);
  const std::vector<MemoryFileSystem::LoggedCall> calls = {{FileCall::kOpenFile, "/a.mp3", ""},
                                                           {FileCall::kOpenFile, "/b.flac", ""},
                                                           {FileCall::kStatus, "/c.txt", ""},
                                                           {FileCall::kStatus, "/d.htm", ""}};
  EXPECT_EQ(fixture.files.Calls(), calls);
  EXPECT_EQ(fixture.list.Row(1).title, "歌");
  EXPECT_EQ(fixture.list.Row(1).artist, "人");
  EXPECT_EQ(fixture.list.Row(2).title, "---");
  EXPECT_EQ(fixture.list.Row(2).artist, "---");
  EXPECT_EQ(fixture.list.Row(2).size, 4u);
  EXPECT_EQ(fixture.list.Row(4).title, "---");
  EXPECT_EQ(registered.unreadTags, 0u);
}

TEST(Registration, AFileThatCannotBeOpenedKeepsTheTextsOfItsType) {
  Fixture fixture;
  fixture.files.AddFile("/b.flac", "fLaC");
  fixture.files.Fail(FileCall::kOpenFile, "/b.flac", {file_error::kAccess, ""});
  const Registered registered = fixture.Register({"/b.flac"}, TagSources::kAll);
  ASSERT_EQ(fixture.list.Count(), 1);
  EXPECT_EQ(fixture.list.Row(1).title, "---");
  EXPECT_EQ(fixture.list.Row(1).size, 4u);
  EXPECT_EQ(registered.unreadTags, 0u);
}

TEST(Registration, CountsTheRowsWhoseTagsItLeftOut) {
  Fixture fixture;
  const std::vector<std::string> counted = {"/newer.mp3", "/a.flac", "/a.ogg", "/a.oga", "/a.opus", "/a.spx",
                                            "/a.m4a",     "/a.m4b",  "/a.wma", "/a.aif", "/a.aiff", "/a.aifc",
                                            "/a.ape",     "/a.wv",   "/a.mpc", "/a.tta"};
  std::vector<std::string> paths = counted;
  for (const std::string& path : counted) fixture.files.AddFile(path, Newer("歌"));
  for (const char* path : {"/a.mp4", "/a.xm", "/a.wav", "/a.txt", "/plain.mp3", "/old.mp3", "/a.mid"}) {
    fixture.files.AddFile(
        path, path == std::string("/old.mp3") ? Id3v2Tag({.frames = {{"TIT2", AnsiText("Song")}}}) : Mp3Audio(1));
    paths.emplace_back(path);
  }
  paths.push_back("/newer.mp3");    // listed already
  paths.push_back("/missing.ogg");  // not added
  EXPECT_EQ(fixture.Register(paths, TagSources::kStandard).unreadTags, counted.size());
}

TEST(Registration, ReadingAnewUsesTheTagsAskedFor) {
  Fixture fixture;
  fixture.files.AddFile("/a.mp3", Newer("歌"));
  fixture.Register({"/a.mp3"}, TagSources::kStandard);
  ReadRowsAnew(fixture.list, fixture.files, {.tags = TagSources::kAll}, fixture.progress, PathStyle::kLinux);
  EXPECT_EQ(fixture.list.Row(1).title, "歌");
}

class Counting final : public FileListObserver {
 public:
  void RowChanged(int /*index*/) override { ++rows; }
  void RowsChanged() override { ++lists; }
  void MarksChanged() override { ++lists; }
  int rows = 0;
  int lists = 0;
};

TEST(Registration, TitlesAreReadAnewOfRowsWithoutOne) {
  Fixture fixture;
  fixture.files.AddFile("/a.mp3", Newer("歌"));
  fixture.files.AddFile("/b.mid", SimpleMidiFile("Song", ""));
  fixture.files.AddFile("/c.flac", "");
  fixture.files.AddFile("/d.txt", "");
  fixture.files.AddFile("/e.mp3", Newer("詩"));
  fixture.Register({"/a.mp3", "/b.mid", "/c.flac", "/d.txt", "/e.mp3"}, TagSources::kStandard);
  fixture.list.SetRenameName(1, "new name");
  fixture.list.SetChecked(1, false);
  fixture.list.SelectOnly(1);
  ASSERT_FALSE(fixture.files.Remove("/e.mp3"));
  Counting observer;
  fixture.list.SetObserver(&observer);
  const std::size_t opened = fixture.files.CountOf(FileCall::kOpenFile);
  ReadTitlesAnew(fixture.list, fixture.files, fixture.progress);
  fixture.list.SetObserver(nullptr);
  EXPECT_EQ(fixture.files.CountOf(FileCall::kOpenFile) - opened, 3u);  // a, c, e
  EXPECT_EQ(observer.rows, 0);
  EXPECT_EQ(observer.lists, 1);
  EXPECT_EQ(fixture.list.Row(1).title, "歌");
  EXPECT_EQ(fixture.list.Row(1).artist, "人");
  EXPECT_EQ(fixture.list.Row(1).renameName, "new name");
  EXPECT_FALSE(fixture.list.Row(1).checked);
  EXPECT_TRUE(fixture.list.Row(1).selected);
  EXPECT_TRUE(fixture.list.Row(2).checked);
  EXPECT_EQ(fixture.list.Row(2).title, "Song");
  EXPECT_EQ(fixture.list.Row(3).title, "---");
  EXPECT_EQ(fixture.list.Row(5).title, "");
}

class Stopping final : public Progress {
 public:
  bool Continue(std::size_t done, std::size_t /*total*/, const std::string& /*item*/) override { return done < 1; }
  bool Continue() override { return true; }
};

TEST(Registration, ReadingTitlesAnewEndsWhenToldTo) {
  Fixture fixture;
  for (const char* path : {"/a.mp3", "/b.mp3"}) fixture.files.AddFile(path, Newer("歌"));
  fixture.Register({"/a.mp3", "/b.mp3"}, TagSources::kStandard);
  Stopping progress;
  ReadTitlesAnew(fixture.list, fixture.files, progress);
  EXPECT_EQ(fixture.list.Row(1).title, "歌");
  EXPECT_EQ(fixture.list.Row(2).title, "");
}

TEST(FileListObserver, HearsOfNewTexts) {
  FileList list(PathStyle::kLinux);
  list.Add({.renameName = "a", .title = {}, .artist = {}, .type = "MP3", .location = "/a.mp3"});
  Counting observer;
  list.SetObserver(&observer);
  list.SetTexts(1, "title", "artist");
  list.SetObserver(nullptr);
  EXPECT_EQ(observer.rows, 1);
  EXPECT_EQ(list.Row(1).title, "title");
  EXPECT_EQ(list.Row(1).artist, "artist");
}

}  // namespace
}  // namespace quillon
