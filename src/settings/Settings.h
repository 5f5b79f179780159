#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/Ports.h"
#include "base/Result.h"
#include "settings/OptionValues.h"
#include "settings/basINIControl.h"

/// All settings, from and to the settings file.
namespace quillon {

/// The first value that does not fit its key: a number outside 16 bits, or a text that is neither a number nor "True"
/// or "False".
struct SettingsError {
  std::string section;
  std::string key;
  std::string text;  ///< the value as it was read

  bool operator==(const SettingsError&) const = default;
};

/// Every setting; the defaults for missing keys. Never changes the file.
[[nodiscard]] Result<OptionValues, SettingsError> ReadOptionValues(const IniFile& file);

/// The same of the file at this path. nullopt stands for the initialisation error: a value does not fit, or the file is
/// there and cannot be read. A file that is not there gives the defaults.
[[nodiscard]] std::optional<OptionValues> LoadOptionValues(const std::string& path);

/// Whether the main window's place and size are written: only when it is neither minimised nor maximised.
enum class WindowGeometry { kWrite, kKeep };

/// Writes every setting but AutoUpdate into the file in memory; the caller saves it.
void WriteOptionValues(IniFile& file, const OptionValues& options, WindowGeometry geometry);

/// The one setting that reaches the file at once, alone. False when the file cannot be read or written.
[[nodiscard]] bool WriteAutoUpdate(const std::string& path, bool automatic);

/// What is shown before the program ends when LoadOptionValues fails.
[[nodiscard]] Message InitialisationError();

}  // namespace quillon
