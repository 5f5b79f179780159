#include <gtest/gtest.h>

#include "platform/AppendedFile.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

TEST(AppendedFile, EveryAppendedTextIsThereAtOnceAndBehindWhatWasThere) {
  const TempFolder folder;
  const std::string path = folder.Write("log", "first\n");
  const auto file = OpenAppendedFile(path);
  ASSERT_TRUE(file);
  EXPECT_EQ((*file)->Append("second\n"), std::nullopt);
  EXPECT_EQ(folder.Read("log"), "first\nsecond\n");
  EXPECT_EQ((*file)->Append("third\n"), std::nullopt);
  EXPECT_EQ(folder.Read("log"), "first\nsecond\nthird\n");
}

TEST(AppendedFile, AMissingFileIsMade) {
  const TempFolder folder;
  EXPECT_TRUE(OpenAppendedFile(folder.At("new")));
  EXPECT_EQ(folder.Read("new"), "");
}

TEST(AppendedFile, AFileThatCannotBeMadeIsAnError) {
  const TempFolder folder;
  EXPECT_FALSE(OpenAppendedFile(folder.At("absent/log")));
  EXPECT_FALSE(OpenAppendedFile(folder.MakeFolder("folder")));
  EXPECT_FALSE(OpenAppendedFile(std::string("a\0b", 3)));
}

}  // namespace
}  // namespace quillon::test
