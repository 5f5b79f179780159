#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

/// Converts texts as BASIC's conversion functions do. A number is decimal: a sign, digits, a fraction, an exponent
/// ("1.5", "-1", "+.5e1"), blanks around it. The words "True" and "False" count in any letter case. Anything else, the
/// empty text included, fails.
namespace quillon {

/// Halves are rounded to the even neighbour, "True" is -1. Also fails for numbers outside 16 bits.
[[nodiscard]] std::optional<std::int16_t> IntegerFromText(std::string_view text);

/// Every number but 0 is true.
[[nodiscard]] std::optional<bool> BooleanFromText(std::string_view text);

}  // namespace quillon
