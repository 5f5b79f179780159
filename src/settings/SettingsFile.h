#pragma once

#include <string>

#include "base/Ports.h"
#include "settings/OptionValues.h"

/// Where the settings file stands, and how it goes.
namespace quillon {

/// The program's base name with ".ini": in the program's folder, or, where no file can be made there, in a folder of
/// the base name inside the user's configuration folder. There is one file only: a file beside the program that cannot
/// be replaced is not read. Fixed for the run; ask once.
[[nodiscard]] std::string SettingsFilePath(const std::string& programFolder, const std::string& baseName);

/// The command that resets the settings and quits: asks, unless confirmations are off, and deletes the file. True when
/// the program is to end at once, without writing its settings.
[[nodiscard]] bool mnuOptionDefaultExit(const std::string& path, const OptionValues& options, MessageBoxes& boxes);

/// Deletes the file, so that the next start uses every default. A failure (no such file) does not matter.
void ResetSettings(const std::string& path);

}  // namespace quillon
