#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "filelist/KeySort.h"

namespace quillon {
namespace {

using Texts = std::vector<std::string>;
using Numbers = std::vector<std::uint32_t>;
using enum KeySort::Order;

Numbers Sorted(const Texts& keys, KeySort::Order order) {
  KeySort sort;
  for (const std::string& key : keys) sort.Add(sort.Keep(key));
  Unwatched unwatched;
  return sort.Sorted(order, unwatched).value();
}

Numbers SortedPlainly(const Texts& keys, KeySort::Order order) {
  Numbers numbers(keys.size());
  std::iota(numbers.begin(), numbers.end(), 0u);
  std::stable_sort(numbers.begin(), numbers.end(), [&](std::uint32_t left, std::uint32_t right) {
    return order == kRising ? keys[left] < keys[right] : keys[right] < keys[left];
  });
  return numbers;
}

TEST(KeySort, SortsByteByByteAndKeepsEqualKeysInTheirOrder) {
  const Texts keys = {"b", "a", "b", "", "ab", "\xFF", "a", std::string("a\0", 2)};
  EXPECT_EQ(Sorted(keys, kRising), Numbers({3, 1, 6, 7, 4, 0, 2, 5}));
  EXPECT_EQ(Sorted(keys, kFalling), Numbers({5, 0, 2, 4, 7, 1, 6, 3}));
  EXPECT_EQ(Sorted({}, kRising), Numbers());
  EXPECT_EQ(Sorted({"a"}, kFalling), Numbers({0}));
}

// Few different bytes, zeros among them, and lengths around multiples of what is compared at once.
TEST(KeySort, GivesWhatAStableSortGives) {
  std::mt19937 random(16);
  const auto below = [&random](std::size_t bound) { return random() % bound; };
  const std::string bytes("\0\1a\xFF", 4);
  for (int run = 0; run < 400; ++run) {
    const std::string start(below(20), bytes[below(bytes.size())]);
    const std::size_t most = 1 + below(20);
    Texts keys(below(60));
    for (std::string& key : keys) {
      key = start;
      for (std::size_t i = below(most); i > 0; --i) key += bytes[below(2) == 0 ? 0 : below(bytes.size())];
    }
    for (const KeySort::Order order : {kRising, kFalling}) {
      ASSERT_EQ(Sorted(keys, order), SortedPlainly(keys, order)) << "run " << run;
    }
  }
}

TEST(KeySort, LongEqualKeysAreNoTrouble) {
  const std::string same(std::size_t{1} << 20, 'x');
  EXPECT_EQ(Sorted({same + "b", same, same + "a", same}, kRising), Numbers({1, 3, 2, 0}));
}

}  // namespace
}  // namespace quillon
