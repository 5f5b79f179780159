#include "rename/SelfGrowth.h"

#include <algorithm>

#include "base/Text.h"

namespace quillon {

SelfGrowth::SelfGrowth(std::string_view find, std::string_view replacement, CompareMode compareMode)
    : find_(find), compareMode_(compareMode) {
  const std::vector<TextRange> selves = FindOccurrences(replacement, find, compareMode, Overlapping::kYes);
  if (selves.size() != 1 || selves[0].length == replacement.size()) return;
  possible_ = true;
  before_ = replacement.substr(0, selves[0].offset);
  self_ = replacement.substr(selves[0].offset, selves[0].length);
  after_ = replacement.substr(selves[0].offset + selves[0].length);
  // Every part of the name as long as the find text must have been seen. Such a part may begin anywhere in a
  // repetition, so the repeated texts must be longer than the find text by one repetition.
  std::size_t shortest = CharacterCount(replacement);
  for (const std::string_view part : {before_, after_}) {
    if (!part.empty()) shortest = std::min(shortest, CharacterCount(part));
  }
  applicationsToSee_ = CharacterCount(find) / shortest + 2;
}

void SelfGrowth::Watch(const std::string& name) {
  applications_ = 0;
  between_.clear();
  std::size_t done = 0;
  for (const TextRange& found : FindOccurrences(name, find_, compareMode_, Overlapping::kNo)) {
    between_.push_back(name.substr(done, found.offset - done));
    done = found.offset + found.length;
  }
  between_.push_back(name.substr(done));
}

std::optional<Forecast> SelfGrowth::After(const std::string& name, std::size_t remaining) {
  if (++applications_ < applicationsToSee_) return std::nullopt;
  std::vector<TextRange> expected;
  if (Grown(applications_, &expected) != name ||
      FindOccurrences(name, find_, compareMode_, Overlapping::kYes) != expected) {
    Watch(name);
    return std::nullopt;
  }
  return Forecast{Grown(applications_ + remaining, nullptr)};
}

std::string SelfGrowth::Grown(std::size_t applications, std::vector<TextRange>* finds) const {
  const auto repeat = [applications](std::string& text, std::string_view part) {
    for (std::size_t i = 0; i < applications; ++i) text += part;
  };
  std::string name = between_.front();
  for (std::size_t i = 1; i < between_.size(); ++i) {
    repeat(name, before_);
    if (finds != nullptr) finds->push_back({name.size(), self_.size()});
    name += self_;
    repeat(name, after_);
    name += between_[i];
  }
  return name;
}

}  // namespace quillon
