#pragma once

#include <string>

#include "fuzz/Require.h"
#include "media/MediaInfo.h"
#include "support/MediaBuilders.h"

namespace quillon::test {

/// Requires that a list row of this file shows the beginnings of what a reader has found in it.
inline void RequireBeginningsInRow(MemorySource& file, const FileType& type, const std::string& title,
                                   const std::string& artist) {
  const MediaInfo row = ReadMediaInfo(file, type);
  Require(title.starts_with(row.title) && artist.starts_with(row.copyright));
}

}  // namespace quillon::test
