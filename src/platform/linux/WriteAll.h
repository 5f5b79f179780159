#pragma once

#include <string_view>

namespace quillon {

/// Writes all of `bytes`, however little the system takes at once. False with errno set when it takes no more.
[[nodiscard]] bool WriteAll(int file, std::string_view bytes);

}  // namespace quillon
