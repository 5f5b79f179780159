#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "base/Ports.h"
#include "settings/ApplyMode.h"
#include "settings/OptionValues.h"

namespace quillon {

/// Switches the automatic apply mode, for the mode panel and for the options dialog. Unlike the other settings, which
/// are written when the program ends, this one is written to the file at once.
class ApplyModeSwitch {
 public:
  /// `rowsAreListed` is called whenever the mode is to be switched on.
  ApplyModeSwitch(std::string settingsPath, OptionValues& options, ApplyMode& mode, MessageBoxes& boxes,
                  std::function<bool()> rowsAreListed);

  /// Stores the setting, changes the mode and shows a message. While rows are listed, switching on only stores the
  /// setting; the mode then changes at the next start, reload or list clear. `show` is called before the message when
  /// the mode is about to change.
  void Switch(bool automatic, const std::function<void()>& show);

  /// The mode in force and its setting. They differ while switching on is delayed.
  struct State {
    bool automatic = false;
    bool setting = 0;
  };
  [[nodiscard]] State Now() const { return {mode_.automatic, options_.update.automatic}; }

  /// Restores mode and setting without a message.
  void Restore(State state);

 private:
  void Store(bool value);

  std::string settingsPath_;
  OptionValues& options_;
  ApplyMode& mode_;
  MessageBoxes& boxes_;
  std::function<bool()> rowsAreListed_;
};

}  // namespace quillon
