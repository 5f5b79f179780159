#pragma once

#include <string_view>

namespace quillon {

/// Writes all of `bytes`, repeating partial writes. Returns false with errno set on failure.
[[nodiscard]] bool WriteAll(int file, std::string_view bytes);

}  // namespace quillon
