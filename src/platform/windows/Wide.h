#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// Returns nullopt when the bytes are not valid UTF-8; encoded surrogates are allowed.
[[nodiscard]] std::optional<std::wstring> ToWide(std::string_view text);

[[nodiscard]] std::string FromWide(std::wstring_view text);

}  // namespace quillon
