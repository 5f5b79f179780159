#include "player/MovieGeometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quillon {
namespace {

constexpr std::int32_t kPlayerBelowPicture = 15;
constexpr std::int32_t kPlayerNarrower = 160;
constexpr std::int32_t kSliderNarrower = 1100;
constexpr std::int32_t kSmallestSlider = 600;

// Limits the result, so that sums with other measures stay within 32 bits whatever a file claims.
std::int32_t Scaled(std::int32_t size, double factor) {
  constexpr double kMost = 1 << 30;
  return static_cast<std::int32_t>(std::lround(std::min(size * factor, kMost)));
}

std::int32_t SliderNarrower(const MovieSurround& surround) {
  return std::max(kSliderNarrower, surround.besideSlider);
}

bool Is16Bit(std::int64_t number) {
  return number <= std::numeric_limits<std::int16_t>::max();
}

}  // namespace

TwipsSize AllowanceOf(const MovieSurround& surround) {
  return {std::max(kWiderThanPicture, surround.system.width),
          std::max(kTallerThanPicture, surround.system.height + kPlayerBelowPicture + surround.playerHeight)};
}

TwipsSize NaturalSize(PictureSize pixels, double twipsPerPixel) {
  return {Scaled(pixels.width, twipsPerPixel), Scaled(pixels.height, twipsPerPixel)};
}

std::optional<TwipsSize> MovieWindowSize(TwipsSize natural, int factor, TwipsSize allowance) {
  const std::int64_t width = std::int64_t{natural.width} * factor;
  const std::int64_t height = std::int64_t{natural.height} * factor;
  if (!Is16Bit(width + kWiderThanPicture) || !Is16Bit(height + kTallerThanPicture)) return std::nullopt;
  return TwipsSize{static_cast<std::int32_t>(width) + allowance.width,
                   static_cast<std::int32_t>(height) + allowance.height};
}

TwipsSize OpeningWindowSize(TwipsSize natural, TwipsSize allowance, TwipsSize smallest, TwipsSize screen) {
  const auto widthFactor = [&](TwipsSize window) {
    return static_cast<double>(window.width - allowance.width) / natural.width;
  };
  const auto heightFactor = [&](TwipsSize window) {
    return static_cast<double>(window.height - allowance.height) / natural.height;
  };
  const double least = std::max({1.0, widthFactor(smallest), heightFactor(smallest)});
  const double factor = std::max(std::min({least, widthFactor(screen), heightFactor(screen)}), 0.0);
  return {Scaled(natural.width, factor) + allowance.width, Scaled(natural.height, factor) + allowance.height};
}

PixelRect OnScreen(PixelRect window, const PixelRect& screen) {
  window.x = std::max(std::min(window.x, screen.x + screen.width - window.width), screen.x);
  window.y = std::max(std::min(window.y, screen.y + screen.height - window.height), screen.y);
  return window;
}

PixelRect OpeningPlace(const PixelRect& owner, PictureSize window, const PixelRect& screen) {
  PixelRect place = {owner.x + (owner.width - window.width) / 2, owner.y + (owner.height - window.height) / 2,
                     window.width, window.height};
  if (owner.x + owner.width + window.width <= screen.x + screen.width) {
    place = {owner.x + owner.width, owner.y, window.width, window.height};
  } else if (owner.x - window.width >= screen.x) {
    place = {owner.x - window.width, owner.y, window.width, window.height};
  } else if (owner.y + owner.height + window.height <= screen.y + screen.height) {
    place.y = owner.y + owner.height;
  } else if (owner.y - window.height >= screen.y) {
    place.y = owner.y - window.height;
  }
  return OnScreen(place, screen);
}

MovieLayout LayOutMovie(TwipsSize window, const MovieSurround& surround) {
  const TwipsSize allowance = AllowanceOf(surround);
  const TwipsSize inner = {window.width - surround.system.width, window.height - surround.system.height};
  MovieLayout layout;
  layout.picture = {std::max(window.width - allowance.width, 1), std::max(window.height - allowance.height, 1)};
  layout.pictureLeft = (inner.width - layout.picture.width) / 2;
  layout.playerTop = layout.picture.height + kPlayerBelowPicture;
  layout.player = {std::max(layout.picture.width - (kPlayerNarrower - kWiderThanPicture), 1),
                   std::max(inner.height - layout.playerTop, 1)};
  layout.playerLeft = (inner.width - layout.player.width) / 2;
  layout.sliderWidth = std::max(layout.player.width - SliderNarrower(surround), 1);
  return layout;
}

TwipsSize SmallestMovieWindow(const MovieSurround& surround) {
  const std::int32_t player = SliderNarrower(surround) + kSmallestSlider;
  return {player + (kPlayerNarrower - kWiderThanPicture) + AllowanceOf(surround).width, kSmallestMovieHeight};
}

PictureSize DestinationPixels(PictureSize window, double scale) {
  return {static_cast<int>(std::lround(window.width * scale)), static_cast<int>(std::lround(window.height * scale))};
}

}  // namespace quillon
