#pragma once

#include <string_view>
#include <vector>

#include "base/Result.h"
#include "pattern/NamePattern.h"

namespace quillon {

/// How many patterns may lie in one another.
inline constexpr int kDeepestPattern = 16;

/// The pieces of a pattern; see NamePattern.
[[nodiscard]] Result<std::vector<PatternPiece>, PatternError> ParsePattern(std::string_view pattern);

}  // namespace quillon
