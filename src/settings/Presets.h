#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Result.h"
#include "settings/OptionValues.h"
#include "settings/basINIControl.h"

/// Modification rules that the user keeps under names: sections [Preset NAME] of the settings file with the keys of
/// [Modify], but for NonUnload. Names are compared ignoring case, as the file's sections are.
namespace quillon {

struct Preset {
  std::string name;
  OptionValues::Modify rules;  ///< keepDialogOpen is neither stored nor read

  bool operator==(const Preset&) const = default;
};

inline constexpr std::size_t kLongestPresetName = 60;  // characters
inline constexpr std::size_t kMostPresets = 100;

/// What the user has typed, without the blanks around it, full-width ones included.
[[nodiscard]] std::string PresetNameFrom(std::string_view typed);

/// Why the name cannot be a preset's, for the user; nullopt when it can. A name is one line of at most
/// kLongestPresetName characters, without control characters and without the bracket that ends a section's name.
[[nodiscard]] std::optional<std::string> PresetNameRefusal(std::string_view name);

/// The name with " (number)" behind it, cut before that when it would be too long.
[[nodiscard]] std::string NumberedPresetName(std::string_view name, int number);

enum class PresetProblem {
  kUnreadable,  ///< the file is missing where it must exist, is too large, or cannot be read
  kNotWritten,
  kAbsent,     ///< no preset of this name
  kNameTaken,  ///< by another preset
  kDamaged,    ///< a value does not fit its key, or a name cannot be a preset's
  kEmpty,      ///< the file has neither presets nor rules
  kTooMany,
};

struct PresetError {
  PresetProblem problem = PresetProblem::kUnreadable;
  std::string where = {};  ///< for kDamaged: the section, the key and the value

  bool operator==(const PresetError&) const = default;
};

/// What to do about a preset whose name is taken by other rules.
enum class SameName { kNumber, kReplace };

/// The presets of the settings file. Each call reads the file anew, and each change is written at once, entirely or not
/// at all: presets are the user's work and do not wait for the program's end. Everything else in the file stays as it
/// is. Changes return nullopt when they are done.
class Presets {
 public:
  explicit Presets(std::string settingsPath) : path_(std::move(settingsPath)) {}

  [[nodiscard]] const std::string& Path() const { return path_; }

  /// In the file's order; none when the file cannot be read.
  [[nodiscard]] std::vector<std::string> Names() const;

  [[nodiscard]] Result<OptionValues::Modify, PresetError> Load(std::string_view name) const;

  /// Adds the preset behind the others, or replaces that of the same name.
  [[nodiscard]] std::optional<PresetError> Save(const Preset& preset) const;

  /// The new name may be the old one in another letter case.
  [[nodiscard]] std::optional<PresetError> Rename(std::string_view name, std::string_view newName) const;
  [[nodiscard]] std::optional<PresetError> Remove(std::string_view name) const;

  /// Those of the presets whose names are taken by other rules.
  [[nodiscard]] std::vector<std::string> Taken(const std::vector<Preset>& presets) const;

  /// Adds all of them and returns how many were written: those that are there with the same rules are passed over.
  [[nodiscard]] Result<std::size_t, PresetError> Add(const std::vector<Preset>& presets, SameName sameName) const;

 private:
  std::string path_;
};

/// The presets of a settings file or of an exported one. Of a file without presets its [Modify] is read, as a preset of
/// the name `otherwise`.
[[nodiscard]] Result<std::vector<Preset>, PresetError> ReadPresetFile(const std::string& path,
                                                                      std::string_view otherwise);

/// Writes a settings file that has the preset and, as its [Modify], the same rules. Replaces a file of this name.
[[nodiscard]] std::optional<PresetError> WritePresetFile(const std::string& path, const Preset& preset);

}  // namespace quillon
