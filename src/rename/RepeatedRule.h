#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "base/Progress.h"

namespace quillon {

/// The largest number of characters that a rule may make a name grow to; a path on Windows cannot hold more.
inline constexpr std::size_t kLongestName = 32'767;

/// True when `after` is longer than `before` and longer than any name may be.
[[nodiscard]] bool GrewPastEveryName(const std::string& before, const std::string& after);

/// Turns a name into another one.
using NameFunction = std::function<std::string(const std::string& name)>;

/// The final name; nullopt when it grows past kLongestName.
struct Forecast {
  std::optional<std::string> name;
};

/// A rule that is applied repeatedly.
struct RepeatedRule {
  /// One application. The same name must always give the same answer.
  NameFunction apply;

  /// After this many growing applications in a row, the growth is assumed to go on for ever. 1 when that is certain.
  static constexpr std::size_t kNeverSure = kLongestName;
  std::size_t steadyApplications = 1;

  /// Optional; called after each application that changed the name. May give the result of all `remaining` applications
  /// at once.
  std::function<std::optional<Forecast>(const std::string& name, std::size_t remaining)> shortcut;
};

/// The result of repeated applications.
struct RepeatedResult {
  std::optional<std::string> name;  ///< nullopt when it grows past kLongestName
  bool growing = false;             ///< the name became longer again after the first application, or would
};

/// The name after `times` applications. An application that changes nothing ends the work; when an earlier name
/// returns, the remaining whole cycles are skipped. There is no name when it grows past kLongestName, or is predicted
/// to: it grew in each of `steadyApplications` applications in a row, and going on by the smallest of these growths
/// would pass the limit. `progress` is asked before every application; once it says no, the name so far is returned.
[[nodiscard]] RepeatedResult ApplyRepeatedly(const RepeatedRule& rule, std::string name, std::size_t times,
                                             Progress& progress);

}  // namespace quillon
