#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "support/MediaBuilders.h"
#include "support/PatternFile.h"
#include "support/SongBuilders.h"
#include "tags/TagStream.h"

namespace quillon {
namespace {

using namespace test;  // builders are what these tests are written in

std::string Text(const TagLib::ByteVector& bytes) {
  return {bytes.data(), bytes.size()};
}

TEST(TagStream, ReadsOnFromWhereItIs) {
  MemorySource file("0123456789");
  TagStream stream(file);
  EXPECT_EQ(stream.length(), 10);
  EXPECT_EQ(Text(stream.readBlock(3)), "012");
  EXPECT_EQ(stream.tell(), 3);
  stream.seek(2, TagStream::Current);
  EXPECT_EQ(Text(stream.readBlock(2)), "56");
  stream.seek(-2, TagStream::End);
  EXPECT_EQ(Text(stream.readBlock(5)), "89");
  EXPECT_EQ(Text(stream.readBlock(5)), "");
  EXPECT_EQ(file.reads, 1);
}

TEST(TagStream, ImpossiblePlacesAreNotGoneTo) {
  MemorySource file("0123456789");
  TagStream stream(file);
  stream.seek(4, TagStream::Beginning);
  stream.seek(-5, TagStream::Current);
  EXPECT_EQ(stream.tell(), 4);
  stream.seek(std::numeric_limits<long>::max(), TagStream::Current);
  EXPECT_EQ(stream.tell(), 4);
  stream.seek(std::numeric_limits<long>::min(), TagStream::Beginning);
  EXPECT_EQ(stream.tell(), 4);
  stream.seek(100, TagStream::Beginning);
  EXPECT_EQ(stream.tell(), 100);
  EXPECT_EQ(Text(stream.readBlock(1)), "");
}

TEST(TagStream, LongReadsAndAllReadsTogetherAreLimited) {
  PatternFile file(std::uint64_t{4} << 30U, "", "x");
  TagStream stream(file);
  EXPECT_EQ(stream.readBlock(std::numeric_limits<unsigned>::max()).size(), TagStream::kLongestRead);
  EXPECT_EQ(stream.readBlock(std::numeric_limits<unsigned>::max()).size(), TagStream::kLongestRead);
  EXPECT_EQ(stream.readBlock(std::numeric_limits<unsigned>::max()).size(), TagStream::kLongestRead);
  EXPECT_EQ(stream.readBlock(2000).size(), 0u);
  EXPECT_LE(file.bytesRead, TagStream::kMostBytes);
}

TEST(TagStream, SmallReadsTogetherAreLimitedSooner) {
  PatternFile file(std::uint64_t{4} << 30U, "", "x");
  TagStream stream(file);
  std::uint64_t read = 0;
  for (std::uint64_t got = 1; got > 0; read += got) got = stream.readBlock(1024).size();
  EXPECT_EQ(read, TagStream::kMostSmallBytes);
  EXPECT_EQ(stream.readBlock(2000).size(), 2000u);
}

TEST(TagStream, AnApeTagSaysThatItHasNoMoreItemsThanAreRead) {
  const auto count = [](std::uint32_t items) {
    MemorySource file("APETAGEX" + LittleEndian(2000, 4) + LittleEndian(100, 4) + LittleEndian(items, 4) +
                      std::string(12, '\0'));
    TagStream stream(file);
    return stream.readBlock(32).toUInt(16, false);
  };
  EXPECT_EQ(count(3), 3u);
  EXPECT_EQ(count(0xFFFFFFFF), TagStream::kMostItems);
}

TEST(TagStream, ReadsAreCounted) {
  MemorySource file("0123456789");
  TagStream stream(file);
  for (int i = 0; i < TagStream::kMostReads; ++i) {
    stream.seek(0, TagStream::Beginning);
    ASSERT_EQ(stream.readBlock(1).size(), 1u);
  }
  stream.seek(0, TagStream::Beginning);
  EXPECT_EQ(stream.readBlock(1).size(), 0u);
}

TEST(TagStream, ReadsBehindTheEndCountToo) {
  MemorySource file("0123456789");
  TagStream stream(file);
  stream.seek(100, TagStream::Beginning);
  for (int i = 0; i < TagStream::kMostReads; ++i) ASSERT_EQ(stream.readBlock(1).size(), 0u);
  stream.seek(0, TagStream::Beginning);
  EXPECT_EQ(stream.readBlock(1).size(), 0u);
}

/// Reads the headers of atoms that lie in each other; how many before the stream ends.
int DepthRead(int depth, const std::string& name, bool open) {
  std::string atoms;
  for (int i = 0; i < depth; ++i) atoms += BigEndian(open ? 0 : static_cast<std::uint32_t>(8 * (depth - i)), 4) + name;
  MemorySource file(atoms);
  TagStream stream(file);
  stream.LimitAtoms();
  int read = 0;
  while (stream.readBlock(8).size() == 8) ++read;
  return read;
}

TEST(TagStream, AtomsNestedTooDeepEndAllReading) {
  constexpr int kMost = static_cast<int>(TagStream::kDeepestAtom);
  EXPECT_EQ(DepthRead(kMost, "moov", false), kMost);
  EXPECT_EQ(DepthRead(1000, "moov", false), kMost + 1);
  EXPECT_EQ(DepthRead(1000, "moov", true), kMost + 1);
  EXPECT_EQ(DepthRead(1000, "free", false), 1000);
}

TEST(TagStream, AtomsBehindEachOtherDoNotCount) {
  std::string atoms;
  for (int i = 0; i < 1000; ++i) atoms += Mp4Atom("moof", Mp4Atom("traf", ""));
  MemorySource file(atoms);
  TagStream stream(file);
  stream.LimitAtoms();
  for (int i = 0; i < 2000; ++i) ASSERT_EQ(stream.readBlock(8).size(), 8u) << i;
}

}  // namespace
}  // namespace quillon
