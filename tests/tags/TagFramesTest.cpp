#include <gtest/gtest.h>

#include <string>

#include "media/TextLimit.h"
#include "support/MediaBuilders.h"
#include "support/SongBuilders.h"
#include "tags/TagFrames.h"
#include "tags/TagLibReader.h"

namespace quillon {
namespace {

using namespace test;  // builders are what these tests are written in

std::string TitleBehind(const Id3Frame& frame, std::size_t count) {
  Id3v2Parts parts = {.major = 4};
  parts.frames.assign(count, frame);
  parts.frames.push_back({"TIT2", Utf8Text("Song")});
  MemorySource file(Id3v2Tag(parts) + Mp3Audio(1));
  return ReadTagLibDetails(file, "MP3").title;
}

TEST(TagFrames, SoManyOfATagAreRead) {
  const Id3Frame frame = {"PRIV", "x"};
  EXPECT_EQ(TitleBehind(frame, TagFrames::kMostFrames - 1), "Song");
  EXPECT_EQ(TitleBehind(frame, TagFrames::kMostFrames), "");
}

TEST(TagFrames, SoManyTextsOfATagAreRead) {
  const Id3Frame frame = {"TPE1", Utf8Text("Artist")};
  EXPECT_EQ(TitleBehind(frame, TagFrames::kMostTexts - 1), "Song");
  EXPECT_EQ(TitleBehind(frame, TagFrames::kMostTexts), "");
}

TEST(TagFrames, LongTextsAndCompressedOnesAreNotRead) {
  const auto title = [](std::size_t length, unsigned flags) {
    MemorySource file(Id3v2Tag({.major = 4, .frames = {{"TIT2", Utf8Text(std::string(length, 'x')), flags}}}) +
                      Mp3Audio(1));
    return ReadTagLibDetails(file, "MP3").title.size();
  };
  constexpr unsigned kCompressed = 8;
  EXPECT_EQ(title(kLongestText - 1, 0), kLongestText - 1);
  EXPECT_EQ(title(kLongestText, 0), 0u);
  EXPECT_EQ(title(100, kCompressed), 0u);
}

TEST(TagFrames, FramesOfEveryKindAreSteppedOver) {
  for (const char* id : {"APIC", "COMM", "CHAP", "CTOC", "GEOB", "TXXX", "TDRL", "WXXX", "XSOP"}) {
    EXPECT_EQ(TitleBehind({id, std::string(300, 'x')}, 3), "Song") << id;
    EXPECT_EQ(TitleBehind({id, std::string(300, 'x'), 8}, 3), "Song") << id;
  }
}

}  // namespace
}  // namespace quillon
