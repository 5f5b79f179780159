#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/Progress.h"
#include "rename/RegexReplace.h"
#include "settings/OptionValues.h"

namespace quillon {

struct ModifyResult {
  std::string name;
  bool leftAlone = false;  ///< unchanged: a rule would never end, or makes the name longer than 32,767 characters
  bool cancelled = false;  ///< the user has cancelled the run; the name is unchanged
};

/// Transforms the name by the rules: invalid characters are replaced, then the five replace rules are applied in order,
/// each `listCount` times in a row (the number of rows in the list), then width and letter case are converted. Rules
/// that are regular expressions do nothing without a library. A name that is left alone is returned as it was before
/// the first rule.
///
/// Cost: a rule that stops changing the name, returns to an earlier name, or adds the same texts to it once per row
/// costs only as much as it takes to detect this, however long the list is. A regular expression that has multiplied a
/// name, or kept it growing for long (64 applications and more), is assumed to go on. All other results are exact.
[[nodiscard]] ModifyResult ModifyName(std::string_view name, const OptionValues::Modify& rules, std::size_t listCount,
                                      RegexEngine& regex, Progress& progress);

}  // namespace quillon
