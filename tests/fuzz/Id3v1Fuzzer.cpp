#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/Require.h"
#include "media/MediaInfo.h"
#include "media/basID3TAGControl.h"
#include "support/MediaBuilders.h"

using quillon::test::MemorySource;
using quillon::test::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + size);
  MemorySource file(bytes);
  const quillon::Id3v1Info tag = quillon::ReadId3v1(file);
  Require(file.bytesRead <= 128);
  quillon::test::RequireSoundTexts({tag.title, tag.artist, tag.album, tag.comment}, size);

  MemorySource again(bytes);
  if (quillon::DetectTagKind(again) == quillon::tag_kind::kId3v1) {
    const quillon::MediaInfo row = quillon::ReadMediaInfo(again, "MP3");
    Require(tag.title.starts_with(row.title) && tag.artist.starts_with(row.copyright));
  }
  return 0;
}
