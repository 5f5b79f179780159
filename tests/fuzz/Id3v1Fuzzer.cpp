#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/RowTexts.h"
#include "media/basID3TAGControl.h"

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
    quillon::test::RequireBeginningsInRow(again, "MP3", tag.title, tag.artist);
  }
  return 0;
}
