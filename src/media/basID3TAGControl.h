#pragma once

#include <cstdint>
#include <string>

#include "base/ByteSource.h"
#include "media/BlockReader.h"
#include "media/StoredText.h"
#include "media/TagFields.h"

/// The two tag formats of MP3 files. Texts are UTF-8.
namespace quillon {

/// The file's last 128 bytes when they begin with "TAG". Source: "ID3v1" and its extension "ID3v1.1".
struct Id3v1Info {
  std::int16_t version11 = 0;  ///< 1 when the comment has at most 14 characters, whatever bytes follow it
  std::string title;
  std::string artist;
  std::string album;
  std::int16_t year = 0;  ///< the leading digits; 0 when there are none
  std::string comment;
  std::uint8_t track = 0;  ///< byte 126 of a version 1.1 trailer
  std::uint8_t genre = 0;

  bool operator==(const Id3v1Info&) const = default;
};

/// The tag at the start of the file that begins with "ID3". Source: "ID3 tag version 2.2.0" and "2.3.0" (id3.org).
struct Id3v2Info {
  std::uint8_t majorVersion = 0;
  std::uint8_t revision = 0;
  bool unsynchronisation = false;  ///< recorded only; the frames are read without undoing it
  bool extendedHeader = false;
  bool experimental = false;
  bool crcPresent = false;
  std::int32_t tagSize = 0;
  std::int32_t crc = 0;
  std::string contentGroup;
  std::string title;
  std::string subtitle;
  std::string artist;
  std::string band;
  std::string conductor;
  std::string remixer;
  std::string album;
  std::int16_t year = 0;  ///< the leading digits; 0 when there are none or they do not fit
  std::string commentDescription;
  std::string comment;
  std::string track;
  std::string genre;

  bool operator==(const Id3v2Info&) const = default;
};

/// Reads the last 128 bytes. The caller has checked that they begin with "TAG". A shorter file gives the empty record.
/// A text ends at its first zero byte and is decoded as `stored` says; blanks are kept.
[[nodiscard]] Id3v1Info ReadId3v1(BlockReader& file, TagFields wanted = TagFields::kAll,
                                  StoredText stored = StoredText::kAnsi);
[[nodiscard]] Id3v1Info ReadId3v1(ByteSource& file);
[[nodiscard]] Id3v1Info ReadId3v1(const std::string& path);

/// The largest number of frames read from a tag. Real tags have tens, with chapters and pictures hundreds.
inline constexpr int kMostId3Frames = 10000;

/// The major version of the tags whose frames are not read.
inline constexpr std::uint8_t kId3VersionWithoutFrames = 4;

/// Reads the tag of a file. The caller has checked that the file begins with "ID3".
///
/// Version 3 is read with four-letter frames, every other version with three-letter ones, except version 4: of its tags
/// only the header numbers are read. Reading stops at a compressed frame. Texts are in code page 932 (encoding 0) or
/// UTF-16 with its mark (encoding 1); other encodings give an empty text. Of several frames of one kind the last
/// counts. Other frames are skipped unread. At most the first kLongestText bytes of a text are read, and at most twice
/// as many of a comment frame's data: behind a longer description the comment is empty. A frame that the end of the
/// file cuts off gives the text that is there; bytes behind the end of the file count as zero. At most kMostId3Frames
/// frames are read.
[[nodiscard]] Id3v2Info ReadId3v2(BlockReader& file, TagFields wanted = TagFields::kAll);
[[nodiscard]] Id3v2Info ReadId3v2(ByteSource& file);
[[nodiscard]] Id3v2Info ReadId3v2(const std::string& path);

}  // namespace quillon
