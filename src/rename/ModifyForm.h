#pragma once

#include <array>
#include <cstddef>
#include <optional>

#include "base/Ports.h"
#include "settings/OptionValues.h"

/// The logic of the modification rules' dialog, on plain data: OptionValues::Modify.
namespace quillon {

enum class ModifyBox { kFind, kReplacement };

/// Why OK was refused: the text box that gets the focus, the caret's place in it, and the message.
struct ModifyRefusal {
  std::size_t rule = 0;
  ModifyBox box = ModifyBox::kFind;
  std::size_t caret = 0;  ///< before the character with this 0-based number
  Message message;

  bool operator==(const ModifyRefusal&) const = default;
};

/// Returns nullopt when the form may be stored. A rule that is checked must have a text to find; all rules are checked
/// for this first. No rule, checked or not, may have a replacement that file names cannot hold.
[[nodiscard]] std::optional<ModifyRefusal> CheckModifyForm(const OptionValues::Modify& form);

/// Which parts of the dialog are enabled.
struct ModifyEnabling {
  bool invalidReplacement = false;                     ///< the replacement of invalid characters
  std::array<bool, kReplaceRuleCount> ruleTexts = {};  ///< both text boxes of each rule
  bool regularExpressions = false;                     ///< the option to search by them
  bool operator==(const ModifyEnabling&) const = default;
};

[[nodiscard]] ModifyEnabling EnabledBoxes(const OptionValues::Modify& form, bool regexAvailable);

/// The form as the dialog shows it: a plain search when the regular-expression library is missing.
[[nodiscard]] OptionValues::Modify ShownForm(const OptionValues::Modify& stored, bool regexAvailable);

/// The form that OK stores. Without the library the user could not choose the search, so the one in `stored` stays.
[[nodiscard]] OptionValues::Modify StoredForm(const OptionValues::Modify& shown, const OptionValues::Modify& stored,
                                              bool regexAvailable);

}  // namespace quillon
