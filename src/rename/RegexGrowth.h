#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "rename/RepeatedRule.h"

namespace quillon {

/// True when a regular expression is only a literal text, and its replacement, too: then it does the same as a plain
/// rule that distinguishes letter case.
[[nodiscard]] bool IsPlainRegexRule(std::string_view pattern, std::string_view replacement);

/// Predicts what repeated applications of a regular expression make of a name, from the first few. Most expressions
/// that let names grow add the same texts at the same places ("^" to "A_", "(\d+)" to "0$1"); others multiply what they
/// find ("\w" to "$&$&"). When growth would yet end by itself against all appearance, the name is at worst left alone,
/// never wrong.
class RegexGrowth {
 public:
  /// `apply` does one application; `name` is the name before the first one.
  RegexGrowth(std::string_view pattern, NameFunction apply, std::string name);

  /// After this many growing applications in a row, the growth is assumed never to stop: neither the name's own
  /// characters nor a count in the pattern can explain so many.
  [[nodiscard]] std::size_t SteadyApplications() const { return steadyApplications_; }

  /// Call it after every application. Returns the name after `remaining` more of them, once it is known. Growth at the
  /// same places has then been verified on a name much longer than the pattern can count and, when there is a final
  /// name, for the last application.
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
  std::size_t wait_ = 2;              ///< applications until the next search for growth at the same places
  std::size_t nextWait_ = 8;
};

}  // namespace quillon
