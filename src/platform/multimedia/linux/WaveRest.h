#pragma once

#include <cstdint>
#include <optional>

#include "base/ByteSource.h"

namespace quillon {

/// The end of the last complete chunk of a WAVE file (RIFF, as Microsoft and IBM published it in 1991) that is followed
/// by fewer bytes than a chunk header; GStreamer cannot read such files. nullopt for every other file.
[[nodiscard]] std::optional<std::uint64_t> WaveLengthWithoutRest(ByteSource& file);

}  // namespace quillon
