#pragma once

#include <CLI/CLI.hpp>

namespace quillon::cli {

/// Sets the parser's headings, help option and complaints in the user's language. Call it before commands and options
/// are added, because they inherit these.
void LocalizeHelp(CLI::App& app);

}  // namespace quillon::cli
