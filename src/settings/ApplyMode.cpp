#include "settings/ApplyMode.h"

namespace quillon {

const char* ApplyModeText(const ApplyMode& mode) {
  return mode.automatic ? kAutoApplyText : kManualApplyText;
}

void RereadApplyMode(ApplyMode& mode, const OptionValues& options, MessageBoxes& boxes) {
  mode.automatic = options.update.automatic;
  if (mode.automatic) {
    boxes.Show({kModeCaption, "自動適応モードが有効になりました", MessageIcon::kInformation, MessageButtons::kOk});
  }
}

}  // namespace quillon
