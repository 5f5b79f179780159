#include <gtest/gtest.h>
#include <wx/bitmap.h>
#include <wx/colour.h>
#include <wx/icon.h>
#include <wx/image.h>

#include <array>
#include <string_view>

#include "controls/Pictures.h"

namespace quillon {
namespace {

constexpr std::array<std::string_view, 18> kNames = {
    "open-folder", "reload", "apply",      "title",     "modify",     "move",      "options", "play",    "pause",
    "stop",        "repeat", "file-audio", "file-midi", "file-video", "file-html", "file",    "loading", "quillon"};

int PixelsOf(const wxBitmapBundle& picture, int size, const wxColour& colour) {
  const wxImage image = picture.GetBitmap(wxSize(size, size)).ConvertToImage();
  int count = 0;
  for (int y = 0; y < image.GetHeight(); ++y) {
    for (int x = 0; x < image.GetWidth(); ++x) {
      const bool isOpaque = !image.HasAlpha() || image.GetAlpha(x, y) == 255;
      const wxColour pixel(image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y));
      if (isOpaque && pixel == colour) ++count;
    }
  }
  return count;
}

int DrawnPixelsOf(const wxBitmapBundle& picture, int size) {
  const wxImage image = picture.GetBitmap(wxSize(size, size)).ConvertToImage();
  int count = 0;
  for (int y = 0; y < image.GetHeight(); ++y) {
    for (int x = 0; x < image.GetWidth(); ++x) {
      if (image.HasAlpha() && image.GetAlpha(x, y) > 128) ++count;
    }
  }
  return count;
}

TEST(Pictures, EveryNameIsDrawnAtItsSize) {
  for (const std::string_view name : kNames) {
    const wxBitmapBundle picture = Picture(name, 16, *wxBLACK);
    ASSERT_TRUE(picture.IsOk()) << name;
    EXPECT_EQ(picture.GetDefaultSize(), wxSize(16, 16)) << name;
    const int drawn = DrawnPixelsOf(picture, 16);
    EXPECT_GT(drawn, 25) << name;
    EXPECT_LT(drawn, 16 * 16) << name << " leaves nothing free";
  }
}

TEST(Pictures, TheInkTakesTheGivenColour) {
  const wxColour green(0, 255, 0);
  EXPECT_EQ(PixelsOf(Picture("file", 16, *wxBLACK), 48, green), 0);
  EXPECT_GT(PixelsOf(Picture("file", 16, green), 48, green), 100);
  EXPECT_EQ(PixelsOf(Picture("file", 16, green), 48, *wxBLACK), 0);
}

TEST(Pictures, OtherColoursStay) {
  const wxColour blue(0x2f, 0x86, 0xe0);
  const int pixels = PixelsOf(Picture("stop", 16, *wxBLACK), 48, blue);
  EXPECT_GT(pixels, 100);
  EXPECT_EQ(PixelsOf(Picture("stop", 16, *wxWHITE), 48, blue), pixels);
}

TEST(Pictures, AGreyPictureHasNoOtherColour) {
  const wxColour blue(0x2f, 0x86, 0xe0);
  const wxColour grey(0x80, 0x80, 0x80);
  EXPECT_EQ(PixelsOf(GreyPicture("stop", 16, grey), 48, blue), 0);
  EXPECT_EQ(PixelsOf(GreyPicture("stop", 16, grey), 48, grey), PixelsOf(Picture("stop", 16, *wxBLACK), 48, blue));
  EXPECT_FALSE(GreyPicture("no-such-picture", 16, grey).IsOk());
}

TEST(Pictures, AnUnknownNameIsEmpty) {
  EXPECT_FALSE(Picture("no-such-picture", 16, *wxBLACK).IsOk());
  EXPECT_FALSE(Picture("", 16, *wxBLACK).IsOk());
}

TEST(Pictures, TheProgramIconHasTheUsualSizes) {
  const wxIconBundle icons = ProgramIcons();
  ASSERT_EQ(icons.GetIconCount(), 5u);
  for (const int size : {16, 24, 32, 48, 64}) {
    const wxIcon icon = icons.GetIcon(wxSize(size, size), wxIconBundle::FALLBACK_NONE);
    ASSERT_TRUE(icon.IsOk()) << size;
    EXPECT_EQ(icon.GetWidth(), size);
  }
}

}  // namespace
}  // namespace quillon
