#pragma once

#include <cstdint>
#include <memory>

#include "platform/PictureCanvas.h"
#include "platform/multimedia/linux/GstObjects.h"

/// Sinks for sound and pictures. The returned references are floating: the first user takes ownership.
namespace quillon {

/// A sink that discards sound or pictures at playing speed.
[[nodiscard]] GstElement* MakeSilentSink();

/// A sink for the sound server, else for the sound card, else a silent one.
[[nodiscard]] GstElement* MakeSoundSink();

/// A sink that fills the whole window; one that discards pictures when the X server cannot show them.
[[nodiscard]] GstElement* MakePictureSink(std::uint64_t window);

/// A sink that passes every picture to the canvas when it is due.
[[nodiscard]] GstElement* MakeCanvasSink(const std::shared_ptr<PictureCanvas>& canvas);

}  // namespace quillon
