#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Conversion between the UTF-16 of Windows file names, which may contain unpaired surrogates, and UTF-8 extended with
/// these.
/// Source: "The WTF-8 encoding".
namespace quillon {

/// Returns nullopt when the bytes are not valid UTF-8; the three-byte forms of surrogates are allowed.
[[nodiscard]] std::optional<std::u16string> Wtf8ToUtf16(std::string_view text);

[[nodiscard]] std::string Utf16ToWtf8(std::u16string_view text);

}  // namespace quillon
