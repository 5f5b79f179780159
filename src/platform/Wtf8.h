#pragma once

#include <optional>
#include <string>
#include <string_view>

/// UTF-16 as Windows has it in file names, where a surrogate may stand alone, and UTF-8 widened by those.
/// Source: "The WTF-8 encoding".
namespace quillon {

/// nullopt when the bytes are not UTF-8, the three-byte forms of surrogates allowed.
[[nodiscard]] std::optional<std::u16string> Wtf8ToUtf16(std::string_view text);

[[nodiscard]] std::string Utf16ToWtf8(std::u16string_view text);

}  // namespace quillon
