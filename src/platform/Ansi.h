#pragma once

#include <optional>
#include <string>
#include <string_view>

/// "ANSI text" in media files and settings: code page 932 (Windows' Shift_JIS) on every system.
namespace quillon {

/// Decodes code page 932 to UTF-8. A byte, or a pair of bytes, that is no character becomes U+30FB, as on Windows: a
/// lead byte without a valid trail byte is replaced alone, an unassigned pair as one.
[[nodiscard]] std::string AnsiToUtf8(std::string_view bytes);

/// True for the first byte of a two-byte character.
[[nodiscard]] bool IsAnsiLeadByte(unsigned char byte);

/// Encodes UTF-8 as code page 932; nullopt when a character has no code there that decodes back to it.
[[nodiscard]] std::optional<std::string> Utf8ToAnsi(std::string_view text);

}  // namespace quillon
