#pragma once

#include "base/Ports.h"
#include "settings/OptionValues.h"

namespace quillon {

/// The caption of boxes about the mode.
inline constexpr const char* kModeCaption = "設定";
inline constexpr const char* kAutoApplyText = "自動適応モード";
inline constexpr const char* kManualApplyText = "手動適応モード";

/// The apply mode in force, distinct from the stored `Update`/`AutoUpdate`: turning the setting on while rows are
/// listed takes effect only at the next start, reload or list clear.
struct ApplyMode {
  bool automatic = false;
};

/// What the mode panel reads.
[[nodiscard]] const char* ApplyModeText(const ApplyMode& mode);

/// Brings the mode in line with the setting, as after a reload and a list clear; says so when it is automatic then. The
/// option value is kept in step by whoever writes the setting.
void RereadApplyMode(ApplyMode& mode, const OptionValues& options, MessageBoxes& boxes);

}  // namespace quillon
