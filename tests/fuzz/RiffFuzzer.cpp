#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/Require.h"
#include "media/basRIFFInfo.h"
#include "support/MediaBuilders.h"

using quillon::test::MemorySource;
using quillon::test::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::uint64_t kBlock = 2048;
  const std::string bytes(data, data + size);
  MemorySource file(bytes);
  const quillon::RiffInfo info = quillon::ReadRiffInfo(file);
  Require(file.bytesRead <= 4 * size + 8 * kBlock);
  quillon::test::RequireSoundTexts({info.name, info.artist, info.product, info.creationDate, info.comment}, size);
  if (bytes.find("RMP3") == std::string::npos) Require(info == quillon::RiffInfo());
  return 0;
}
