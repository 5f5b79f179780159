#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Result.h"

/// Files that say what is to be renamed, read line by line: UTF-8, with or without a byte-order mark, lines that end
/// with LF or CR LF. Errors are the 1-based number of the first line that cannot be read.
namespace quillon {

/// A rename as a file gives it. Paths are relative or full; `to` may be a name alone.
struct PlanLine {
  std::size_t number = 0;  ///< 1-based
  std::string from;
  std::string to;

  bool operator==(const PlanLine&) const = default;
};

/// Reads objects with "old" and "new", one per line; further fields and blank lines are passed over.
[[nodiscard]] Result<std::vector<PlanLine>, std::size_t> ReadPlanLines(std::string_view text);

struct NameLine {
  std::size_t number = 0;                ///< 1-based
  std::optional<std::string> path = {};  ///< the file that gets the name; without it the next one
  std::string name;

  bool operator==(const NameLine&) const = default;
};

/// Reads names, one per line, or objects with "path" and "name", when the first line that is not blank begins as an
/// object: no file name can begin so. A blank name is an error, and so is a plain one that is not valid
/// UTF-8; blank lines at the end and between objects are passed over.
[[nodiscard]] Result<std::vector<NameLine>, std::size_t> ReadNameLines(std::string_view text);

}  // namespace quillon
