#pragma once

#include <string>

/// The texts of the version box.
namespace quillon {

/// "Ver " and the version.
[[nodiscard]] std::string VersionText();

/// The program's purpose and state; lines are separated by "\n". `regexAvailable` tells whether the library for regular
/// expressions was found at the start.
[[nodiscard]] std::string InformationText(bool regexAvailable);

}  // namespace quillon
