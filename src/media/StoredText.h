#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillon {

/// How the bytes of a text without a stated encoding are decoded.
enum class StoredText {
  kAnsi,        ///< from code page 932
  kUtf8OrAnsi,  ///< texts that are valid UTF-8 are taken for it; every other text from code page 932
};

/// The text as UTF-8. Texts of ASCII characters are the same in both encodings.
[[nodiscard]] std::string DecodeStoredText(std::string_view bytes, StoredText stored);

/// The text of a field of fixed length, which ends at its first zero byte. Writers cut a longer text anywhere: of a
/// text in UTF-8 that fills the field, the beginning of a character at the end is dropped.
[[nodiscard]] std::string DecodeStoredField(std::string_view field, StoredText stored);

}  // namespace quillon
