#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/Require.h"
#include "media/basHTMLFile.h"
#include "support/MediaBuilders.h"

using quillon::test::MemorySource;
using quillon::test::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  MemorySource file(std::string(data, data + size));
  const auto title = quillon::ReadHtmlTitle(file);
  if (!title) {
    Require(title.Failure() == quillon::HtmlTitleError::kNegativeLength);
    return 0;
  }
  quillon::test::RequireSoundTexts({*title}, size);
  Require(title->find_first_of("\r\n") == std::string::npos);
  return 0;
}
