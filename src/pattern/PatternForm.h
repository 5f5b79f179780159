#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "base/Result.h"
#include "pattern/NamePattern.h"
#include "pattern/PatternRename.h"
#include "settings/OptionValues.h"

/// The logic of the dialog for renaming by a pattern, on plain data.
namespace quillon {

/// The longest text of the dialog's boxes, in characters: a text of the settings file holds two more, its quotes.
inline constexpr int kLongestPattern = 125;
inline constexpr std::int32_t kLargestCount = 999'999'999;
inline constexpr std::int32_t kMostCountDigits = 9;

/// The dialog's boxes.
struct PatternForm {
  std::string pattern;
  std::int32_t start = 1;
  std::int32_t step = 1;
  std::int32_t digits = 1;
  PatternInvalid invalid = PatternInvalid::kKept;
  std::string replacement;

  bool operator==(const PatternForm&) const = default;
};

/// What the dialog shows when it opens: the last pattern, or {title} at the first time.
[[nodiscard]] PatternForm ShownPatternForm(const OptionValues::Extra& stored);

/// Stores the form. Its pattern becomes the first of the history.
void StorePatternForm(const PatternForm& form, OptionValues::Extra& stored);

enum class PatternBox { kPattern, kReplacement };

/// Why OK is refused: the box that gets the focus, the caret's place in it, and the reason.
struct PatternRefusal {
  PatternBox box = PatternBox::kPattern;
  std::size_t caret = 0;  ///< before the character with this 0-based number
  std::string reason;

  bool operator==(const PatternRefusal&) const = default;
};

/// The rules that the form stands for. Rows without a name, and invalid ones, are treated as `options` say, which holds
/// for the manual mode only.
[[nodiscard]] Result<PatternRules, PatternRefusal> RulesOf(const PatternForm& form, const OptionValues::Rename& options,
                                                           bool automatic);

/// An error of a pattern as the user reads it: the reason alone, and with its place.
[[nodiscard]] std::string ReasonOf(const PatternError& error);
[[nodiscard]] std::string ErrorText(const PatternError& error);

}  // namespace quillon
