#pragma once

#include <string>
#include <vector>

#include "cli/Output.h"

namespace quillon::cli {

/// The text on one line: control characters and invalid bytes appear as U+FFFD.
[[nodiscard]] std::string OnOneLine(const std::string& text);

/// Writes rows with their columns aligned, two blanks between them; a full-width character counts as two cells. The
/// last column is not padded.
void WriteTable(const std::vector<std::vector<std::string>>& rows, Output& output);

}  // namespace quillon::cli
