#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quillon {

/// The paths that the command line names, each a full path. `raw` is the command line behind the program's name, on
/// systems that hand it over whole (its quoting rules: SplitCommandLine); else `arguments` are taken as they are.
[[nodiscard]] std::vector<std::string> CommandLinePaths(const std::optional<std::string>& raw,
                                                        const std::vector<std::string>& arguments);

}  // namespace quillon
