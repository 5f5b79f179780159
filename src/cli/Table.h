#pragma once

#include <string>
#include <vector>

#include "cli/Output.h"

namespace quillon::cli {

/// Writes rows with their columns aligned, two blanks between them; a full-width character counts as two cells. Control
/// characters and invalid bytes, which would spoil the lines, appear as U+FFFD. The last column is not padded.
void WriteTable(const std::vector<std::vector<std::string>>& rows, Output& output);

}  // namespace quillon::cli
