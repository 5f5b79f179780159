#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/Require.h"
#include "media/MediaInfo.h"
#include "media/basID3TAGControl.h"
#include "support/MediaBuilders.h"

using quillon::test::MemorySource;
using quillon::test::Require;
using quillon::test::RequireSoundTexts;

namespace {

constexpr std::uint64_t kBlock = 2048;

void CheckTrailer(const std::string& bytes) {
  MemorySource file(bytes);
  const quillon::Id3v1Info tag = quillon::ReadId3v1(file);
  Require(file.bytesRead <= 128);
  RequireSoundTexts({tag.title, tag.artist, tag.album, tag.comment}, bytes.size());
}

void CheckTag(const std::string& bytes) {
  MemorySource file(bytes);
  const quillon::Id3v2Info tag = quillon::ReadId3v2(file);
  Require(file.bytesRead <= 4 * bytes.size() + 32 * kBlock);
  RequireSoundTexts({tag.contentGroup, tag.title, tag.subtitle, tag.artist, tag.band, tag.conductor, tag.remixer,
                     tag.album, tag.commentDescription, tag.comment, tag.track, tag.genre},
                    bytes.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + size);
  CheckTrailer(bytes);
  CheckTag(bytes);

  MemorySource file(bytes);
  const std::uint8_t kind = quillon::DetectTagKind(file);
  const quillon::MediaInfo row = quillon::ReadMediaInfo(file, "MP3");
  if (kind == quillon::tag_kind::kId3v1) {
    const quillon::Id3v1Info tag = quillon::ReadId3v1(file);
    Require(tag.title.starts_with(row.title) && tag.artist.starts_with(row.copyright));
  } else if (kind == quillon::tag_kind::kId3v2) {
    const quillon::Id3v2Info tag = quillon::ReadId3v2(file);
    Require(tag.title.starts_with(row.title) && tag.artist.starts_with(row.copyright));
  }
  return 0;
}
