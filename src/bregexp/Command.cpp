#include "bregexp/Command.h"

#include <cstddef>

#include "bregexp/WorkingText.h"

namespace quillon::bregexp {
namespace {

bool ReadFlags(std::string_view flags, Command& command) {
  bool ansi = false;
  bool utf8 = false;
  for (const char flag : flags) {
    switch (flag) {
      case 'g': command.global = true; break;
      case 'i': command.ignoreCase = true; break;
      case 'k': ansi = true; break;
      case 'u': utf8 = true; break;
      default: return false;
    }
  }
  if (ansi) command.encoding = Encoding::kCodePage932;
  if (utf8) command.encoding = Encoding::kUtf8;
  return !(ansi && utf8);
}

/// Returns the text up to the next "/" that has no backslash before it, with "\/" turned into "/", and advances `rest`
/// past that "/".
std::optional<std::string> TakePart(std::string_view& rest) {
  std::string part;
  for (std::size_t i = 0; i < rest.size(); ++i) {
    if (rest[i] == '/') {
      rest.remove_prefix(i + 1);
      return part;
    }
    if (rest[i] == '\\' && i + 1 < rest.size()) {
      ++i;
      if (rest[i] != '/') part += '\\';
    }
    part += rest[i];
  }
  return std::nullopt;
}

}  // namespace

std::optional<Command> ParseCommand(std::string_view text) {
  // The flags are read first because they name the encoding: a "/" byte is never part of a double-byte character, but a
  // "\" byte can be.
  const std::size_t end = text.rfind('/');
  if (!text.starts_with("s/") || end == 1) return std::nullopt;
  Command command;
  if (!ReadFlags(text.substr(end + 1), command)) return std::nullopt;

  const std::string body = ToWorkingText(text.substr(2, end - 1), command.encoding);
  std::string_view rest = body;
  std::optional<std::string> pattern = TakePart(rest);
  if (!pattern) return std::nullopt;
  std::optional<std::string> replacement = TakePart(rest);
  if (!replacement || !rest.empty()) return std::nullopt;
  command.pattern = *std::move(pattern);
  command.replacement = *std::move(replacement);
  return command;
}

}  // namespace quillon::bregexp
