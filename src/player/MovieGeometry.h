#pragma once

#include <cstdint>
#include <optional>

#include "platform/multimedia/PictureSize.h"

/// The measures of the movie window. All are twips, but where pixels are named.
namespace quillon {

struct TwipsSize {
  std::int32_t width = 0;
  std::int32_t height = 0;

  bool operator==(const TwipsSize&) const = default;
};

inline constexpr std::int32_t kWiderThanPicture = 140;
inline constexpr std::int32_t kTallerThanPicture = 1095;  ///< title bar, menu bar and fraPlayer
inline constexpr std::int32_t kSmallestMovieHeight = 1950;

/// What stands around the picture.
struct MovieSurround {
  TwipsSize system;               ///< how much larger the window is than its inner area
  std::int32_t playerHeight = 0;  ///< the least that fraPlayer needs
  std::int32_t besideSlider = 0;  ///< what cmdPlay and lblTime need, with their gaps
};

/// How much larger the window is than the picture: the allowances, or more where the system takes more.
[[nodiscard]] TwipsSize AllowanceOf(const MovieSurround& surround);

/// A picture of these pixels on a screen with so many twips to a pixel.
[[nodiscard]] TwipsSize NaturalSize(PictureSize pixels, double twipsPerPixel);

/// The window for the picture in `factor` times its natural size; nullopt when its width or height is no 16-bit number.
[[nodiscard]] std::optional<TwipsSize> MovieWindowSize(TwipsSize natural, int factor, TwipsSize allowance);

/// The window in which a picture is shown first: in its natural size, larger when the window may not be so small, at
/// most as large as fits into the screen. The picture keeps its shape.
[[nodiscard]] TwipsSize OpeningWindowSize(TwipsSize natural, TwipsSize allowance, TwipsSize smallest, TwipsSize screen);

/// A place on the screen, in pixels.
struct PixelRect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  bool operator==(const PixelRect&) const = default;
};

/// The window moved onto the screen, as far as it fits there.
[[nodiscard]] PixelRect OnScreen(PixelRect window, const PixelRect& screen);

/// Where the window opens: beside its owner where the screen has room, at the right, at the left, below or above; else
/// over the owner's middle. Always on the screen.
[[nodiscard]] PixelRect OpeningPlace(const PixelRect& owner, PictureSize window, const PixelRect& screen);

/// Where the controls stand in the inner area. The slider's width is part of fraPlayer's.
struct MovieLayout {
  std::int32_t pictureLeft = 0;
  TwipsSize picture;
  std::int32_t playerLeft = 0;
  std::int32_t playerTop = 0;
  TwipsSize player;
  std::int32_t sliderWidth = 0;
};

[[nodiscard]] MovieLayout LayOutMovie(TwipsSize window, const MovieSurround& surround);

/// The least size of the window.
[[nodiscard]] TwipsSize SmallestMovieWindow(const MovieSurround& surround);

/// What a device that draws into a window of this many pixels fills, where the desktop makes `scale` of the screen's
/// pixels out of one of the window's.
[[nodiscard]] PictureSize DestinationPixels(PictureSize window, double scale);

}  // namespace quillon
