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

SongDetails ReadTitle(const Id3Frame& title) {
  MemorySource file(Id3v2Tag({.major = 4, .frames = {title}}) + Mp3Audio(1));
  return ReadTagLibDetails(file, "MP3");
}

TEST(TagFrames, LongTextsAreNotRead) {
  const auto length = [](std::size_t count) {
    return ReadTitle({"TIT2", Utf8Text(std::string(count, 'x'))}).title.size();
  };
  EXPECT_EQ(length(kLongestText - 1), kLongestText - 1);
  EXPECT_EQ(length(kLongestText), 0u);
}

/// A zlib stream of one block that is stored as it is.
std::string Compressed(const std::string& bytes) {
  unsigned a = 1;
  unsigned b = 0;
  for (const char c : bytes) {
    a = (a + static_cast<unsigned char>(c)) % 65521;
    b = (b + a) % 65521;
  }
  const auto length = static_cast<std::uint32_t>(bytes.size());
  return "\x78\x01\x01" + LittleEndian(length, 2) + LittleEndian(~length & 0xFFFFu, 2) + bytes +
         BigEndian(b << 16u | a, 4);
}

TEST(TagFrames, CompressedTextsAreNotRead) {
  const std::string text = Utf8Text("Song");
  constexpr unsigned kCompressed = 9;  // and has its length in front
  EXPECT_EQ(ReadTitle({"TIT2", BigEndian(5, 4) + Compressed(text), kCompressed}).title, "");
  EXPECT_EQ(ReadTitle({"TIT2", BigEndian(5, 4) + text, 1}).title, "Song");
}

TEST(TagFrames, FramesOfEveryKindAreSteppedOver) {
  for (const char* id : {"APIC", "COMM", "CHAP", "CTOC", "GEOB", "TXXX", "TDRL", "WXXX", "XSOP"}) {
    EXPECT_EQ(TitleBehind({id, std::string(300, 'x')}, 3), "Song") << id;
    EXPECT_EQ(TitleBehind({id, std::string(300, 'x'), 8}, 3), "Song") << id;
  }
}

}  // namespace
}  // namespace quillon
