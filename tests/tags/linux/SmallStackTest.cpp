#include <gtest/gtest.h>
#include <pthread.h>

#include "support/PatternFile.h"
#include "tags/SongReader.h"
#include "tags/TagTestShapes.h"

namespace quillon {
namespace {

// A quarter of what the main thread of a Windows program has.
#ifdef QUILLON_SANITIZED
constexpr std::size_t kStack = std::size_t{4} << 20U;
#else
constexpr std::size_t kStack = std::size_t{512} << 10U;
#endif

void* ReadAll(void* done) {
  for (const test::HostileSong& shape : test::HostileSongs()) {
    test::PatternFile file(shape.size, shape.start, shape.pattern);
    EXPECT_EQ(ReadSongDetails(file, shape.type, TagSources::kAll).title, shape.title) << shape.name;
  }
  *static_cast<bool*>(done) = true;
  return nullptr;
}

TEST(HostileTags, NeedLittleStack) {
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
