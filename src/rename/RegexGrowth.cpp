#include "rename/RegexGrowth.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "rename/LinearGrowth.h"

namespace quillon {
namespace {

/// Growth that still holds on a name longer by this, plus the largest number in the pattern, is assumed to go on.
constexpr std::size_t kFarCharacters = 64;

/// When the growth itself grows by a quarter or more this often in a row, the name is assumed to pass every limit.
constexpr int kMultiplyingApplications = 4;

/// True for a replacement text without any "$" or "\" that has a special meaning.
bool IsFixedText(std::string_view text) {
  constexpr std::string_view kVariables = "0123456789{&`'";
  if (text.find_first_of("\\/\n") != std::string_view::npos || !IsValidUtf8(text)) return false;
  for (std::size_t at = text.find('$'); at != std::string_view::npos; at = text.find('$', at + 1)) {
    if (at + 1 < text.size() && kVariables.find(text[at + 1]) != std::string_view::npos) return false;
  }
  return true;
}

std::size_t LargestNumberIn(std::string_view pattern) {
  std::size_t largest = 0;
  std::size_t number = 0;
  for (const char character : pattern) {
    const bool digit = character >= '0' && character <= '9';
    number = digit ? std::min(number * 10 + static_cast<std::size_t>(character - '0'), kLongestName) : 0;
    largest = std::max(largest, number);
  }
  return largest;
}

}  // namespace

bool IsPlainRegexRule(std::string_view pattern, std::string_view replacement) {
  const bool plain = pattern.find_first_of("\\^$.|?*+()[]{}/\n") == std::string_view::npos;
  return plain && !pattern.empty() && IsValidUtf8(pattern) && IsFixedText(replacement);
}

RegexGrowth::RegexGrowth(std::string_view pattern, NameFunction apply, std::string name)
    : apply_(std::move(apply)),
      farCharacters_(kFarCharacters + LargestNumberIn(pattern)),
      steadyApplications_(farCharacters_ + CharacterCount(name)) {
  length_ = CharacterCount(name);
  names_.back() = std::move(name);
}

std::optional<Forecast> RegexGrowth::After(const std::string& name, std::size_t remaining) {
  std::rotate(names_.begin(), names_.begin() + 1, names_.end());
  names_.back() = name;
  if (MultipliesPastLimit(remaining)) return Forecast{};
  if (--wait_ > 0) return std::nullopt;
  wait_ = 1;
  return Linear(remaining);
}

std::optional<Forecast> RegexGrowth::Linear(std::size_t remaining) {
  if (growth_ == 0 || length_ > kLongestName) return std::nullopt;
  const std::optional<LinearGrowth> growth = LinearGrowth::Of(names_[0], names_[1], names_[2]);
  if (!growth) return std::nullopt;
  const auto holdsAfter = [&](std::size_t applications) {
    return apply_(growth->NameAfter(2 + applications)) == growth->NameAfter(2 + applications + 1);
  };
  const std::size_t fits = (kLongestName - length_) / growth_;
  const std::size_t far = std::min({farCharacters_ / growth_ + 1, fits, std::max<std::size_t>(remaining, 1) - 1});
  const bool tooLong = remaining > fits;
  if (holdsAfter(far) && (tooLong || remaining == 0 || holdsAfter(remaining - 1))) {
    return tooLong ? Forecast{} : Forecast{growth->NameAfter(2 + remaining)};
  }
  wait_ = nextWait_;
  nextWait_ *= 2;
  return std::nullopt;
}

bool RegexGrowth::MultipliesPastLimit(std::size_t remaining) {
  const std::size_t lastGrowth = growth_;
  const std::size_t before = length_;
  length_ = CharacterCount(names_.back());
  growth_ = length_ > before ? length_ - before : 0;
  const bool multiplies = lastGrowth > 0 && 4 * growth_ >= 5 * lastGrowth;
  multiplying_ = multiplies ? multiplying_ + 1 : 0;
  if (multiplying_ < kMultiplyingApplications || before < farCharacters_) return false;
  std::size_t length = length_;
  for (std::size_t growth = growth_; remaining > 0 && length <= kLongestName; --remaining) {
    growth += growth / 4;
    length += growth;
  }
  return length > kLongestName;
}

}  // namespace quillon
