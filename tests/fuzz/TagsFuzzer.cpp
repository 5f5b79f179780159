#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/Require.h"
#include "support/MediaBuilders.h"
#include "tags/SongReader.h"
#include "tags/TagLibReader.h"

using quillon::test::MemorySource;
using quillon::test::Require;
using quillon::test::RequireSoundTexts;

namespace {

constexpr std::array<const char*, 21> kTypes = {"MP3", "flac", "ogg",  "oga", "opus", "spx", "m4a",
                                                "wma", "aif",  "WAVE", "ape", "wv",   "mpc", "tta",
                                                "mod", "s3m",  "it",   "xm",  "mp4",  "mp2", "MIDI"};

}  // namespace

/// The first byte chooses the type, the rest is the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const quillon::FileType type(kTypes[data[0] % kTypes.size()]);
  MemorySource file(std::string(data + 1, data + size));
  const quillon::SongDetails song = quillon::ReadSongDetails(file, type, quillon::TagSources::kAll);
  // Latin-1 texts grow, joined texts get separators, and several fields may hold the same bytes.
  RequireSoundTexts({song.title, song.artist, song.album}, 4 * size + 64);
  Require(song.track >= 0 && song.year >= 0 && song.title != "---");
  const quillon::MediaInfo row = quillon::ReadRowTexts(file, type, quillon::TagSources::kAll);
  Require(song.title.empty() || row.title.find(song.title) != std::string::npos);
  return 0;
}
