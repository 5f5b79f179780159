#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace quillon::cli {

/// The shells for which there are completions.
[[nodiscard]] std::vector<std::string> CompletionShells();

/// The script with which this shell completes the program's commands, their options, and the options' values: what the
/// parser knows of them.
[[nodiscard]] std::string CompletionScript(const CLI::App& app, const std::string& shell);

}  // namespace quillon::cli
