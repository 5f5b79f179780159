#pragma once

#include <array>
#include <cstddef>
#include <optional>

#include "base/Ports.h"
#include "settings/OptionValues.h"

/// What the dialog of the modification rules shows and edits, as plain data: OptionValues::Modify.
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

/// Nullopt when the form may be stored. A rule that is checked must have a text to find; this is asked of all rules
/// first. No rule, checked or not, may have a replacement that file names cannot hold.
[[nodiscard]] std::optional<ModifyRefusal> CheckModifyForm(const OptionValues::Modify& form);

/// What of the dialog can be used.
struct ModifyEnabling {
  bool invalidReplacement = false;                     ///< the replacement of invalid characters
  std::array<bool, kReplaceRuleCount> ruleTexts = {};  ///< both text boxes of each rule
  bool regularExpressions = false;                     ///< the choice to search by them
  bool operator==(const ModifyEnabling&) const = default;
};

[[nodiscard]] ModifyEnabling EnabledBoxes(const OptionValues::Modify& form, bool regexAvailable);

/// The form as the dialog shows it: without the library for regular expressions the search is a plain one.
[[nodiscard]] OptionValues::Modify ShownForm(const OptionValues::Modify& stored, bool regexAvailable);

/// What OK stores. A choice of search that the user did not have stays as it is in `stored`.
[[nodiscard]] OptionValues::Modify StoredForm(const OptionValues::Modify& shown, const OptionValues::Modify& stored,
                                              bool regexAvailable);

}  // namespace quillon
