#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Builds small music files with the tags that TagLib reads. Texts are UTF-8 where a format has no other encoding.
namespace quillon::test {

using TagTexts = std::vector<std::pair<std::string, std::string>>;

/// The data of a text frame of ID3v2.4 in UTF-8.
[[nodiscard]] std::string Utf8Text(std::string_view text);

/// "KEY=text" entries behind an empty vendor's name.
[[nodiscard]] std::string VorbisComment(const TagTexts& texts);

/// A block of a FLAC file: its header and data.
[[nodiscard]] std::string FlacBlock(unsigned type, std::string_view data, bool last = false);
/// Three seconds at 44.1 kHz, as STREAMINFO says.
[[nodiscard]] std::string FlacFile(const TagTexts& texts);
/// "fLaC" and STREAMINFO; blocks follow.
[[nodiscard]] std::string FlacStart();

/// A page that holds these whole packets.
[[nodiscard]] std::string OggPage(unsigned number, const std::vector<std::string>& packets, std::uint32_t granule = 0,
                                  bool last = false);
[[nodiscard]] std::string OggVorbisFile(const TagTexts& texts);
[[nodiscard]] std::string OggOpusFile(const TagTexts& texts);
[[nodiscard]] std::string OggSpeexFile(const TagTexts& texts);
[[nodiscard]] std::string OggFlacFile(const TagTexts& texts);

[[nodiscard]] std::string Mp4Atom(std::string_view name, std::string_view data);
/// Three seconds. Keys are four letters, such as "\xA9nam"; "trkn" has a number as its text.
[[nodiscard]] std::string M4aFile(const TagTexts& texts);

/// Items and footer of an APE tag, version 2.
[[nodiscard]] std::string ApeTag(const TagTexts& texts);

[[nodiscard]] std::string AiffChunk(std::string_view id, std::string_view data);
/// A FORM of type AIFF, or of this one: three seconds, then these chunks.
[[nodiscard]] std::string AiffFile(const std::vector<std::string>& chunks, std::string_view type = "AIFF");

/// An object of an ASF file with its identifier, 16 bytes, and length.
[[nodiscard]] std::string AsfObject(std::string_view guid, std::string_view data);
/// The header of an ASF file that says that it holds `count` objects.
[[nodiscard]] std::string AsfHeader(std::uint32_t count, const std::vector<std::string>& objects);
/// Three seconds. The texts are attributes, such as "WM/AlbumTitle".
[[nodiscard]] std::string WmaFile(std::u16string_view title, std::u16string_view artist,
                                  const std::vector<std::pair<std::u16string, std::u16string>>& attributes);

/// Modules with a title of bytes.
[[nodiscard]] std::string ModFile(std::string_view title);
[[nodiscard]] std::string S3mFile(std::string_view title, unsigned samples = 0);
[[nodiscard]] std::string ItFile(std::string_view title, unsigned instruments = 0, unsigned samples = 0);
[[nodiscard]] std::string XmFile(std::string_view title, unsigned patterns = 0, unsigned instruments = 0);

}  // namespace quillon::test
