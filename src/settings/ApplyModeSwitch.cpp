#include "settings/ApplyModeSwitch.h"

#include <utility>

#include "settings/Settings.h"

namespace quillon {

ApplyModeSwitch::ApplyModeSwitch(std::string settingsPath, OptionValues& options, ApplyMode& mode, MessageBoxes& boxes,
                                 std::function<bool()> rowsAreListed)
    : settingsPath_(std::move(settingsPath)),
      options_(options),
      mode_(mode),
      boxes_(boxes),
      rowsAreListed_(std::move(rowsAreListed)) {}

void ApplyModeSwitch::Switch(bool automatic, const std::function<void()>& show) {
  if (automatic && rowsAreListed_()) {
    boxes_.Show({kModeCaption, "この設定は 次回起動時 または 「再読み込み」「リストクリア」 実行後に有効となります",
                 MessageIcon::kInformation});
    Store(true);
    return;
  }
  show();
  boxes_.Show({kModeCaption, automatic ? "自動適応モードが有効になりました" : "自動適応モードが無効になりました",
               MessageIcon::kInformation});
  Store(automatic);
  mode_.automatic = automatic;
}

void ApplyModeSwitch::Restore(State state) {
  Store(state.setting);
  mode_.automatic = state.automatic;
}

void ApplyModeSwitch::Store(bool value) {
  options_.update.automatic = value;
  (void)WriteAutoUpdate(settingsPath_, value);  // failures are silent, as for all settings
}

}  // namespace quillon
