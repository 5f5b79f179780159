#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "rename/RepeatedRule.h"

namespace quillon {

/// True when a regular expression is nothing but a text to find, and its replacement nothing but a text: then it does
/// what a plain rule does that distinguishes letter case.
[[nodiscard]] bool IsPlainRegexRule(std::string_view pattern, std::string_view replacement);

/// Foresees what a regular expression makes of a name over and over, from what a few applications have done to it. Most
/// that let names grow do it by the same texts at the same places ("^" to "A_", "(\d+)" to "0$1"); others multiply what
/// they find ("\w" to "$&$&"). What could yet end by itself against all appearance is at worst left alone, never wrong.
class RegexGrowth {
 public:
  /// `apply` is one application; `name` is what it begins with.
  RegexGrowth(std::string_view pattern, NameFunction apply, std::string name);

  /// A name that becomes longer this often in a row, which is more often than its own characters or a count in the
  /// pattern account for, is not going to stop growing.
  [[nodiscard]] std::size_t SteadyApplications() const { return steadyApplications_; }

  /// To be called after every application. What the name is after `remaining` more of them, once that is known. Growth
  /// at the same places has then been tried on a name far longer than the pattern can count, and where there is a name
  /// in the end, for the very last application.
  [[nodiscard]] std::optional<Forecast> After(const std::string& name, std::size_t remaining);

 private:
  [[nodiscard]] std::optional<Forecast> Linear(std::size_t remaining);
  [[nodiscard]] bool MultipliesPastLimit(std::size_t remaining);

  NameFunction apply_;
  std::size_t farCharacters_;
  std::size_t steadyApplications_;
  std::array<std::string, 3> names_;  ///< the last three, the newest last
  std::size_t length_ = 0;            ///< the newest name's characters
  std::size_t growth_ = 0;            ///< the characters that the last application added
  int multiplying_ = 0;               ///< applications in a row that added ever more
  std::size_t wait_ = 2;              ///< applications before the next look for growth at the same places
  std::size_t nextWait_ = 8;
};

}  // namespace quillon
