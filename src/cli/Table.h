#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "cli/Output.h"

namespace quillon::cli {

/// The text on one line: control characters and invalid bytes appear as U+FFFD.
[[nodiscard]] std::string OnOneLine(std::string_view text);

using CellText = std::function<std::string(std::size_t row, std::size_t column)>;

/// Writes rows with their columns aligned, two blanks between them; a full-width character counts as two cells. The
/// last column is not padded. `cell` gives each text, twice.
void WriteTable(std::size_t rows, std::size_t columns, const CellText& cell, Output& output);

}  // namespace quillon::cli
