#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "base/Text.h"
#include "fuzz/Require.h"
#include "platform/Ansi.h"

using quillon::test::Require;

// The input is read as code page 932, and as UTF-8.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + size);
  const std::string text = quillon::AnsiToUtf8(bytes);
  Require(quillon::IsValidUtf8(text) && quillon::CharacterCount(text) <= size);
  if (const std::optional<std::string> back = quillon::Utf8ToAnsi(text)) {
    Require(quillon::AnsiToUtf8(*back) == text && back->size() <= 2 * size);
  }
  const std::optional<std::string> ansi = quillon::Utf8ToAnsi(bytes);
  if (ansi && quillon::IsValidUtf8(bytes)) Require(quillon::AnsiToUtf8(*ansi) == bytes);
  return 0;
}
