#pragma once

#include <span>

/// Everything that stands on the pages of frmOption: from this table the form is filled and the window built.
namespace quillon {

enum class OptionKind {
  kCheckBox,
  kTextBox,       ///< of one line, beside its check box
  kOptionButton,  ///< one of several with the same key
  kButton,        ///< beside the check box before it
  kNote,          ///< a text to read
};

/// When a control can be used.
enum class OptionNeeds {
  kNothing,
  kManualMode,  ///< it is about applying by hand
  kFilter,      ///< the extension filter is on
  kOwnBox,      ///< as the check box that it belongs to, and only while that is checked
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
  bool on = true;             ///< an option button's: the setting while it is chosen
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
