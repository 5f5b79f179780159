#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "filelist/TypeAhead.h"
#include "support/Rows.h"

namespace quillon {
namespace {

using namespace std::chrono_literals;

struct Fixture {
  FileList list{PathStyle::kLinux};
  TypeAhead typeAhead;
  TypeAhead::Clock::time_point now;
  int current = 0;

  explicit Fixture(const std::vector<std::string>& names) {
    for (const std::string& name : names) list.Add(test::RowFor("/m/" + name + ".mid", PathStyle::kLinux));
  }

  /// The row that it leads to, which becomes the current one.
  int Type(const std::string& character, std::chrono::milliseconds after = 100ms) {
    now += after;
    const int row = typeAhead.Type(list, character, current, now);
    if (row != 0) current = row;
    return row;
  }
};

TEST(TypeAhead, GoesToTheNextRowThatBeginsSo) {
  Fixture f({"apple", "bean", "avocado", "cherry"});
  EXPECT_EQ(f.Type("a", 2s), 1);
  EXPECT_EQ(f.Type("a", 2s), 3);
  EXPECT_EQ(f.Type("a", 2s), 1) << "on from the top";
  EXPECT_EQ(f.Type("c", 2s), 4);
  EXPECT_EQ(f.Type("x", 2s), 0);
  EXPECT_EQ(f.current, 4);
}

TEST(TypeAhead, CharactersTypedQuicklyAddUp) {
  Fixture f({"ma", "mb", "mba", "a"});
  EXPECT_EQ(f.Type("m"), 1);
  EXPECT_EQ(f.Type("b"), 2);
  EXPECT_EQ(f.Type("a"), 3);
  EXPECT_EQ(f.Type("x"), 0) << "mbax";
  EXPECT_EQ(f.Type("a", 1s), 4) << "a new text";
}

TEST(TypeAhead, ALongerTextStaysOnARowThatItFits) {
  Fixture f({"mb", "mbc"});
  f.current = 2;
  EXPECT_EQ(f.Type("m"), 1);
  EXPECT_EQ(f.Type("b"), 1);
  EXPECT_EQ(f.Type("c"), 2);
}

TEST(TypeAhead, TheSameCharacterAgainGoesOn) {
  Fixture f({"a1", "b", "A2", "ａ3", "aab"});
  EXPECT_EQ(f.Type("a"), 1);
  EXPECT_EQ(f.Type("a"), 3);
  EXPECT_EQ(f.Type("A"), 4);
  EXPECT_EQ(f.Type("a"), 5);
  EXPECT_EQ(f.Type("a"), 1);
  f.current = 1;
  EXPECT_EQ(f.Type("a", 2s), 3);
  EXPECT_EQ(f.Type("a"), 4);
  EXPECT_EQ(f.Type("b"), 5) << "aab";
}

TEST(TypeAhead, ABlankBelongsToARunningTextOnly) {
  Fixture f({"two", "two words"});
  EXPECT_FALSE(f.typeAhead.IsGoingOn(f.now));
  for (const char* const character : {"t", "w", "o"}) EXPECT_EQ(f.Type(character), 1);
  EXPECT_TRUE(f.typeAhead.IsGoingOn(f.now + 999ms));
  EXPECT_FALSE(f.typeAhead.IsGoingOn(f.now + 1s));
  EXPECT_EQ(f.Type(" "), 2);
}

TEST(TypeAhead, AnEmptyListHasNoSuchRow) {
  Fixture f({});
  EXPECT_EQ(f.Type("a"), 0);
}

}  // namespace
}  // namespace quillon
