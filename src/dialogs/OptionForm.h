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

/// The state of frmOption's controls, by their names (see OptionPages). An unknown name is a programming error and
/// throws std::out_of_range.
class OptionForm {
 public:
  /// Shows the settings as they are now.
  OptionForm(OptionValues& options, ApplyModeSwitch& modeSwitch, MessageBoxes& boxes);

  [[nodiscard]] bool Checked(std::string_view name) const { return fields_.at(std::string(name)).checked; }
  [[nodiscard]] const std::string& Text(std::string_view name) const { return fields_.at(std::string(name)).text; }
  [[nodiscard]] bool Enabled(std::string_view name) const;

  /// Call it when the user has clicked a check box or an option button; `checked` is its new state. `show` is called
  /// after the change. The apply mode switches at once; its message box opens after `show`. Switching on the further
  /// tags asks whether their files' extensions join the media group's, where these are not there yet.
  void Click(std::string_view name, bool checked, const std::function<void()>& show);
  void Type(std::string_view name, const std::string& text) { fields_.at(std::string(name)).text = text; }

  /// Stores every control except chkAutoUpdate, whose setting was stored by the click.
  void cmdOK();
  /// Restores the apply mode as it was when the form was made, and stores it.
  void cmdCancel();

 private:
  void ClickMode(bool automatic, const std::function<void()>& show);
  void OfferExtensions(const std::function<void()>& show);

  OptionValues& options_;
  ApplyModeSwitch& modeSwitch_;
  MessageBoxes& boxes_;
  OptionFields fields_;
  ApplyModeSwitch::State modeAtStart_;
  bool manual_;  // whether controls for applying by hand are enabled
};

}  // namespace quillon
