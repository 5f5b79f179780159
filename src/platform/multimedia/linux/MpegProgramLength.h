#pragma once

#include <optional>

#include "base/ByteSource.h"

namespace quillon {

/// The length in milliseconds of an MPEG program stream (ISO 11172-1, 13818-1): from its first time stamp of sound or
/// picture to its last. The clock in the packs, which GStreamer goes by, runs ahead of them by what the streams are
/// buffered for. Nothing for every other file.
[[nodiscard]] std::optional<int> MpegProgramLength(ByteSource& file);

}  // namespace quillon
