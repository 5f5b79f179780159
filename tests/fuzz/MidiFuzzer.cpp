#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/RowTexts.h"
#include "media/basMIDIInfo.h"

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
  quillon::test::RequireBeginningsInRow(again, "MIDI", info.title, info.copyright);
  return 0;
}
