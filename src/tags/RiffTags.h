#pragma once

#include "tags/SongDetails.h"
#include "tags/TagFrames.h"
#include "tags/TagStream.h"

namespace quillon {

enum class RiffForm { kWave, kAiff };

/// Reads the chunks "ID3 " and, of WAVE files, LIST "INFO", and the playing time; false when it is no such file.
/// Sources: Microsoft and IBM, "Resource Interchange File Format" (1991); Apple, "Audio Interchange File Format".
///
/// TagLib's own classes for these files read ID3v2 tags with all their frames.
[[nodiscard]] bool ReadRiffTags(TagStream& stream, const TagFrames& frames, RiffForm form, SongDetails& song);

}  // namespace quillon
