#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "fuzz/Parts.h"
#include "fuzz/Require.h"
#include "fuzz/ScratchFile.h"
#include "platform/multimedia/MediaDevice.h"

using namespace quillon;
using test::Require;

namespace {

constexpr std::array<const char*, 5> kExtensions = {".mid", ".mp3", ".wav", ".mpg", ".avi"};

}  // namespace

// The input: a byte that chooses the extension, and the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  test::Parts parts(data, size);
  const test::ScratchFile file(kExtensions[parts.Byte() % kExtensions.size()]);
  file.Write(parts.Rest());
  const std::unique_ptr<MediaDevice> device = MakeMediaDevice();
  if (!device->Open(file.Path()).Ok()) {
    Require(device->Mode() == MediaMode::kNone && device->Position() == 0 && device->Length() == 0);
    return 0;
  }
  const std::int32_t length = device->Length().value_or(-1);
  Require(length >= 0 && device->Position() >= 0);
  static_cast<void>(device->Seek(length / 2));
  static_cast<void>(device->Play());
  static_cast<void>(device->Pause());
  static_cast<void>(device->Stop());
  Require(device->Close().Ok() && device->Mode() == MediaMode::kNone);
  return 0;
}
