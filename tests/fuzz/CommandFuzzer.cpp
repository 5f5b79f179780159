#include <cstddef>
#include <cstdint>
#include <string>

#include "base/Text.h"
#include "fuzz/Require.h"
#include "platform/multimedia/CommandString.h"

using namespace quillon;

namespace {

void Check(const std::string& text, PathStyle style) {
  const ParseOutcome parsed = ParseCommand(text, style);
  const ParsedCommand& command = parsed.command;
  test::Require(command.alias == ToLower(command.alias));
  test::Require(command.path.size() <= text.size() && text.find(command.path) != std::string::npos);
  const bool blank = text.find_first_not_of(" \t") == std::string::npos;
  const bool missing = !parsed.status.Ok() && parsed.status.Failure() == MediaError::kMissingCommand;
  test::Require(missing == blank);
}

}  // namespace

// The input is a command string.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  Check(text, PathStyle::kWindows);
  Check(text, PathStyle::kLinux);
  return 0;
}
