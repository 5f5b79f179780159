#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/Ports.h"
#include "base/Result.h"
#include "settings/OptionValues.h"
#include "settings/basINIControl.h"

/// Reading and writing all settings.
namespace quillon {

/// The first value that does not fit its key: a number outside 16 bits, or a text that is neither a number nor "True"
/// or "False".
struct SettingsError {
  std::string section;
  std::string key;
  std::string text;  ///< the value as it was read

  bool operator==(const SettingsError&) const = default;
};

/// Reads every setting; missing keys give the defaults. Never changes the file.
[[nodiscard]] Result<OptionValues, SettingsError> ReadOptionValues(const IniFile& file);

/// The same for the file at this path. Returns nullopt, the initialisation error, when a value does not fit or an
/// existing file cannot be read. A missing file gives the defaults.
[[nodiscard]] std::optional<OptionValues> LoadOptionValues(const std::string& path);

/// Whether the main window's place and size are written: only while it is neither minimised nor maximised.
enum class WindowGeometry { kWrite, kKeep };

/// Writes every setting but AutoUpdate into the file in memory; the caller saves it.
void WriteOptionValues(IniFile& file, const OptionValues& options, WindowGeometry geometry);

/// Reads the modification rules of a section that has the keys of [Modify]; keepDialogOpen keeps its default.
[[nodiscard]] Result<OptionValues::Modify, SettingsError> ReadRules(const IniFile& file, std::string_view section);

/// Writes them, without keepDialogOpen, into the file in memory.
void WriteRules(IniFile& file, std::string_view section, const OptionValues::Modify& rules);

/// Writes the setting AutoUpdate to the file at once. Returns false when the file cannot be read or written.
[[nodiscard]] bool WriteAutoUpdate(const std::string& path, bool automatic);

/// The message shown before the program ends when LoadOptionValues fails.
[[nodiscard]] Message InitialisationError();

}  // namespace quillon
