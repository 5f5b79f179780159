#pragma once

#include <wx/window.h>

#include <string>

namespace quillon {

/// Shows the system's dialog for an existing folder; an empty path when it was cancelled. `confirm` is what its
/// confirming button says; empty: the system's usual word.
[[nodiscard]] std::string ChooseFolder(wxWindow& parent, const std::string& prompt, const std::string& start,
                                       const std::string& confirm);

}  // namespace quillon
