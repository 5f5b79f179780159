#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "base/ByteSource.h"
#include "media/MediaType.h"
#include "media/StoredText.h"
#include "media/basID3TAGControl.h"
#include "media/basMIDIInfo.h"
#include "media/basRIFFInfo.h"

/// The two lines that the information panel shows of the selected file. Complete texts, UTF-8.
namespace quillon {

/// The two lines shown while no file is selected.
inline constexpr std::string_view kNoFileSummary = "サイズ： --- バイト / 種類： ---";
inline constexpr std::string_view kNoFileDetail = "著作権： --- / 分解能： 0 / トラック数： 0";

/// The result of the file's reader: a MIDI file's record, an MP3 file's tag or (without a tag) its RIFF texts;
/// monostate for every other type.
using MediaRecord = std::variant<std::monostate, MidiInfo, Id3v1Info, Id3v2Info, RiffInfo>;

/// Size, type and play time. `length` is the file's length in bytes; `type` is the row's type, its text shown with
/// `furtherText` behind it where no record gives a more detailed type. `playTimeMs` is empty when play times are not
/// wanted; it is shown, rounded to whole seconds (halves to even), for playable types only.
[[nodiscard]] std::string SummaryLine(std::uint64_t length, const FileType& type, const MediaRecord& record,
                                      std::optional<std::int32_t> playTimeMs, std::string_view furtherText = {});

/// Copyright, division and tracks of a MIDI file; artist, album, comment and year of an MP3 file; "---" for others.
[[nodiscard]] std::string DetailLine(const MediaRecord& record);

struct FileInformation {
  std::string summary;
  std::string detail;

  bool operator==(const FileInformation&) const = default;
};

/// Reads the file and makes both lines. Texts are read up to kLongestText bytes. When memory runs out, the lines are
/// those of a file without texts, tag and header.
[[nodiscard]] FileInformation ReadFileInformation(ByteSource& file, const FileType& rowType,
                                                  std::optional<std::int32_t> playTimeMs,
                                                  std::string_view furtherText = {},
                                                  StoredText stored = StoredText::kAnsi);
/// The same by path. For types without a reader `furtherText` is the desktop's description of the type, or, where it
/// has none, the name of the file's folder. A file that cannot be opened is described by its type and `knownLength`.
[[nodiscard]] FileInformation ReadFileInformation(const std::string& path, const FileType& rowType,
                                                  std::uint64_t knownLength, std::optional<std::int32_t> playTimeMs,
                                                  StoredText stored = StoredText::kAnsi);

}  // namespace quillon
