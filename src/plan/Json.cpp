#include "cli/Json.h"

#include "base/Text.h"

namespace quillon::cli {

void AddPath(Json& object, const std::string& field, const std::string& path) {
  object[field] = path;
  if (IsValidUtf8(path)) return;
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string bytes;
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    bytes += kDigits[byte >> 4u];
    bytes += kDigits[byte & 0x0Fu];
  }
  object[field + "_bytes"] = bytes;
}

std::string OneLine(const Json& object) {
  return object.dump(-1, ' ', false, nlohmann::detail::error_handler_t::replace);
}

}  // namespace quillon::cli
