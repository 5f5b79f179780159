#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "rename/RepeatedRule.h"
#include "rename/ReplaceText.h"

namespace quillon {

/// What a plain rule does to a name over and over when its replacement holds its own find text once: with "a" -> "xay"
/// every "a" becomes "xxx...a...yyy", one "x" and one "y" more with every application. Once the name is seen to grow
/// so, and nothing else in it can ever match, any number of further applications is written down at once.
class SelfGrowth {
 public:
  SelfGrowth(std::string_view find, std::string_view replacement, CompareMode compareMode);

  /// False for rules of any other kind: then nothing below is of use.
  [[nodiscard]] bool Possible() const { return possible_; }

  /// Starts watching at `name`, or starts anew.
  void Watch(const std::string& name);

  /// To be called after every application. When the growth is certain: the name after `remaining` more of them.
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
  std::vector<std::string> between_;  ///< what lay between the finds when watching began
};

}  // namespace quillon
