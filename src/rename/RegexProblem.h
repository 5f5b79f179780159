#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "rename/RegexReplace.h"

namespace quillon {

/// Says in Japanese why a rule's regular expression cannot be used, where possible with the 1-based number of the
/// character in the pattern. Nullopt when it can, and without an engine.
[[nodiscard]] std::optional<std::string> RegexProblem(std::string_view pattern, std::string_view replacement,
                                                      bool ignoreCase, RegexEngine& engine);

}  // namespace quillon
