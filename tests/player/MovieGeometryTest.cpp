#include <gtest/gtest.h>

#include <limits>

#include "player/MovieGeometry.h"

namespace quillon {

void PrintTo(const TwipsSize& size, std::ostream* out) {
  *out << size.width << " x " << size.height;
}

void PrintTo(const PictureSize& size, std::ostream* out) {
  *out << size.width << " x " << size.height;
}

namespace {

constexpr double kUsual = 15;  // twips in a pixel at 96 dpi
constexpr TwipsSize kAllowance = {140, 1095};

MovieSurround Small() {
  return {.system = {120, 690}, .playerHeight = 390, .besideSlider = 900};
}

TEST(NaturalSize, IsThePicturesAtTheScreensResolution) {
  const struct {
    PictureSize pixels;
    double twipsPerPixel;
    TwipsSize size;
  } cases[] = {
      {{320, 240}, kUsual, {4800, 3600}},   {{320, 240}, 7.5, {2400, 1800}}, {{1, 1}, kUsual, {15, 15}},
      {{321, 1}, 7.5, {2408, 8}},           {{720, 480}, 12, {8640, 5760}},  {{3840, 2160}, 15, {57600, 32400}},
      {{2147483647, 1}, 15, {1 << 30, 15}},
  };
  for (const auto& c : cases) EXPECT_EQ(NaturalSize(c.pixels, c.twipsPerPixel), c.size);
}

TEST(Allowance, GrowsWhereTheSystemNeedsMore) {
  const struct {
    MovieSurround surround;
    TwipsSize allowance;
  } cases[] = {
      {{}, {140, 1095}},
      {Small(), {140, 1095}},
      {{.system = {140, 690}, .playerHeight = 390}, {140, 1095}},
      {{.system = {141, 690}, .playerHeight = 391}, {141, 1096}},
      {{.system = {240, 885}, .playerHeight = 510}, {240, 1410}},
  };
  for (const auto& c : cases) EXPECT_EQ(AllowanceOf(c.surround), c.allowance);
}

TEST(MovieWindowSize, IsAMultipleOfThePictureWithItsAllowance) {
  const struct {
    TwipsSize natural;
    int factor;
    std::optional<TwipsSize> size;
  } cases[] = {
      {{4800, 3600}, 1, TwipsSize{4940, 4695}},
      {{4800, 3600}, 2, TwipsSize{9740, 8295}},
      {{4800, 3600}, 4, TwipsSize{19340, 15495}},
      // The largest 16-bit number is 32767.
      {{32627, 100}, 1, TwipsSize{32767, 1195}},
      {{32628, 100}, 1, std::nullopt},
      {{100, 31672}, 1, TwipsSize{240, 32767}},
      {{100, 31673}, 1, std::nullopt},
      {{8156, 100}, 4, TwipsSize{32764, 1495}},
      {{8157, 100}, 4, std::nullopt},
      {{9600, 7200}, 4, std::nullopt},
      {{1 << 30, 1 << 30}, 4, std::nullopt},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(MovieWindowSize(c.natural, c.factor, kAllowance), c.size)
        << c.natural.width << " x " << c.natural.height << " times " << c.factor;
  }
}

TEST(MovieWindowSize, IncludesTheSystemsFrame) {
  EXPECT_EQ(MovieWindowSize({4800, 3600}, 2, {240, 1410}), (TwipsSize{9840, 8610}));
  EXPECT_NE(MovieWindowSize({32627, 100}, 1, {240, 1410}), std::nullopt)
      << "the sizes of a picture are the same everywhere";
}

TEST(OpeningWindowSize, ShowsThePictureAsNearToItsNaturalSizeAsItMay) {
  const TwipsSize smallest = {2540, 1950};
  const struct {
    TwipsSize natural;
    TwipsSize screen;
    TwipsSize size;
  } cases[] = {
      {{4800, 3600}, {19200, 15360}, {4940, 4695}},
      {{4800, 3600}, {4940, 4695}, {4940, 4695}},
      {{4800, 3600}, {3540, 15360}, {3540, 3645}},  // the screen's width decides
      {{4800, 3600}, {19200, 3645}, {3540, 3645}},  // the screen's height decides
      {{57600, 32400}, {19200, 15360}, {19200, 11816}},
      {{1200, 900}, {19200, 15360}, {2540, 2895}},  // the least width decides
      {{2400, 400}, {19200, 15360}, {5270, 1950}},  // the least height decides
      {{1200, 900}, {1340, 1995}, {1340, 1995}},    // nothing is larger than the screen
      {{4800, 3600}, {100, 100}, {140, 1095}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(OpeningWindowSize(c.natural, kAllowance, smallest, c.screen), c.size)
        << c.natural.width << " x " << c.natural.height << " on " << c.screen.width << " x " << c.screen.height;
  }
}

TEST(OpeningPlace, IsBesideTheOwnerWhereTheScreenHasRoom) {
  const PixelRect screen = {0, 30, 1280, 970};
  const PictureSize window = {330, 310};
  const struct {
    PixelRect owner;
    PixelRect place;
  } cases[] = {
      {{100, 100, 640, 450}, {740, 100, 330, 310}},   // at the right
      {{100, 800, 640, 200}, {740, 690, 330, 310}},   // at the right, moved up onto the screen
      {{310, 100, 640, 450}, {950, 100, 330, 310}},   // the last pixel
      {{400, 100, 640, 450}, {70, 100, 330, 310}},    // at the left
      {{300, 40, 900, 450}, {585, 490, 330, 310}},    // below
      {{300, 500, 900, 500}, {585, 190, 330, 310}},   // above
      {{0, 30, 1280, 970}, {475, 360, 330, 310}},     // over its middle
      {{-200, -100, 400, 400}, {200, 30, 330, 310}},  // the owner is half outside
  };
  for (const auto& c : cases) {
    const PixelRect place = OpeningPlace(c.owner, window, screen);
    EXPECT_EQ(place, c.place) << c.owner.x << ", " << c.owner.y << ": " << place.x << ", " << place.y;
  }
  EXPECT_EQ(OpeningPlace({100, 100, 640, 450}, {2000, 1500}, screen), (PixelRect{0, 30, 2000, 1500}));
}

TEST(OnScreen, MovesAWindowNoFartherThanItMust) {
  const PixelRect screen = {0, 30, 1280, 970};
  EXPECT_EQ(OnScreen({100, 100, 300, 200}, screen), (PixelRect{100, 100, 300, 200}));
  EXPECT_EQ(OnScreen({1000, 900, 300, 200}, screen), (PixelRect{980, 800, 300, 200}));
  EXPECT_EQ(OnScreen({-50, 0, 300, 200}, screen), (PixelRect{0, 30, 300, 200}));
  EXPECT_EQ(OnScreen({500, 500, 2000, 200}, screen), (PixelRect{0, 500, 2000, 200}));
}

TEST(MovieLayout, PlacesThePictureAndThePlayerBelowIt) {
  const MovieLayout layout = LayOutMovie({4940, 4695}, Small());
  EXPECT_EQ(layout.picture, (TwipsSize{4800, 3600}));
  EXPECT_EQ(layout.pictureLeft, 10) << "in the middle of 4820";
  EXPECT_EQ(layout.playerTop, 3615);
  EXPECT_EQ(layout.player, (TwipsSize{4780, 390}));
  EXPECT_EQ(layout.playerLeft, 20);
  EXPECT_EQ(layout.sliderWidth, 3680);
}

TEST(MovieLayout, LeavesALongTimeItsRoom) {
  MovieSurround surround = Small();
  surround.besideSlider = 1500;
  EXPECT_EQ(LayOutMovie({4940, 4695}, surround).sliderWidth, 3280);
}

TEST(MovieLayout, KeepsThePictureBesideAThickFrame) {
  const MovieSurround thick = {.system = {240, 885}, .playerHeight = 510, .besideSlider = 900};
  const std::optional<TwipsSize> window = MovieWindowSize({4800, 3600}, 1, AllowanceOf(thick));
  ASSERT_TRUE(window);
  const MovieLayout layout = LayOutMovie(*window, thick);
  EXPECT_EQ(layout.picture, (TwipsSize{4800, 3600}));
  EXPECT_EQ(layout.pictureLeft, 0);
  EXPECT_EQ(layout.player.height, 510);
}

TEST(MovieLayout, HasNoEmptyPlacesHoweverSmallTheWindowIs) {
  for (const TwipsSize window : {TwipsSize{0, 0}, TwipsSize{15, 15}, TwipsSize{1000, 1095}}) {
    const MovieLayout layout = LayOutMovie(window, Small());
    EXPECT_GE(layout.picture.width, 1);
    EXPECT_GE(layout.picture.height, 1);
    EXPECT_GE(layout.player.width, 1);
    EXPECT_GE(layout.player.height, 1);
    EXPECT_GE(layout.sliderWidth, 1);
  }
}

TEST(SmallestMovieWindow, HoldsASliderAndTheTime) {
  EXPECT_EQ(SmallestMovieWindow(Small()), (TwipsSize{1860, 1950}));
  MovieSurround wide = Small();
  wide.besideSlider = 1500;
  EXPECT_EQ(SmallestMovieWindow(wide), (TwipsSize{2260, 1950}));
  EXPECT_EQ(LayOutMovie(SmallestMovieWindow(wide), wide).sliderWidth, 600);
}

TEST(Destination, IsCountedInTheScreensOwnPixels) {
  EXPECT_EQ(DestinationPixels({320, 240}, 1), (PictureSize{320, 240}));
  EXPECT_EQ(DestinationPixels({320, 240}, 2), (PictureSize{640, 480}));
  EXPECT_EQ(DestinationPixels({321, 241}, 1.25), (PictureSize{401, 301}));
}

}  // namespace
}  // namespace quillon
