#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "base/Ports.h"
#include "settings/ApplyMode.h"
#include "settings/OptionValues.h"

namespace quillon {

/// Switches the automatic apply mode, for the mode panel and for the options dialog. Its setting reaches the file at
/// once, alone: the others wait for the end of the program.
class ApplyModeSwitch {
 public:
  /// `rowsAreListed` is asked whenever the mode is to be switched on.
  ApplyModeSwitch(std::string settingsPath, OptionValues& options, ApplyMode& mode, MessageBoxes& boxes,
                  std::function<bool()> rowsAreListed);

  /// Tells the user and stores the setting. The mode changes with it, except that it never goes on over rows that are
  /// listed: then it waits for the next start, reload or list clear. `show` is called before the box when the mode is
  /// about to change.
  void Switch(bool automatic, const std::function<void()>& show);

  /// The mode in force and its setting, which differ while the mode waits to be switched on.
  struct State {
    bool automatic = false;
    bool setting = 0;
  };
  [[nodiscard]] State Now() const { return {mode_.automatic, options_.update.automatic}; }

  /// Puts mode and setting back without a word.
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
