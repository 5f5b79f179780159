#include "cli/Input.h"

#include <cstdint>

#include "base/Text.h"
#include "cli/Messages.h"
#include "cli/Output.h"
#include "platform/FileSystem.h"
#include "platform/Program.h"
#include "platform/WholeFile.h"

namespace quillon::cli {

std::optional<std::string> ReadInput(const std::string& path) {
  if (path == "-") return ReadStandardInput();
  constexpr std::uint64_t kLargest = std::uint64_t{1} << 30u;
  const std::string fullPath = FullPath(path);
  Result<std::string, ReadFailure> text = ReadWholeFile(fullPath, kLargest);
  if (text) return std::move(*text);
  Complain(Localized(messages::kFileUnread) + fullPath);
  return std::nullopt;
}

bool CanAsk() {
  const bool can = StandardInputIsTerminal();
  if (!can) Complain(Localized(messages::kNoTerminal));
  return can;
}

bool Ask(const HelpText& question) {
  static_cast<void>(WriteStandardError(Localized(question) + " [y/N] "));
  std::string answer = ToLower(ReadSomeStandardInput());
  answer.erase(answer.find_last_not_of("\r\n ") + 1);
  return answer == "y" || answer == "yes";
}

}  // namespace quillon::cli
