#pragma once

#include <string>

namespace quillon {

/// Converts a pattern of file names ("*.mid;*.midi", "*.*") for the system's open-file dialog, so that the dialog
/// ignores letter case and "*.*" matches all names.
[[nodiscard]] std::string DialogPattern(const std::string& pattern);

}  // namespace quillon
