#pragma once

#include <cstdint>
#include <optional>

#include "base/ByteSource.h"

namespace quillon {

/// Where the last whole chunk of a WAVE file (RIFF, as Microsoft and IBM published it in 1991) ends, when less than the
/// head of another one follows: GStreamer's reader takes no such file. nullopt for every other file.
[[nodiscard]] std::optional<std::uint64_t> WaveLengthWithoutRest(ByteSource& file);

}  // namespace quillon
