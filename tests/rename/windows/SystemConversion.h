#pragma once

#include <string>

namespace quillon::test {

enum class SystemConversion { kHalfWidth, kFullWidth, kLower, kUpper };

/// What Windows itself makes of a text (UTF-8) in the Japanese locale.
[[nodiscard]] std::string Convert(SystemConversion conversion, const std::string& text);

}  // namespace quillon::test
