#pragma once

#include <cstdint>

#include "platform/multimedia/linux/GstObjects.h"

/// Where sound and pictures go. What is returned is floating: whoever takes it owns it.
namespace quillon {

/// Takes sound or pictures in time and lets them go.
[[nodiscard]] GstElement* MakeSilentSink();

/// The sound server, else the sound card, else silence.
[[nodiscard]] GstElement* MakeSoundSink();

/// Draws into the window, over its whole size; silent when the X server cannot show pictures.
[[nodiscard]] GstElement* MakePictureSink(std::uint64_t window);

}  // namespace quillon
