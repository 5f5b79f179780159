#include "rename/RepeatedRule.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"

namespace quillon {
namespace {

class GrowthWatch {
 public:
  GrowthWatch(std::size_t length, std::size_t steadyApplications)
      : length_(length), steadyApplications_(steadyApplications) {}

  /// True when the name is longer than kLongestName, or would be by the end of the `remaining` applications.
  [[nodiscard]] bool PassesLimit(std::size_t length, std::size_t remaining) {
    if (length <= length_) {
      steady_ = 0;
      length_ = length;
      return false;
    }
    const std::size_t growth = length - length_;
    leastGrowth_ = steady_ == 0 ? growth : std::min(leastGrowth_, growth);
    ++steady_;
    length_ = length;
    if (length > kLongestName) return true;
    if (steady_ < steadyApplications_) return false;
    steady_ = 0;
    return remaining > (kLongestName - length) / leastGrowth_;
  }

 private:
  std::size_t length_;
  std::size_t steadyApplications_;
  std::size_t steady_ = 0;
  std::size_t leastGrowth_ = 0;
};

/// Finds out when a sequence repeats itself, however long its period: Brent's algorithm, one comparison per name.
class CycleWatch {
 public:
  explicit CycleWatch(std::string name) : kept_(std::move(name)) {}

  /// The period, when `name` equals the kept one.
  [[nodiscard]] std::optional<std::size_t> Period(const std::string& name) {
    ++sinceKept_;
    if (name == kept_) return sinceKept_;
    if (sinceKept_ == keepAfter_) {
      kept_ = name;
      keepAfter_ *= 2;
      sinceKept_ = 0;
    }
    return std::nullopt;
  }

 private:
  std::string kept_;
  std::size_t keepAfter_ = 1;
  std::size_t sinceKept_ = 0;
};

}  // namespace

bool GrewPastEveryName(const std::string& before, const std::string& after) {
  if (after.size() <= kLongestName) return false;
  const std::size_t length = CharacterCount(after);
  return length > kLongestName && length > CharacterCount(before);
}

RepeatedResult ApplyRepeatedly(const RepeatedRule& rule, std::string name, std::size_t times, Progress& progress) {
  if (times == 0) return {std::move(name)};
  std::size_t length = CharacterCount(name);
  bool first = true;
  bool growing = false;
  GrowthWatch growth(length, rule.steadyApplications);
  CycleWatch cycle(name);
  for (std::size_t remaining = times; remaining > 0;) {
    if (!progress.Continue()) break;
    std::string next = rule.apply(name);
    --remaining;
    if (next == name) break;
    name = std::move(next);
    const std::size_t before = std::exchange(length, CharacterCount(name));
    growing = growing || (length > before && !first);
    first = false;
    if (growth.PassesLimit(length, remaining)) return {std::nullopt, times > 1};
    if (const auto period = cycle.Period(name)) remaining %= *period;
    if (!rule.shortcut) continue;
    if (std::optional<Forecast> forecast = rule.shortcut(name, remaining)) return {std::move(forecast->name), growing};
  }
  return {std::move(name), growing};
}

}  // namespace quillon
