#pragma once

#include "base/Ports.h"
#include "settings/OptionValues.h"

namespace quillon {

/// The caption of boxes about the mode.
inline constexpr const char* kModeCaption = "設定";
inline constexpr const char* kAutoApplyText = "自動適応モード";
inline constexpr const char* kManualApplyText = "手動適応モード";

/// The apply mode in force. It can differ from the stored setting `Update`/`AutoUpdate`: turning that on while rows are
/// listed takes effect only at the next start, reload or list clear.
struct ApplyMode {
  bool automatic = false;
};

/// Warns before a command that changes many rename names in auto-apply mode.
inline constexpr const char* kAppliesAtOnceText = "自動適応モードのため、実行するとすぐにファイル名が変わります";

/// The text of the mode panel.
[[nodiscard]] const char* ApplyModeText(const ApplyMode& mode);

/// Sets the mode from the setting, as after a reload and a list clear, and shows a message if it is automatic then.
/// Uses the option value, which must be updated whenever the setting is written.
void RereadApplyMode(ApplyMode& mode, const OptionValues& options, MessageBoxes& boxes);

}  // namespace quillon
