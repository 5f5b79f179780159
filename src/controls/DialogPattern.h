#pragma once

#include <string>

namespace quillon {

/// A pattern of file names ("*.mid;*.midi", "*.*") as the system's open-file dialog has to be given it, so that it
/// offers the names whatever the case of their letters, and all names for "*.*".
[[nodiscard]] std::string DialogPattern(const std::string& pattern);

}  // namespace quillon
