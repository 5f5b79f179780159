#include "plan/Json.h"

#include <utility>

#include "base/Text.h"

namespace quillon {
namespace {

constexpr std::string_view kDigits = "0123456789abcdef";

std::string HexadecimalOf(std::string_view bytes) {
  std::string digits;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    digits += kDigits[byte >> 4u];
    digits += kDigits[byte & 0x0Fu];
  }
  return digits;
}

std::optional<std::string> BytesOf(std::string_view digits) {
  if (digits.size() % 2 != 0) return std::nullopt;
  std::string bytes;
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    const std::size_t high = kDigits.find(digits[i]);
    const std::size_t low = kDigits.find(digits[i + 1]);
    if (high == std::string_view::npos || low == std::string_view::npos) return std::nullopt;
    bytes += static_cast<char>(high << 4u | low);
  }
  return bytes;
}

std::string Dumped(const Json& value) {
  return value.dump(-1, ' ', false, nlohmann::detail::error_handler_t::replace);
}

void AppendEscaped(std::string& line, char c) {
  switch (c) {
    case '"': line += "\\\""; return;
    case '\\': line += "\\\\"; return;
    case '\b': line += "\\b"; return;
    case '\f': line += "\\f"; return;
    case '\n': line += "\\n"; return;
    case '\r': line += "\\r"; return;
    case '\t': line += "\\t"; return;
    default: line += "\\u00" + HexadecimalOf({&c, 1});
  }
}

bool MustBeEscaped(char c) {
  return static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '\\';
}

// Invalid bytes are rare and left to the library. Returns false when there were any.
bool AppendText(std::string& line, std::string_view text) {
  if (!IsValidUtf8(text)) {
    line += Dumped(text);
    return false;
  }
  line += '"';
  std::size_t written = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!MustBeEscaped(text[i])) continue;
    line += text.substr(written, i - written);
    AppendEscaped(line, text[i]);
    written = i + 1;
  }
  line += text.substr(written);
  line += '"';
  return true;
}

const std::string* TextIn(const Json& object, const std::string& field) {
  const auto found = object.find(field);
  return found == object.end() || !found->is_string() ? nullptr : found->get_ptr<const std::string*>();
}

}  // namespace

void AddPath(Json& object, const std::string& field, const std::string& path) {
  object[field] = path;
  if (!IsValidUtf8(path)) object[field + "_bytes"] = HexadecimalOf(path);
}

std::optional<std::string> PathOf(const Json& object, const std::string& field) {
  if (const std::string* const digits = TextIn(object, field + "_bytes")) return BytesOf(*digits);
  const std::string* const path = TextIn(object, field);
  return path != nullptr ? std::optional<std::string>(*path) : std::nullopt;
}

std::string OneLine(const Json& object) {
  return Dumped(object);
}

JsonLine::JsonLine() {
  constexpr std::size_t kUsualLine = 512;
  line_.reserve(kUsualLine);
}

void JsonLine::Begin(std::string_view field) {
  line_ += line_.empty() ? "{\"" : ",\"";
  line_ += field;
  line_ += "\":";
}

JsonLine& JsonLine::Text(std::string_view field, std::string_view text) {
  Begin(field);
  AppendText(line_, text);
  return *this;
}

JsonLine& JsonLine::True(std::string_view field) {
  Begin(field);
  line_ += "true";
  return *this;
}

JsonLine& JsonLine::Path(std::string_view field, std::string_view path) {
  Begin(field);
  return AppendText(line_, path) ? *this : Text(std::string(field) + "_bytes", HexadecimalOf(path));
}

std::string JsonLine::Take() {
  line_ += line_.empty() ? "{}" : "}";
  return std::move(line_);
}

std::optional<Json> ParseObject(std::string_view line) {
  Json object = Json::parse(line, nullptr, false);
  return object.is_object() ? std::optional<Json>(std::move(object)) : std::nullopt;
}

std::vector<std::string_view> TextLines(std::string_view text) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  if (text.empty()) return {};
  if (text.back() == '\n') text.remove_suffix(1);
  std::vector<std::string_view> lines = Split(text, '\n');
  for (std::string_view& line : lines) {
    if (line.ends_with('\r')) line.remove_suffix(1);
  }
  return lines;
}

bool IsBlank(std::string_view line) {
  return line.find_first_not_of(" \t") == std::string_view::npos;
}

}  // namespace quillon
