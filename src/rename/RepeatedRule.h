#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "base/Progress.h"

namespace quillon {

/// The most characters that a rule may make a name grow to; a path on Windows cannot hold more.
inline constexpr std::size_t kLongestName = 32'767;

/// True when `after` is longer than `before` and longer than any name may be.
[[nodiscard]] bool GrewPastEveryName(const std::string& before, const std::string& after);

/// What makes of a name another one.
using NameFunction = std::function<std::string(const std::string& name)>;

/// What a name becomes in the end; nullopt when it grows past kLongestName.
struct Forecast {
  std::optional<std::string> name;
};

/// A rule that is applied again and again.
struct RepeatedRule {
  /// One application. The same name must always give the same answer.
  NameFunction apply;

  /// After how many applications in a row that each made the name longer this is taken to go on for ever. 1 where it is
  /// certain to.
  static constexpr std::size_t kNeverSure = kLongestName;
  std::size_t steadyApplications = 1;

  /// Optional; called after each application that changed the name. May give the result of all `remaining` applications
  /// at once.
  std::function<std::optional<Forecast>(const std::string& name, std::size_t remaining)> shortcut;
};

/// The name after `times` applications. An application that changes nothing ends the work, and so does a name that was
/// there before: the applications that are left then only go round in a circle. Nullopt when the name grows past
/// kLongestName, or will: it grew with each of `steadyApplications` applications in a row, and if it goes on by the
/// least it grew in any of them it gets there. `progress` is asked before every application; once it says no, the name
/// so far comes back.
[[nodiscard]] std::optional<std::string> ApplyRepeatedly(const RepeatedRule& rule, std::string name, std::size_t times,
                                                         Progress& progress);

}  // namespace quillon
