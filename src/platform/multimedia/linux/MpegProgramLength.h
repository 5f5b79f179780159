#pragma once

#include <optional>

#include "base/ByteSource.h"

namespace quillon {

/// The length in milliseconds of an MPEG program stream (ISO 11172-1, 13818-1): from its first time stamp of sound or
/// picture to its last. GStreamer uses the clock in the packs instead, which runs ahead of these by the buffering time.
/// Returns nothing for every other file.
[[nodiscard]] std::optional<int> MpegProgramLength(ByteSource& file);

}  // namespace quillon
