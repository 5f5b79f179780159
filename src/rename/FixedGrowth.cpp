#include "rename/FixedGrowth.h"

#include <array>

#include "base/Text.h"

namespace quillon {
namespace {

/// True for a replacement text that stands for itself: every "$" and "\" that means more ends it.
bool IsFixedText(std::string_view text) {
  constexpr std::string_view kVariables = "0123456789{&`'";
  if (text.find_first_of("\\/\n") != std::string_view::npos || !IsValidUtf8(text)) return false;
  for (std::size_t at = text.find('$'); at != std::string_view::npos; at = text.find('$', at + 1)) {
    if (at + 1 < text.size() && kVariables.find(text[at + 1]) != std::string_view::npos) return false;
  }
  return true;
}

struct Parts {
  std::string_view before;
  std::string_view after;
};

/// The texts around the one place where the replacement repeats what was found. "$12" is taken for "$1" and "2": the
/// name then does not grow as expected, and nothing comes of it.
std::optional<Parts> AroundMatch(std::string_view replacement, bool group) {
  constexpr std::array<std::string_view, 3> kMatch = {"$&", "${1}", "$1"};
  for (const std::string_view name : kMatch) {
    const std::size_t at = replacement.find(name);
    if (at == std::string_view::npos || (name != "$&" && !group)) continue;
    const Parts parts = {replacement.substr(0, at), replacement.substr(at + name.size())};
    if (IsFixedText(parts.before) && IsFixedText(parts.after)) return parts;
    return std::nullopt;
  }
  return std::nullopt;
}

bool TakeFront(std::string_view& text, std::string_view front) {
  if (!text.starts_with(front)) return false;
  text.remove_prefix(front.size());
  return true;
}

/// A pattern that finds the whole name: ".+" or ".*", perhaps as a group, perhaps between "^" and "$".
struct WholeName {
  bool group = false;
  bool twice = false;  ///< it also finds the empty text at the end
};

std::optional<WholeName> ReadWholeName(std::string_view pattern) {
  WholeName whole;
  const bool anchored = TakeFront(pattern, "^");
  whole.group = TakeFront(pattern, "(");
  const bool any = TakeFront(pattern, ".*");
  if (!any && !TakeFront(pattern, ".+")) return std::nullopt;
  if (whole.group && !TakeFront(pattern, ")")) return std::nullopt;
  TakeFront(pattern, "$");
  if (!pattern.empty()) return std::nullopt;
  whole.twice = any && !anchored;
  return whole;
}

}  // namespace

bool IsPlainRegexRule(std::string_view pattern, std::string_view replacement) {
  const bool plain = pattern.find_first_of("\\^$.|?*+()[]{}/\n") == std::string_view::npos;
  return plain && !pattern.empty() && IsValidUtf8(pattern) && IsFixedText(replacement);
}

FixedGrowth::FixedGrowth(std::string_view pattern, std::string_view replacement) {
  const bool front = pattern == "^" || pattern == "\\A";
  const bool back = pattern == "$" || pattern == "\\Z" || pattern == "\\z";
  if (front || back) {
    possible_ = !replacement.empty() && IsFixedText(replacement);
    (front ? before_ : after_) = replacement;
    return;
  }
  const std::optional<WholeName> whole = ReadWholeName(pattern);
  const std::optional<Parts> parts = whole ? AroundMatch(replacement, whole->group) : std::nullopt;
  if (!parts) return;
  possible_ = true;
  before_ = parts->before;
  after_ = parts->after;
  if (whole->twice) after_ += before_ + std::string(parts->after);
}

void FixedGrowth::Watch(const std::string& name) {
  start_ = name;
  applications_ = 0;
}

std::optional<std::string> FixedGrowth::After(const std::string& name, std::size_t remaining) {
  if (++applications_ < kApplicationsToSee) return std::nullopt;
  // Where the name holds no line break, the next application finds what the last one found. With one, "$" finds two
  // places, and "." not the whole name.
  if (name != Grown(applications_) || start_.find('\n') != std::string::npos) {
    Watch(name);
    return std::nullopt;
  }
  return Grown(applications_ + remaining);
}

std::string FixedGrowth::Grown(std::size_t applications) const {
  std::string name;
  name.reserve(start_.size() + applications * (before_.size() + after_.size()));
  for (std::size_t i = 0; i < applications; ++i) name += before_;
  name += start_;
  for (std::size_t i = 0; i < applications; ++i) name += after_;
  return name;
}

}  // namespace quillon
