#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "media/FileInformation.h"
#include "media/MediaInfo.h"
#include "media/MemoryCount.h"
#include "media/basHTMLFile.h"
#include "support/MediaBuilders.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

using namespace test;  // builders are what these tests are written in

constexpr std::uint64_t kLength = std::uint64_t{10} << 30U;

/// A sparse file of 10 GiB that begins with these bytes.
std::string Sparse(const TempFolder& folder, const char* name, const std::string& start) {
  const std::string path = folder.Write(name, start);
  std::filesystem::resize_file(path, kLength);
  return path;
}

TEST(SparseFiles, ATitleThatClaimsTheWholeFileCostsLittle) {
  const TempFolder folder;
  const std::string name = "RIFF\xFF\xFF\xFF\xFFRMP3LIST\xFF\xFF\xFF\xFFINFOINAM\xFF\xFF\xFF\xFFtitle";
  ASSERT_EQ(name.size(), 37u);
  const std::string files[] = {
      Sparse(folder, "name.mp3", name),
      Sparse(folder, "title.mp3",
             Id3v2Tag({.frames = {{"TIT2", AnsiText("title"), 0, 0xFFFFFFFF}}, .tagSize = 0xFFFFFFF})),
  };
  for (const std::string& path : files) {
    SCOPED_TRACE(path);
    const std::size_t before = MemoryInUse();
    RestartMemoryPeak();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(ReadMediaInfo(path), (MediaInfo{"title", ""}));
    const FileInformation lines = ReadFileInformation(path, "MP3", 0, std::nullopt);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    EXPECT_TRUE(lines.summary.starts_with("サイズ： 10,737,418,240 バイト / 種類： MP3")) << lines.summary;
    EXPECT_LT(MemoryPeak() - before, std::size_t{4} << 20U);
  }
}

TEST(SparseFiles, SongsAndPagesOfThisLengthAreNotRead) {
  const TempFolder folder;
  EXPECT_EQ(ReadMediaInfo(Sparse(folder, "song.mid", SimpleMidiFile("Song", "(C)"))), MediaInfo());
  const auto title = ReadHtmlTitle(Sparse(folder, "page.html", HtmlPage("Song", "")));
  ASSERT_FALSE(title);
  EXPECT_EQ(title.Failure(), HtmlTitleError::kUnreadable);
}

}  // namespace
}  // namespace quillon
