#pragma once

#include <optional>

/// The thumb of the system's horizontal slider. `slider` is the native widget or window handle; positions are relative
/// to its left edge.
namespace quillon {

struct ThumbSpan {
  int left = 0;
  int right = 0;
};

[[nodiscard]] ThumbSpan QueryThumb(void* slider);

/// Moves the thumb to the slider's current value. GTK does not always do so when other parts of the window change at
/// the same time.
void PlaceThumb(void* slider);

/// For a mouse press beside the thumb: the position between the slider's ends, 0 to 1, that puts the thumb under the
/// mouse. Returns nullopt for a press on the thumb, and where the system's slider goes there by itself.
[[nodiscard]] std::optional<double> PlaceOfPress(void* slider, int x);

}  // namespace quillon
