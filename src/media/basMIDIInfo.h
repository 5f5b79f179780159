#pragma once

#include <cstdint>
#include <string>

#include "base/ByteSource.h"
#include "media/StoredText.h"

namespace quillon {

/// Texts and header numbers of a Standard MIDI File.
/// Source: "Standard MIDI Files 1.0", header chunk and the meta events FF 01, FF 02 and FF 03.
struct MidiInfo {
  std::int16_t format = 0;      ///< 0, 1 or 2, as stored
  std::int16_t trackCount = 0;  ///< as stored
  std::int16_t division = 0;    ///< ticks per quarter note
  std::string title;            ///< the first track's first text or name event; UTF-8
  std::string copyright;        ///< the first track's copyright event

  bool operator==(const MidiInfo&) const = default;
};

/// Reads the file once, stopping as soon as nothing more can be found. Chunks and events are found by searching for
/// their bytes, without parsing: anything before "MThd" is skipped, an event's bytes inside other data count as that
/// event, and a text's length is taken from one byte, so that a text of 128 bytes or more is shortened and begins with
/// its second length byte.
///
/// Never reports errors: a hidden or system file, one of 2 GiB or more, one without "MThd" or "MTrk", one that ends
/// inside a number, and one whose numbers do not fit (a division in SMPTE form) give the empty record. A text that the
/// end of the file cuts off is kept up to there.
[[nodiscard]] MidiInfo ReadMidiInfo(ByteSource& file, StoredText stored = StoredText::kAnsi);
[[nodiscard]] MidiInfo ReadMidiInfo(const std::string& path);

}  // namespace quillon
