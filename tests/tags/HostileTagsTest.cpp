#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <limits>
#include <string>
#include <vector>

#include "media/MemoryCount.h"
#include "support/MediaBuilders.h"
#include "support/PatternFile.h"
#include "support/SongBuilders.h"
#include "tags/SongReader.h"
#include "tags/TagStream.h"
#include "tags/TagTestShapes.h"

namespace quillon {
namespace {

using namespace test;  // builders are what these tests are written in

constexpr std::size_t kMiB = 1U << 20U;

// Sanitizers make everything many times slower.
#ifdef QUILLON_SANITIZED
constexpr double kMostMilliseconds = 20'000;
#else
constexpr double kMostMilliseconds = 3000;
#endif

double Milliseconds() {
  return 1e3 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

TEST(HostileTags, CostLittleTimeAndMemory) {
  for (const HostileSong& shape : HostileSongs()) {
    SCOPED_TRACE(std::string(shape.type) + ": " + shape.name);
    PatternFile file(shape.size, shape.start, shape.pattern);
    const std::size_t before = MemoryInUse();
    RestartMemoryPeak();
    const double start = Milliseconds();
    const SongDetails song = ReadSongDetails(file, shape.type, TagSources::kAll);
    const double took = Milliseconds() - start;
    const std::size_t peak = MemoryPeak() - before;
    EXPECT_LT(took, kMostMilliseconds);
    EXPECT_LT(peak, 320 * kMiB);
    EXPECT_LE(file.bytesRead, 4 * TagStream::kMostBytes);
    EXPECT_EQ(song.title, shape.title);
    EXPECT_LT(MemoryInUse(), before + 2 * kMiB);
  }
}

}  // namespace
}  // namespace quillon
