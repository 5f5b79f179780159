#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "base/Result.h"

namespace quillon {
namespace {

Result<int, std::string> Half(int number) {
  if (number % 2 != 0) return std::string("odd");
  return number / 2;
}

TEST(Result, HoldsTheValue) {
  const Result<int, std::string> half = Half(8);
  EXPECT_TRUE(half.Ok());
  EXPECT_TRUE(static_cast<bool>(half));
  EXPECT_EQ(*half, 4);
}

TEST(Result, HoldsTheErrorInsteadOfAValue) {
  const Result<int, std::string> half = Half(7);
  EXPECT_FALSE(half.Ok());
  EXPECT_FALSE(static_cast<bool>(half));
  EXPECT_EQ(half.Failure(), "odd");
}

TEST(Result, ValueCanBeReachedAndTakenOut) {
  Result<std::unique_ptr<int>, std::string> result(std::make_unique<int>(5));
  const std::unique_ptr<int> taken = std::move(*result);
  EXPECT_EQ(*taken, 5);
  const Result<std::string, int> text(std::string("abc"));
  EXPECT_EQ(text->size(), 3u);
}

}  // namespace
}  // namespace quillon
