#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// nullopt when the bytes are not UTF-8 (surrogates allowed).
[[nodiscard]] std::optional<std::wstring> ToWide(std::string_view text);

[[nodiscard]] std::string FromWide(std::wstring_view text);

}  // namespace quillon
