#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/ByteSource.h"
#include "media/FileInformation.h"
#include "media/MediaInfo.h"
#include "media/MediaType.h"
#include "platform/FilesInTurn.h"
#include "tags/SongDetails.h"

/// Tags for list rows, name patterns and the information panel: what the program's own readers find comes first. With
/// TagSources::kAll, files to which these give no title are read by TagLib, and the texts of MIDI files and of ID3v1
/// are StoredText::kUtf8OrAnsi. With kStandard nothing is read that ReadMediaInfo does not read.
namespace quillon {

/// What is known of an opened file. An artist of the program's own reader stays where TagLib has none.
[[nodiscard]] SongDetails ReadSongDetails(ByteSource& file, const FileType& type, TagSources sources);

/// The same by path, its type decided by its extension. A file that cannot be opened, or of a type that is not read,
/// has empty details.
[[nodiscard]] SongDetails ReadSongDetails(const std::string& path, TagSources sources);

/// The two texts of a list row: those of ReadMediaInfo; where the title is empty or "---" those of TagLib. What TagLib
/// does not know either stays as it was.
[[nodiscard]] MediaInfo ReadRowTexts(ByteSource& file, const FileType& type, TagSources sources);

/// The same by path, its type decided by its extension. A file of a type that is not read is not opened.
[[nodiscard]] MediaInfo ReadRowTexts(const std::string& path, TagSources sources);

/// What ReadRowTexts is going to read of a file of this type, or else the file's status.
[[nodiscard]] FileNeeds NeedsForRow(const FileType& type, TagSources sources);

/// True for the types whose files are opened for a row.
[[nodiscard]] bool IsReadForRow(const FileType& type, TagSources sources);

/// The lines of ReadFileInformation. With kAll, the detail line of a file whose details are TagLib's gives artist,
/// album, track, year, genre and playing time.
[[nodiscard]] FileInformation ReadInformation(const std::string& path, const FileType& rowType,
                                              std::uint64_t knownLength, std::optional<std::int32_t> playTimeMs,
                                              TagSources sources);

/// That detail line; "---" stands for what is not known.
[[nodiscard]] std::string SongDetailLine(const SongDetails& song);

}  // namespace quillon
