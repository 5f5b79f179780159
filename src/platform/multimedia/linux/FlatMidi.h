#pragma once

#include <optional>
#include <string>

#include "base/ByteSource.h"
#include "platform/multimedia/linux/Deadline.h"

namespace quillon {

/// True when the file begins like a MIDI file, with or without a RIFF wrapper.
[[nodiscard]] bool IsMidi(ByteSource& source);

struct FlatMidiSong {
  std::string file;      ///< a Standard MIDI File
  int milliseconds = 0;  ///< its length, up to the end of the longest track
};

/// Converts a Standard MIDI File, with or without a RIFF wrapper, to one track with one tempo. GStreamer's parser needs
/// this: in files with several tracks it applies the tempo changes once per track, so that the song is too slow, and it
/// hangs at illegal messages. Illegal messages, the rest of a track behind damage, and tracks beyond the first ten
/// thousand are left out. Returns nothing for every other file, for one whose header, length or size (above 32 MiB) is
/// not plausible, and when the time is up. Needs memory only for the file and the song.
[[nodiscard]] std::optional<FlatMidiSong> FlattenMidi(ByteSource& source, const Deadline& deadline);

}  // namespace quillon
