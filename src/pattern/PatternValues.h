#pragma once

#include <cstdint>
#include <string>

#include "tags/SongDetails.h"

namespace quillon {

/// What the fields of a name pattern stand for, of one row.
struct PatternValues {
  SongDetails song;
  std::string name;           ///< the file's present name without its extension
  std::string folder;         ///< the name of the folder that it lies in
  std::string type;           ///< as the list shows it
  std::uint64_t size = 0;     ///< bytes
  std::int64_t modified = 0;  ///< seconds since 1970-01-01 00:00 UTC; shown in local time; 0 when unknown
  std::int64_t number = 0;    ///< the counter
  int numberDigits = 1;       ///< of the counter, at least, where the pattern does not say
};

}  // namespace quillon
