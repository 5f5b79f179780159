#pragma once

#include <string>
#include <vector>

namespace quillon::test {

/// Expects the Japanese order to have each line before the next, and to take the texts of one line for the same.
void ExpectOrder(const std::vector<std::vector<std::string>>& lines);

}  // namespace quillon::test
