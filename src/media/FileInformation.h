#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "base/ByteSource.h"
#include "media/MediaType.h"
#include "media/basID3TAGControl.h"
#include "media/basMIDIInfo.h"
#include "media/basRIFFInfo.h"

/// The two lines that the information panel shows of the selected file. Complete texts, UTF-8.
namespace quillon {

/// Both lines while no file is shown.
inline constexpr std::string_view kNoFileSummary = "サイズ： --- バイト / 種類： ---";
inline constexpr std::string_view kNoFileDetail = "著作権： --- / 分解能： 0 / トラック数： 0";

/// What the file's reader found: a MIDI file's record, an MP3 file's tag or (without a tag) its RIFF texts, and nothing
/// for every other type.
using MediaRecord = std::variant<std::monostate, MidiInfo, Id3v1Info, Id3v2Info, RiffInfo>;

/// Size, type and play time. `length` is the file's length in bytes; the text of `type`, the row's, stands for
/// itself where no record says more, with `furtherText` behind it. `playTimeMs` is given when play times are wanted; it
/// is shown, rounded to whole seconds (halves to even), for playable types only.
[[nodiscard]] std::string SummaryLine(std::uint64_t length, const FileType& type, const MediaRecord& record,
                                      std::optional<std::int32_t> playTimeMs, std::string_view furtherText = {});

/// Copyright, division and tracks of a MIDI file; artist, album, comment and year of an MP3 file; "---" for others.
[[nodiscard]] std::string DetailLine(const MediaRecord& record);

struct FileInformation {
  std::string summary;
  std::string detail;

  bool operator==(const FileInformation&) const = default;
};

/// Reads the file again and writes both lines. Texts count up to kLongestText bytes. A file that memory does not
/// suffice for gives the lines of one without texts, tag and header.
[[nodiscard]] FileInformation ReadFileInformation(ByteSource& file, const FileType& rowType,
                                                  std::optional<std::int32_t> playTimeMs,
                                                  std::string_view furtherText = {});
/// The same by path. For types without a reader the further text is what the desktop calls them, or, where it knows
/// none, the name of the file's folder. A file that cannot be opened keeps its type, and `knownLength` as its length.
[[nodiscard]] FileInformation ReadFileInformation(const std::string& path, const FileType& rowType,
                                                  std::uint64_t knownLength, std::optional<std::int32_t> playTimeMs);

}  // namespace quillon
