#pragma once

#include <span>

/// Everything on the pages of frmOption: the form is filled and the window built from this table.
namespace quillon {

enum class OptionKind {
  kCheckBox,
  kTextBox,       ///< of one line, beside its check box
  kOptionButton,  ///< one of several with the same key
  kButton,        ///< beside the check box before it
  kNote,          ///< explanatory text
};

/// When a control is enabled.
enum class OptionNeeds {
  kNothing,
  kManualMode,  ///< in manual apply mode
  kFilter,      ///< while the extension filter is on
  kOwnBox,      ///< while the check box that it belongs to is enabled and checked
};

struct OptionControl {
  OptionKind kind = OptionKind::kCheckBox;
  const char* name = "";
  const char* caption = "";  ///< with its access key; a note's lines; empty for a text box
  const char* section = "";  ///< of the setting that it edits; empty for none
  const char* key = "";
  OptionNeeds needs = OptionNeeds::kNothing;
  const char* toolTip = "";
  const char* checkBox = "";  ///< the name of the check box that a text box belongs to
  bool on = true;             ///< the setting's value while this option button is chosen
};

struct OptionFrame {
  const char* caption = "";
  std::span<const OptionControl> controls;
  const char* toolTip = "";
};

struct OptionPage {
  const char* caption = "";  ///< of its tab
  std::span<const OptionFrame> frames;
};

[[nodiscard]] std::span<const OptionPage> OptionPages();

}  // namespace quillon
