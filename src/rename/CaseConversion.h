#pragma once

#include <string>
#include <string_view>

namespace quillon {

/// Proper case: the first character of every word in upper case, everything else in lower case. Words are separated by
/// blanks (U+0020 and the full-width U+3000) and by NUL, tab, line feed, vertical tab, form feed and carriage return,
/// and by nothing else: "o'neil (live)-mix" becomes "O'neil (live)-mix". Upper and lower case are those of base/Text.h.
[[nodiscard]] std::string ToProper(std::string_view text);

}  // namespace quillon
