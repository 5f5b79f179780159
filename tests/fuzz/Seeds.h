#pragma once

#include <map>
#include <string>
#include <vector>

namespace quillon::test {

/// The inputs that each fuzzer starts from.
[[nodiscard]] std::map<std::string, std::vector<std::string>> FuzzerSeeds();

}  // namespace quillon::test
