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
  bool leftAlone = false;  ///< a rule could never end, or made the name longer than 32,767 characters
  bool cancelled = false;  ///< the user has ended the run, and the name is as it was
};

/// The name transformed by the rules: invalid characters replaced, then the five replace rules in order, each applied
/// `listCount` times in a row (the number of rows in the list), then width and letter case. Rules that are regular
/// expressions do nothing without a library. A name that is left alone comes back as it was, whole.
///
/// Cost: a rule that stops changing the name, or brings an earlier one back, costs no more than it takes to see that,
/// however long the list is; so does a rule that adds the same texts to the name once per row. A regular expression
/// that has multiplied a name, or kept it growing for long (64 applications and more), is taken to go on with it.
/// Everything else is exact.
[[nodiscard]] ModifyResult ModifyName(std::string_view name, const OptionValues::Modify& rules, std::size_t listCount,
                                      RegexEngine& regex, Progress& progress);

}  // namespace quillon
