#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "rename/RepeatedRule.h"
#include "rename/ReplaceText.h"

namespace quillon {

/// Predicts the names that a plain rule makes when its replacement contains its own find text once: with "a" -> "xay"
/// every "a" becomes "xxx...a...yyy", one "x" and one "y" more with every application. Once the name is seen to grow
/// like this, and nothing else in it can ever match, the result of any number of further applications is written at
/// once.
class SelfGrowth {
 public:
  SelfGrowth(std::string_view find, std::string_view replacement, CompareMode compareMode);

  /// False for other rules, for which the functions below are of no use.
  [[nodiscard]] bool Possible() const { return possible_; }

  /// Starts or restarts watching at `name`.
  void Watch(const std::string& name);

  /// Call it after every application. When the growth is certain, returns the name after `remaining` more of them.
  [[nodiscard]] std::optional<Forecast> After(const std::string& name, std::size_t remaining);

 private:
  [[nodiscard]] std::string Grown(std::size_t applications, std::vector<TextRange>* finds) const;

  std::string_view find_;
  CompareMode compareMode_;
  bool possible_ = false;
  std::string_view before_;  ///< the replacement's parts around its own find text
  std::string_view self_;
  std::string_view after_;
  std::size_t applicationsToSee_ = 0;
  std::size_t applications_ = 0;
  std::vector<std::string> between_;  ///< the texts between the finds when watching began
};

}  // namespace quillon
