#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/RowTexts.h"
#include "media/basID3TAGControl.h"

using quillon::test::MemorySource;
using quillon::test::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::uint64_t kBlock = 2048;
  const std::string bytes(data, data + size);
  MemorySource file(bytes);
  const quillon::Id3v2Info tag = quillon::ReadId3v2(file);
  Require(file.bytesRead <= 4 * size + 32 * kBlock);
  quillon::test::RequireSoundTexts({tag.contentGroup, tag.title, tag.subtitle, tag.artist, tag.band, tag.conductor,
                                    tag.remixer, tag.album, tag.commentDescription, tag.comment, tag.track, tag.genre},
                                   size);

  MemorySource again(bytes);
  if (quillon::DetectTagKind(again) == quillon::tag_kind::kId3v2) {
    quillon::test::RequireBeginningsInRow(again, "MP3", tag.title, tag.artist);
  }
  return 0;
}
