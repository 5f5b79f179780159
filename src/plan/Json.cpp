#include "plan/Json.h"

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
  return object.dump(-1, ' ', false, nlohmann::detail::error_handler_t::replace);
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
