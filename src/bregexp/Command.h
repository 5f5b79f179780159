#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillon::bregexp {

/// The encoding of a command and its targets.
enum class Encoding { kBytes, kCodePage932, kUtf8 };

/// A parsed substitution command. Both texts are in the form of WorkingText.h.
struct Command {
  std::string pattern;
  std::string replacement;
  Encoding encoding = Encoding::kBytes;
  bool global = false;
  bool ignoreCase = false;
};

/// Nullopt when the text is not `s/pattern/replacement/flags` with known flags.
[[nodiscard]] std::optional<Command> ParseCommand(std::string_view text);

}  // namespace quillon::bregexp
