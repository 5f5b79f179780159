#pragma once

#include <string>

/// The texts of the version box.
namespace quillon {

/// "Ver " and the version.
[[nodiscard]] std::string VersionText();

/// What the program is for and the state it is in; lines are separated by "\n". `regexAvailable` is whether the library
/// for regular expressions was found at the start.
[[nodiscard]] std::string InformationText(bool regexAvailable);

}  // namespace quillon
