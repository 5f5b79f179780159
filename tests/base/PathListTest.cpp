#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "base/PathList.h"

namespace quillon {
namespace {

std::vector<std::string> PathsOf(const PathList& list) {
  std::vector<std::string> paths;
  for (const PathList::File file : list) paths.push_back(file.Path());
  return paths;
}

TEST(PathList, GivesBackTheFilesInTheirOrder) {
  PathList list;
  EXPECT_TRUE(list.empty());
  EXPECT_EQ(PathsOf(list), std::vector<std::string>());
  list.Add("/m/", "a");
  list.Add("/m/", "b");
  list.Add("/n/", "c");
  list.Add("/m/", "");
  list.Add("", "d");
  EXPECT_EQ(list.size(), 5u);
  EXPECT_EQ(PathsOf(list), std::vector<std::string>({"/m/a", "/m/b", "/n/c", "/m/", "d"}));
}

TEST(PathList, NamesOfAnyLengthKeepTheirPlaceInManyBlocks) {
  PathList list;
  std::vector<std::string> expected;
  for (std::size_t i = 0; i < 3000; ++i) {
    const std::string folder = "/folder " + std::to_string(i / 7) + "/";
    const std::string name = std::to_string(i) + std::string(i % 100 == 99 ? 70000 : i % 97, 'x');
    list.Add(folder, name);
    expected.push_back(folder + name);
  }
  EXPECT_EQ(PathsOf(list), expected);
}

TEST(PathList, ViewsStayValidWhenMoreIsAddedAndWhenTheListIsMoved) {
  PathList list;
  list.Add("/m/", "a");
  const PathList::File first = *list.begin();
  for (int i = 0; i < 100000; ++i) list.Add("/" + std::to_string(i) + "/", "a name");
  const PathList moved = std::move(list);
  EXPECT_EQ(first.Path(), "/m/a");
  EXPECT_EQ((*moved.begin()).name.data(), first.name.data());
  EXPECT_EQ((*moved.begin()).folder.data(), first.folder.data());
}

TEST(PathList, TellsFilesOfOneFolderWithoutComparingItsPath) {
  PathList list;
  list.Add("/m/", "a");
  list.Add("/m/", "b");
  list.Add("/n/", "c");
  PathList::Iterator at = list.begin();
  const PathList::File first = *at;
  EXPECT_TRUE((*++at).SharesFolderWith(first));
  EXPECT_FALSE((*++at).SharesFolderWith(first));
}

TEST(PathList, ACopiedIteratorGoesItsOwnWay) {
  PathList list;
  for (const char* name : {"a", "b", "c"}) list.Add("/", name);
  PathList::Iterator ahead = list.begin();
  ++ahead;
  const PathList::Iterator kept = ahead;
  ++ahead;
  EXPECT_EQ((*kept).name, "b");
  EXPECT_EQ((*ahead).name, "c");
  EXPECT_EQ(++ahead, list.end());
}

}  // namespace
}  // namespace quillon
