#include <gtest/gtest.h>
#include <pthread.h>

#include <ctime>
#include <string>

#include "support/PatternFile.h"
#include "tags/HostileSongs.h"
#include "tags/SongReader.h"

// Sanitizers need many times as much of both.
#ifndef QUILLON_SANITIZED
namespace quillon {
namespace {

using test::HostileSong;
using test::PatternFile;

// A quarter of the stack that the main thread of a Windows program has.
constexpr std::size_t kStack = std::size_t{512} << 10U;
constexpr double kMostSeconds = 3;

/// The processor time of this process, so that other programs do not count.
double Seconds() {
  timespec now = {};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

void* ReadAll(void* done) {
  for (const HostileSong& shape : test::HostileSongs()) {
    SCOPED_TRACE(std::string(shape.type) + ": " + shape.name);
    PatternFile file(shape.size, shape.start, shape.pattern);
    const double start = Seconds();
    EXPECT_EQ(ReadSongDetails(file, shape.type, TagSources::kAll).title, shape.title);
    EXPECT_LT(Seconds() - start, kMostSeconds);
  }
  *static_cast<bool*>(done) = true;
  return nullptr;
}

TEST(HostileTags, NeedLittleStackAndTime) {
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, kStack), 0);
  pthread_t thread = {};
  bool done = false;
  ASSERT_EQ(pthread_create(&thread, &attributes, ReadAll, &done), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
  EXPECT_TRUE(done);
}

}  // namespace
}  // namespace quillon
#endif
