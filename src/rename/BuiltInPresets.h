#pragma once

#include <string_view>
#include <vector>

#include "settings/Presets.h"

namespace quillon {

/// The presets that come with the program, in the order of its menu. However many rows the list has, each gives the
/// same result: no rule matches what it has made itself.
[[nodiscard]] const std::vector<Preset>& BuiltInPresets();

/// Null when none has this name, letter case ignored.
[[nodiscard]] const Preset* FindBuiltInPreset(std::string_view name);

}  // namespace quillon
