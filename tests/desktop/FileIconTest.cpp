#include <gtest/gtest.h>

#include "desktop/Display.h"
#include "platform/desktop/FileIcon.h"

namespace quillon {
namespace {

class FileIcon : public testing::Test {
 protected:
  void SetUp() override {
    if (!test::ConnectToDisplay()) GTEST_SKIP() << "needs a display";
  }
};

bool HasOpaquePixel(const Pixels& pixels) {
  for (std::size_t at = 3; at < pixels.rgba.size(); at += 4) {
    if (pixels.rgba[at] == 255) return true;
  }
  return false;
}

void ExpectPicture(const std::optional<Pixels>& pixels, int size) {
  ASSERT_TRUE(pixels.has_value());
  EXPECT_EQ(pixels->width, size);
  EXPECT_EQ(pixels->height, size);
  EXPECT_EQ(pixels->rgba.size(), static_cast<std::size_t>(size) * static_cast<std::size_t>(size) * 4);
  EXPECT_TRUE(HasOpaquePixel(*pixels));
}

TEST_F(FileIcon, ExistsForAMissingFile) {
  ExpectPicture(SmallFileIcon("/no such folder/a.txt", 16), 16);
}

TEST_F(FileIcon, HasTheSizeAskedFor) {
  ExpectPicture(SmallFileIcon("a.txt", 32), 32);
}

TEST_F(FileIcon, DependsOnTheNameAlone) {
  const std::optional<Pixels> one = SmallFileIcon("/one/a.txt", 16);
  const std::optional<Pixels> other = SmallFileIcon("/other/日本語.txt", 16);
  ASSERT_TRUE(one && other);
  EXPECT_EQ(one->rgba, other->rgba);
}

TEST_F(FileIcon, IsFoundForPathsOfAnyLength) {
  std::string folder = "/";
  while (folder.size() < 5000) folder += "long folder name/";
  ExpectPicture(SmallFileIcon(folder + "a.txt", 16), 16);
  ExpectPicture(SmallFileIcon(folder + std::string(1000, 'n') + ".txt", 16), 16);
}

TEST_F(FileIcon, IsMissingForAPathWithANul) {
  EXPECT_FALSE(SmallFileIcon(std::string("a\0.txt", 6), 16).has_value());
}

}  // namespace
}  // namespace quillon
