#include "desktop/ExpectOrder.h"

#include <gtest/gtest.h>

#include "platform/desktop/JapaneseCollation.h"

namespace quillon::test {
namespace {

int Sign(int number) {
  return (number > 0) - (number < 0);
}

}  // namespace

void ExpectOrder(const std::vector<std::vector<std::string>>& lines) {
  const auto collation = MakeJapaneseCollation();
  for (std::size_t one = 0; one < lines.size(); ++one) {
    for (std::size_t other = one; other < lines.size(); ++other) {
      for (const std::string& left : lines[one]) {
        for (const std::string& right : lines[other]) {
          EXPECT_EQ(Sign(collation->KeyOf(left).compare(collation->KeyOf(right))), one == other ? 0 : -1)
              << left << " and " << right;
        }
      }
    }
  }
}

}  // namespace quillon::test
