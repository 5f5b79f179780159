#pragma once

#include <CLI/CLI.hpp>

namespace quillon::cli {

/// Gives the parser the user's language: headings, the help's own option, complaints. To be called before commands and
/// options are added, which take these over.
void LocalizeHelp(CLI::App& app);

}  // namespace quillon::cli
