#pragma once

#include <cstdint>
#include <optional>

#include "platform/multimedia/PictureSize.h"

/// The measures of the movie window, in twips unless pixels are named.
namespace quillon {

struct TwipsSize {
  std::int32_t width = 0;
  std::int32_t height = 0;

  bool operator==(const TwipsSize&) const = default;
};

inline constexpr std::int32_t kWiderThanPicture = 140;
inline constexpr std::int32_t kTallerThanPicture = 1095;  ///< title bar, menu bar and fraPlayer
inline constexpr std::int32_t kSmallestMovieHeight = 1950;

/// What surrounds the picture.
struct MovieSurround {
  TwipsSize system;               ///< how much larger the window is than its inner area
  std::int32_t playerHeight = 0;  ///< the least height that fraPlayer needs
  std::int32_t besideSlider = 0;  ///< the width that cmdPlay and lblTime need, with their gaps
};

/// How much larger the window is than the picture: the usual allowances, or more where the surroundings need more.
[[nodiscard]] TwipsSize AllowanceOf(const MovieSurround& surround);

/// The size of a picture with this many pixels, on a screen with this many twips to a pixel.
[[nodiscard]] TwipsSize NaturalSize(PictureSize pixels, double twipsPerPixel);

/// The window's size for the picture at `factor` times its natural size; nullopt when its width or height is over
/// 32,767.
[[nodiscard]] std::optional<TwipsSize> MovieWindowSize(TwipsSize natural, int factor, TwipsSize allowance);

/// The window's size when a picture is first shown: the picture has its natural size, is larger when the window may not
/// be so small, and at most as large as fits on the screen. It keeps its shape.
[[nodiscard]] TwipsSize OpeningWindowSize(TwipsSize natural, TwipsSize allowance, TwipsSize smallest, TwipsSize screen);

/// A place on the screen, in pixels.
struct PixelRect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  bool operator==(const PixelRect&) const = default;
};

/// Moves the window onto the screen, as far as it fits there.
[[nodiscard]] PixelRect OnScreen(PixelRect window, const PixelRect& screen);

/// The place where the window opens: beside its owner where the screen has room (tried in the order right, left, below,
/// above), otherwise over the owner's middle. Always on the screen.
[[nodiscard]] PixelRect OpeningPlace(const PixelRect& owner, PictureSize window, const PixelRect& screen);

/// The places of the controls in the inner area. The slider's width is part of fraPlayer's.
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

/// The size in screen pixels of a window with this many pixels, for a device that draws into it; the desktop shows one
/// of the window's pixels as `scale` screen pixels.
[[nodiscard]] PictureSize DestinationPixels(PictureSize window, double scale);

}  // namespace quillon
