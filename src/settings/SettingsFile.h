#pragma once

#include <string>

#include "base/Ports.h"
#include "settings/OptionValues.h"

/// The settings file's path, and deleting it.
namespace quillon {

/// The settings file is called after the program's base name, with ".ini". It lies in the program's folder, or, where
/// no file can be created there, in a folder of the base name inside the user's configuration folder. Only one of the
/// two is used: a file beside the program that cannot be replaced is not read. Call this once and keep the result for
/// the whole run.
[[nodiscard]] std::string SettingsFilePath(const std::string& programFolder, const std::string& baseName);

/// The command that resets the settings and quits. It asks, unless confirmations are off, and deletes the file. Returns
/// true when the program must end at once, without writing its settings.
[[nodiscard]] bool mnuOptionDefaultExit(const std::string& path, const OptionValues& options, MessageBoxes& boxes);

/// Deletes the file, so that the next start uses the defaults. Failures, such as a missing file, are ignored.
void ResetSettings(const std::string& path);

}  // namespace quillon
