#pragma once

#include <string>

#include "base/ByteSource.h"
#include "media/BlockReader.h"
#include "media/TagFields.h"

namespace quillon {

/// The texts of an MP3 stream wrapped in a RIFF file of the form "RMP3". UTF-8.
/// Source: Microsoft and IBM, "Resource Interchange File Format" (1991), and its LIST "INFO".
struct RiffInfo {
  std::string name;          ///< INAM
  std::string artist;        ///< IART
  std::string product;       ///< IPRD
  std::string creationDate;  ///< ICRD
  std::string comment;       ///< ICMT

  bool operator==(const RiffInfo&) const = default;
};

/// So many chunks of a file are looked at, those counted that several searches pass over; the tens of them in a real
/// file are far below it. What stands behind them is not found.
inline constexpr int kMostRiffChunks = 10000;

/// Never reports: a file of another form or without an INFO list gives the empty record.
///
/// The texts are looked up in the order INAM, IART, IPRD, ICMT, ICRD, each behind the one found before, and the first
/// that is missing ends the search; a file that orders them otherwise gives fewer texts. One zero byte at a text's end
/// is dropped; of a text longer than kLongestText the beginning is read. In a text, a byte of 128 or more always takes
/// the byte behind it along, and the two are decoded together.
[[nodiscard]] RiffInfo ReadRiffInfo(BlockReader& file, TagFields wanted = TagFields::kAll);
[[nodiscard]] RiffInfo ReadRiffInfo(ByteSource& file);
[[nodiscard]] RiffInfo ReadRiffInfo(const std::string& path);

}  // namespace quillon
