#pragma once

#include <optional>

#include "base/ByteSource.h"
#include "platform/multimedia/linux/Deadline.h"

namespace quillon {

/// The length in milliseconds of a file of MPEG audio frames (ISO 11172-3, 13818-3), behind an ID3 tag or not, that
/// does not say how long it is: counted frame by frame, since with a variable bit rate a part says nothing about the
/// rest. Damage is passed over, up to 4 MiB of it, and ends the stream then. Nothing for files with a Xing, Info or
/// VBRI header, for every other file, and when the time is up.
[[nodiscard]] std::optional<int> CountedMpegAudioLength(ByteSource& file, const Deadline& deadline);

}  // namespace quillon
