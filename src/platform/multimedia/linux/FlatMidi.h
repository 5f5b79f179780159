#pragma once

#include <optional>
#include <string>

#include "base/ByteSource.h"
#include "platform/multimedia/linux/Deadline.h"

namespace quillon {

/// Whether the file says that it is one, bare or in RIFF.
[[nodiscard]] bool IsMidi(ByteSource& source);

struct FlatMidiSong {
  std::string file;      ///< a Standard MIDI File
  int milliseconds = 0;  ///< up to the end of its longest track
};

/// A Standard MIDI File, bare or in RIFF, as one track of one tempo: GStreamer's parser takes the tempo changes of a
/// file of several tracks for each track anew, so that the song drags, and does not come back from illegal messages.
/// Those are left out, and so is what stands behind damage in a track, and tracks behind the first ten thousand.
/// Nothing for every other file, for one whose header, length or size (above 32 MiB) makes no sense, and when the time
/// is up. Needs memory for the file and for the song, and little else.
[[nodiscard]] std::optional<FlatMidiSong> FlattenMidi(ByteSource& source, const Deadline& deadline);

}  // namespace quillon
