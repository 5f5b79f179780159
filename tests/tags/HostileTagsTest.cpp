#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "media/MemoryCount.h"
#include "support/PatternFile.h"
#include "support/ReadBothWays.h"
#include "tags/HostileSongs.h"
#include "tags/SongReader.h"
#include "tags/TagStream.h"

namespace quillon {
namespace {

using namespace test;  // builders are what these tests are written in

constexpr std::size_t kMiB = 1U << 20U;

TEST(HostileTags, GiveWhatIsThereForLittleMemory) {
  for (const HostileSong& shape : HostileSongs()) {
    SCOPED_TRACE(std::string(shape.type) + ": " + shape.name);
    PatternFile file(shape.size, shape.start, shape.pattern);
    const std::size_t before = MemoryInUse();
    RestartMemoryPeak();
    EXPECT_EQ(ReadSongDetails(file, shape.type, TagSources::kAll).title, shape.title);
    EXPECT_LT(MemoryPeak() - before, 320 * kMiB);
    EXPECT_LT(MemoryInUse(), before + 2 * kMiB);
    EXPECT_LE(file.bytesRead, 4 * TagStream::kMostBytes);
  }
}

TEST(HostileTags, GiveTheSameWhenTheFileWasReadAhead) {
  for (const HostileSong& shape : HostileSongs()) {
    SCOPED_TRACE(std::string(shape.type) + ": " + shape.name);
    PatternFile file(std::min<std::uint64_t>(shape.size, kMiB), shape.start, shape.pattern);
    ASSERT_EQ(NeedsForRow(shape.type, TagSources::kAll).what, FileNeeds::What::kContents);
    (void)ReadBothWays(file, NeedsForRow(shape.type, TagSources::kAll),
                       [&](ByteSource& source) { return ReadRowTexts(source, shape.type, TagSources::kAll); });
  }
}

}  // namespace
}  // namespace quillon
