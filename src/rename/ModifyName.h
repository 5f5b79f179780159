#pragma once

#include <array>
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
  /// The rules that made the name longer again when they were applied to their own result.
  std::array<bool, kReplaceRuleCount> growing = {};
};

/// How often each replace rule is applied: once per row of the list, or only once.
enum class Repetition { kPerRow, kOnce };

[[nodiscard]] inline Repetition RepetitionOf(const OptionValues& options) {
  return options.extra.runRulesOnce ? Repetition::kOnce : Repetition::kPerRow;
}

/// The `listCount` of ModifyName for a list of this many rows.
[[nodiscard]] inline std::size_t Applications(Repetition repetition, std::size_t rows) {
  return repetition == Repetition::kOnce ? 1 : rows;
}

/// Transforms the name by the rules: invalid characters are replaced, then the five replace rules are applied in order,
/// each `listCount` times in a row (usually the number of rows in the list), then width and letter case are converted.
/// Rules that are regular expressions do nothing without a library. A name that is left alone is returned as it was
/// before the first rule.
///
/// Cost: a rule that stops changing the name, returns to an earlier name, or adds the same texts to it once per row
/// costs only as much as it takes to detect this, however long the list is. A regular expression that has multiplied a
/// name, or kept it growing for long (64 applications and more), is assumed to go on. All other results are exact.
[[nodiscard]] ModifyResult ModifyName(std::string_view name, const OptionValues::Modify& rules, std::size_t listCount,
                                      RegexEngine& regex, Progress& progress);

}  // namespace quillon
