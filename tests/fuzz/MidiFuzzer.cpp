#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/Require.h"
#include "media/MediaInfo.h"
#include "media/basMIDIInfo.h"
#include "support/MediaBuilders.h"

using quillon::test::MemorySource;
using quillon::test::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + size);
  MemorySource file(bytes);
  const quillon::MidiInfo info = quillon::ReadMidiInfo(file);
  Require(file.bytesRead <= size + size / 1000 + 1000);
  quillon::test::RequireSoundTexts({info.title, info.copyright}, size);
  Require(info.format >= 0 && info.trackCount >= 0 && info.division >= 0);
  if (bytes.find("MTrk") == std::string::npos) Require(info == quillon::MidiInfo());

  MemorySource again(bytes);
  const quillon::MediaInfo row = quillon::ReadMediaInfo(again, "MIDI");
  Require(info.title.starts_with(row.title) && info.copyright.starts_with(row.copyright));
  return 0;
}
