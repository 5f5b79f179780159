#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>

#include "base/Text.h"
#include "platform/FolderOrder.h"

namespace quillon::test {
namespace {

using Names = std::vector<std::string>;

std::vector<FolderEntry> EntriesOf(const Names& names) {
  std::vector<FolderEntry> entries;
  for (const std::string& name : names) entries.push_back({name, false, false});
  return entries;
}

Names Sorted(const Names& names) {
  std::vector<FolderEntry> entries = EntriesOf(names);
  SortAsVolumeLists(entries);
  Names sorted;
  for (const FolderEntry& entry : entries) sorted.push_back(entry.name);
  return sorted;
}

// The same order, implemented in the simplest way.
Names SortedSimply(Names names) {
  std::sort(names.begin(), names.end(), [](const std::string& left, const std::string& right) {
    return std::pair(ToUpper(left), left) < std::pair(ToUpper(right), right);
  });
  return names;
}

TEST(FolderOrder, IgnoresLetterCase) {
  EXPECT_EQ(Sorted({"b", "A", "C", "a", "B"}), (Names{"A", "a", "B", "b", "C"}));
  EXPECT_EQ(Sorted({"ｂ", "Ａ", "ａ", "あ"}), (Names{"あ", "Ａ", "ａ", "ｂ"}));
}

TEST(FolderOrder, SignsBetweenTheAlphabetsSortBehindTheCapitals) {
  EXPECT_EQ(Sorted({"_", "z", "A", "[", "1"}), (Names{"1", "A", "z", "[", "_"}));
}

TEST(FolderOrder, ShorterNamesComeBeforeThoseThatBeginWithThem) {
  EXPECT_EQ(Sorted({"song10", "song", "SONG1", "song1 "}), (Names{"song", "SONG1", "song1 ", "song10"}));
}

TEST(FolderOrder, FewEntriesNeedNoOrder) {
  EXPECT_EQ(Sorted({}), Names{});
  EXPECT_EQ(Sorted({"one"}), Names{"one"});
}

TEST(FolderOrder, AnEntryKeepsItsKind) {
  std::vector<FolderEntry> entries = {{"b", true, false}, {"a", false, true}};
  SortAsVolumeLists(entries);
  EXPECT_EQ(entries, (std::vector<FolderEntry>{{"a", false, true}, {"b", true, false}}));
}

TEST(FolderOrder, TheScriptsOfEastAsiaHaveNoLetterCase) {
  for (char32_t c = 0x2E80; c <= 0xA63F; ++c) EXPECT_EQ(UpperCharacter(c), c);
}

TEST(FolderOrder, EqualsTheSimpleImplementationForNamesOfEveryKind) {
  const Names pieces = {"a", "A", "b", "_", "0", "曲", "ａ", "Ａ", "é", "É", "ß", "ﬀ", "\xFF", "\x80", "😀", " ", "."};
  std::uint32_t state = 1;
  const auto random = [&](std::size_t below) {
    state = state * 1664525u + 1013904223u;
    return (state >> 16u) % below;
  };
  for (const std::string prefix : {"", "track ", "長い共通の前置き"}) {
    Names names;
    for (int i = 0; i < 3000; ++i) {
      std::string name = prefix;
      for (auto length = random(12); length > 0; --length) name += pieces[random(pieces.size())];
      names.push_back(name);
    }
    EXPECT_EQ(Sorted(names), SortedSimply(names)) << prefix;
  }
}

}  // namespace
}  // namespace quillon::test
