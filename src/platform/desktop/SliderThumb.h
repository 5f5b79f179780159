#pragma once

#include <optional>

/// What the system's horizontal slider tells about its thumb. `slider` is its native widget or window handle, places
/// are counted from its left edge.
namespace quillon {

struct ThumbSpan {
  int left = 0;
  int right = 0;
};

[[nodiscard]] ThumbSpan QueryThumb(void* slider);

/// Puts the thumb where the slider's value is now. GTK loses that for a value set while other parts of the window
/// change.
void PlaceThumb(void* slider);

/// For a press of the mouse beside the thumb: how far between its ends the thumb has to go to be under the mouse, 0 to
/// 1. nullopt for a press on the thumb, and where the system's slider goes there by itself.
[[nodiscard]] std::optional<double> PlaceOfPress(void* slider, int x);

}  // namespace quillon
