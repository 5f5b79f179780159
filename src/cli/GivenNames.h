#pragma once

#include <string>

#include "cli/Session.h"

namespace quillon::cli {

/// Gives the rows the names that a file holds (see ReadNameLines), "-" for standard input: one for each row in the
/// list's order, or one for each path that the file names. When that does not fit the list, it complains and returns
/// false; nothing is changed then.
[[nodiscard]] bool GiveNames(const std::string& path, Session& session);

}  // namespace quillon::cli
