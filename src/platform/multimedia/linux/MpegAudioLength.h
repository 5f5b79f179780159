#pragma once

#include <optional>

#include "base/ByteSource.h"
#include "platform/multimedia/linux/Deadline.h"

namespace quillon {

/// The length in milliseconds of a file of MPEG audio frames (ISO 11172-3, 13818-3), with or without an ID3 tag, that
/// does not contain its length. All frames are counted, because with a variable bit rate the length cannot be estimated
/// from a part. Up to 4 MiB of damage are skipped; with more, the stream ends there. Returns nothing for files with a
/// Xing, Info or VBRI header, for every other file, and when the time is up.
[[nodiscard]] std::optional<int> CountedMpegAudioLength(ByteSource& file, const Deadline& deadline);

}  // namespace quillon
