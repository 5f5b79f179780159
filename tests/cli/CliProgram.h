#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "support/Process.h"

/// Runs quillon-cli and takes apart what it writes.
namespace quillon::test {

using Json = nlohmann::json;

/// The program's path, as this system finds it.
[[nodiscard]] std::string CliPath();

[[nodiscard]] ProcessResult Cli(const std::vector<std::string>& arguments, std::string_view input = "");

[[nodiscard]] std::vector<std::string> Lines(const std::string& text);

/// One object per line.
[[nodiscard]] std::vector<Json> JsonLines(const std::string& text);

/// Runs the program with arguments that it must refuse: status 2, a complaint, and nothing else said.
void ExpectWrongUsage(const std::vector<std::string>& arguments);

}  // namespace quillon::test
