#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "support/Process.h"

/// Runs quillon-cli and parses its output.
namespace quillon::test {

using Json = nlohmann::json;

/// The program's path, as this system finds it.
[[nodiscard]] std::string CliPath();

[[nodiscard]] ProcessResult Cli(const std::vector<std::string>& arguments, std::string_view input = "");

[[nodiscard]] std::vector<std::string> Lines(const std::string& text);

/// One object per line.
[[nodiscard]] std::vector<Json> JsonLines(const std::string& text);

/// Expects the program to refuse these arguments: status 2, a complaint, and no output.
void ExpectWrongUsage(const std::vector<std::string>& arguments);

}  // namespace quillon::test
