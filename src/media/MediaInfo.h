#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/ByteSource.h"
#include "media/BlockReader.h"
#include "media/MediaType.h"
#include "media/StoredText.h"
#include "platform/FilesInTurn.h"

/// A file's media type, and the texts that its list row shows.
namespace quillon {

/// Where an MP3 file stores its texts. Code that reads these values also accepts 1 for 0 and 3 for 2.
namespace tag_kind {
inline constexpr std::uint8_t kId3v1 = 0;  ///< "TAG", 128 bytes before the end
inline constexpr std::uint8_t kId3v2 = 2;  ///< "ID3" at the start; the end is not looked at
inline constexpr std::uint8_t kNone = 4;   ///< neither; also for a file that cannot be read
}  // namespace tag_kind

[[nodiscard]] std::uint8_t DetectTagKind(BlockReader& file);
[[nodiscard]] std::uint8_t DetectTagKind(ByteSource& file);
[[nodiscard]] std::uint8_t DetectTagKind(const std::string& path);

/// The two texts of a list row, UTF-8. A reader's text (at most kLongestText bytes of the file) is cut at its first
/// zero byte and loses trailing blanks.
struct MediaInfo {
  std::string title;
  std::string copyright;  ///< the copyright of a MIDI file, the artist of an MP3 file
  bool newerTag = false;  ///< an MP3 file's tag is of version 2.4, which is not read

  bool operator==(const MediaInfo&) const = default;
};

/// Texts of a type that has no reader.
inline constexpr std::string_view kNoMediaText = "---";

/// Reads an MP3 file whose tag kind is known. Without a tag, reads the texts of a RIFF wrapper, if there is one.
[[nodiscard]] MediaInfo ReadMp3Info(BlockReader& file, std::uint8_t tagKind, StoredText stored = StoredText::kAnsi);

/// Reads an opened file according to its type. Missing texts are empty; a type without a reader gives
/// kNoMediaText for both. Pages are read as MediaType::kPage only, which GetMediaType never gives: in the list, pages
/// show kNoMediaText. When memory runs out, the texts are empty. Never reports errors.
[[nodiscard]] MediaInfo ReadMediaInfo(ByteSource& file, const FileType& type, StoredText stored = StoredText::kAnsi);

/// The same by path, its type decided by its extension. A type without a reader is not opened.
[[nodiscard]] MediaInfo ReadMediaInfo(const std::string& path);

/// What ReadMediaInfo reads of a file of this type, or its status where it reads nothing.
[[nodiscard]] FileNeeds NeedsForInfo(const FileType& type);

}  // namespace quillon
