#pragma once

#include <cstdint>
#include <optional>
#include <string>

/// What a song's tags say beyond the two texts of a list row.
namespace quillon {

/// Which tags are read.
enum class TagSources {
  kStandard,  ///< those that the program's own readers know
  kAll,       ///< where these give no title, also those that TagLib knows
};

/// Texts are UTF-8, without blanks around them; empty, 0 and nullopt where nothing is known.
struct SongDetails {
  std::string title = {};
  std::string artist = {};
  std::string album = {};
  std::string genre = {};  ///< its name, also where the tag has its number
  int track = 0;
  int year = 0;
  std::optional<std::int32_t> lengthMs = std::nullopt;  ///< playing time

  bool operator==(const SongDetails&) const = default;
};

}  // namespace quillon
