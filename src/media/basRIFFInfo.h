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

/// The largest number of chunks examined in a file; a chunk that several searches pass counts each time. Real files
/// have tens. Chunks behind this limit are not found.
inline constexpr int kMostRiffChunks = 10000;

/// Never reports errors: a file of another form or without an INFO list gives the empty record.
///
/// The texts are searched for in the order INAM, IART, IPRD, ICMT, ICRD, each behind the one found before. The first
/// missing one ends the search, so a file with another order gives fewer texts. One zero byte at a text's end is
/// dropped; only the first kLongestText bytes are read. In a text, a byte of 128 or more is always decoded together
/// with the byte behind it.
[[nodiscard]] RiffInfo ReadRiffInfo(BlockReader& file, TagFields wanted = TagFields::kAll);
[[nodiscard]] RiffInfo ReadRiffInfo(ByteSource& file);
[[nodiscard]] RiffInfo ReadRiffInfo(const std::string& path);

}  // namespace quillon
