#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// True when a regular expression is nothing but a text to find, and its replacement nothing but a text: then it does
/// what a plain rule does that distinguishes letter case.
[[nodiscard]] bool IsPlainRegexRule(std::string_view pattern, std::string_view replacement);

/// What a regular expression does to a name over and over when it adds a fixed text in front of the whole name, or
/// behind it, or both: "^" or "$" with a plain text, or the whole name (".+", "^(.*)$") with itself between plain texts
/// ("A_$1"). Once the name is seen to grow so, any number of further applications is written down at once.
class FixedGrowth {
 public:
  /// After so many applications that each made the name longer, it grows for ever.
  static constexpr std::size_t kApplicationsToSee = 2;

  FixedGrowth(std::string_view pattern, std::string_view replacement);

  /// False for rules of any other kind: then nothing below is of use.
  [[nodiscard]] bool Possible() const { return possible_; }

  /// Starts watching at `name`, or starts anew.
  void Watch(const std::string& name);

  /// To be called after every application. When the growth is certain: the name after `remaining` more of them.
  [[nodiscard]] std::optional<std::string> After(const std::string& name, std::size_t remaining);

 private:
  [[nodiscard]] std::string Grown(std::size_t applications) const;

  bool possible_ = false;
  std::string before_;  ///< what each application adds in front
  std::string after_;
  std::string start_;  ///< the name when watching began
  std::size_t applications_ = 0;
};

}  // namespace quillon
