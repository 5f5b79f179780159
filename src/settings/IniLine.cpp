#include "settings/IniLine.h"

#include <algorithm>

#include "base/Text.h"
#include "platform/Ansi.h"

namespace quillon {
namespace {

constexpr std::string_view kLineEnds = "\r\n";

/// Also trims tabs, because people indent with them. Values keep theirs.
std::string_view TrimNames(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::string_view WithoutEnd(std::string_view line) {
  return line.substr(0, line.size() - IniLineEnd(line).size());
}

/// What AnsiToUtf8 returns for invalid bytes. It is also an ordinary character, with the bytes below.
constexpr std::string_view kReplacement = "\u30FB";
constexpr std::string_view kReplacementsOwnBytes = "\x81\x45";

/// Decodes the bytes of one character to UTF-8; nullopt when they are not exactly one character.
std::optional<std::string> DecodedCharacter(std::string_view bytes) {
  std::string text = AnsiToUtf8(bytes);
  if (CharacterCount(text) != 1 || (text == kReplacement && bytes != kReplacementsOwnBytes)) return std::nullopt;
  return text;
}

}  // namespace

std::vector<std::string> SplitIniLines(std::string_view content) {
  std::vector<std::string> lines;
  while (!content.empty()) {
    std::size_t end = std::min(content.find_first_of(kLineEnds), content.size());
    if (end < content.size()) end += content.substr(end).starts_with("\r\n") ? 2 : 1;
    lines.emplace_back(content.substr(0, end));
    content.remove_prefix(end);
  }
  return lines;
}

std::string_view IniLineEnd(std::string_view line) {
  const std::size_t content = line.find_last_not_of(kLineEnds);
  return line.substr(content == std::string_view::npos ? 0 : content + 1);
}

bool IsBlankIniLine(std::string_view line) {
  return TrimNames(WithoutEnd(line)).empty();
}

std::optional<std::string_view> IniSectionName(std::string_view line) {
  line = TrimNames(WithoutEnd(line));
  const std::size_t end = line.find(']');
  if (!line.starts_with('[') || end == std::string_view::npos) return std::nullopt;
  return TrimNames(line.substr(1, end - 1));
}

std::optional<IniEntry> ParseIniEntry(std::string_view line) {
  line = WithoutEnd(line);
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return std::nullopt;
  const std::string_view key = TrimNames(line.substr(0, equals));
  if (key.empty() || key.front() == ';' || IniSectionName(line)) return std::nullopt;
  const std::string_view value = line.substr(equals + 1);
  return IniEntry{key, Trim(value.substr(0, value.find('\0')))};
}

std::string AnsiToUtf8KeepingBytes(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() * 2);
  for (std::size_t i = 0; i < bytes.size();) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    if (byte < 0x80) {
      text += bytes[i++];
      continue;
    }
    std::size_t length = IsAnsiLeadByte(byte) ? 2 : 1;
    std::optional<std::string> character = DecodedCharacter(bytes.substr(i, length));
    // AnsiToUtf8 replaces a lead byte without a valid trail byte alone; the byte behind it is then decoded separately.
    const bool alone = !character && length == 2 && AnsiToUtf8(bytes.substr(i, length)) != kReplacement;
    if (alone) length = 1;
    text += character ? *character : bytes.substr(i, length);
    i += length;
  }
  return text;
}

}  // namespace quillon
