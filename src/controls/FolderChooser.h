#pragma once

#include <wx/window.h>

#include <string>

namespace quillon {

/// Shows the system's dialog for an existing folder. Returns an empty path when it was cancelled. `confirm` is the
/// label of its confirming button; empty: the system's usual label.
[[nodiscard]] std::string ChooseFolder(wxWindow& parent, const std::string& prompt, const std::string& start,
                                       const std::string& confirm);

}  // namespace quillon
