#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "dialogs/OptionTable.h"
#include "settings/ApplyModeSwitch.h"
#include "settings/OptionValues.h"

namespace quillon {

/// One control of the form.
struct OptionField {
  const OptionControl* control = nullptr;
  bool checked = false;
  std::string text;
};
using OptionFields = std::map<std::string, OptionField>;

/// What frmOption shows and edits, by the names of its controls (see OptionPages). Unknown names are errors of the
/// program and throw std::out_of_range.
class OptionForm {
 public:
  /// Shows the settings as they are now.
  OptionForm(OptionValues& options, ApplyModeSwitch& modeSwitch);

  [[nodiscard]] bool Checked(std::string_view name) const { return fields_.at(std::string(name)).checked; }
  [[nodiscard]] const std::string& Text(std::string_view name) const { return fields_.at(std::string(name)).text; }
  [[nodiscard]] bool Enabled(std::string_view name) const;

  /// The user has clicked a check box or an option button, which is now checked or not. The apply mode switches at
  /// once, with its message box: `show` is called before it, when what is enabled has changed already.
  void Click(std::string_view name, bool checked, const std::function<void()>& show);
  void Type(std::string_view name, const std::string& text) { fields_.at(std::string(name)).text = text; }

  /// Stores every control but chkAutoUpdate, which has reached its setting already.
  void cmdOK();
  /// Brings back the apply mode as it was when the form was made, and stores it.
  void cmdCancel();

 private:
  void ClickMode(bool automatic, const std::function<void()>& show);

  OptionValues& options_;
  ApplyModeSwitch& modeSwitch_;
  OptionFields fields_;
  ApplyModeSwitch::State modeAtStart_;
  bool manual_;  // what is about applying by hand can be used
};

}  // namespace quillon
