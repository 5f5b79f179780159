#pragma once

#include <string>
#include <vector>

namespace quillon::test {

/// Expects the Japanese order to sort each line before the next, and to treat the texts of one line as equal.
void ExpectOrder(const std::vector<std::vector<std::string>>& lines);

}  // namespace quillon::test
