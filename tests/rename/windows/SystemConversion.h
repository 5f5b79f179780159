#pragma once

#include <string>

namespace quillon::test {

enum class SystemConversion { kHalfWidth, kFullWidth, kLower, kUpper };

/// Converts a text (UTF-8) with Windows' own functions, in the Japanese locale.
[[nodiscard]] std::string Convert(SystemConversion conversion, const std::string& text);

}  // namespace quillon::test
