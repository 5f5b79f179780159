#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillon::test {

struct ProcessResult {
  int exitCode = -1;  ///< 128 plus the signal's number if a signal ended the program
  std::string output;
  std::string errors;
};

/// Runs a program to its end. Arguments are UTF-8 (on Linux any bytes).
[[nodiscard]] ProcessResult RunProcess(const std::string& program, const std::vector<std::string>& arguments,
                                       std::string_view input = "");

}  // namespace quillon::test
