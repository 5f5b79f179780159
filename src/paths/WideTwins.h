#pragma once

#include <string>
#include <string_view>

namespace quillon {

/// The name with full-width twins (＂＊／：＜＞？＼｜) in place of the characters that a file name may not hold. A
/// carriage return, which has none, is removed.
[[nodiscard]] std::string WithWideTwins(std::string_view name);

}  // namespace quillon
