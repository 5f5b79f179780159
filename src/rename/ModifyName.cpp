#include "rename/ModifyName.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/Text.h"
#include "paths/basFileControl.h"
#include "rename/CaseConversion.h"
#include "rename/RegexGrowth.h"
#include "rename/RepeatedRule.h"
#include "rename/ReplaceText.h"
#include "rename/SelfGrowth.h"
#include "rename/WidthConversion.h"

namespace quillon {
namespace {

/// Remembers that the run must end, and does not ask again.
class RememberedEnd final : public Progress {
 public:
  explicit RememberedEnd(Progress& progress) : progress_(progress) {}

  bool Continue(std::size_t done, std::size_t total, const std::string& item) override {
    ended_ = ended_ || !progress_.Continue(done, total, item);
    return !ended_;
  }
  bool Continue() override {
    ended_ = ended_ || !progress_.Continue();
    return !ended_;
  }
  [[nodiscard]] bool Ended() const { return ended_; }

 private:
  Progress& progress_;
  bool ended_ = false;
};

/// Returns nullopt when the replacement contains invalid characters itself, or makes the name too long.
std::optional<std::string> ReplaceInvalidCharacters(std::string name, const std::string& replacement,
                                                    Progress& progress) {
  for (;;) {
    const int position = InvalidCharacterPosition(name);
    if (position == 0) return name;
    if (InvalidCharacterPosition(replacement) != 0) return std::nullopt;
    (void)progress.Continue();  // ModifyName checks whether the run was cancelled
    const std::string invalid(1, name[ByteOffset(name, static_cast<std::size_t>(position) - 1)]);
    std::string next = ReplaceText(name, invalid, replacement, 1, kAllOccurrences, CompareMode::kBinary);
    if (GrewPastEveryName(name, next)) return std::nullopt;
    name = std::move(next);
  }
}

RepeatedResult ApplyPlainRule(const ReplaceRule& rule, CompareMode compareMode, const NameFunction& apply,
                              std::string name, std::size_t times, Progress& progress) {
  SelfGrowth growth(rule.find, rule.replacement, compareMode);
  RepeatedRule repeated;
  repeated.apply = apply;
  if (growth.Possible()) {
    growth.Watch(name);
    repeated.shortcut = [&](const std::string& text, std::size_t remaining) { return growth.After(text, remaining); };
  }
  // When the replacement contains the find text, every application leaves at least as many finds, so the name grows for
  // ever. Other rules can grow a name for long and then stop; plain ones are fast enough to run until then.
  const bool findsItself = !FindOccurrences(rule.replacement, rule.find, compareMode, Overlapping::kNo).empty();
  if (!findsItself) repeated.steadyApplications = RepeatedRule::kNeverSure;
  return ApplyRepeatedly(repeated, std::move(name), times, progress);
}

RepeatedResult ApplyRegexRule(const ReplaceRule& rule, const NameFunction& apply, std::string name, std::size_t times,
                              Progress& progress) {
  RegexGrowth growth(rule.find, apply, name);
  RepeatedRule repeated;
  repeated.apply = apply;
  repeated.steadyApplications = growth.SteadyApplications();
  repeated.shortcut = [&](const std::string& text, std::size_t remaining) { return growth.After(text, remaining); };
  return ApplyRepeatedly(repeated, std::move(name), times, progress);
}

RepeatedResult ApplyRule(const ReplaceRule& rule, const OptionValues::Modify& rules, std::string name,
                         std::size_t times, RegexEngine& regex, Progress& progress) {
  const bool ignoreCase = rules.ignoreCase;
  const CompareMode compareMode = ignoreCase ? CompareMode::kText : CompareMode::kBinary;
  if (rules.method != FindMethod::kRegex) {
    const auto replace = [&](const std::string& text) {
      return ReplaceText(text, rule.find, rule.replacement, 1, kAllOccurrences, compareMode);
    };
    return ApplyPlainRule(rule, compareMode, replace, std::move(name), times, progress);
  }
  const auto replace = [&](const std::string& text) {
    return RegexReplace(text, rule.find, rule.replacement, ignoreCase ? "gik" : "gk", regex).value_or(text);
  };
  // Not when ignoring letter case: only the engine knows which letters it treats as the same.
  if (!ignoreCase && IsPlainRegexRule(rule.find, rule.replacement)) {
    return ApplyPlainRule(rule, compareMode, replace, std::move(name), times, progress);
  }
  return ApplyRegexRule(rule, replace, std::move(name), times, progress);
}

std::optional<std::string> ApplyRules(const OptionValues::Modify& rules, std::string name, std::size_t listCount,
                                      RegexEngine& regex, Progress& progress, ModifyResult& result) {
  for (std::size_t i = 0; i < kReplaceRuleCount; ++i) {
    if (!rules.rules[i].active) continue;
    RepeatedResult repeated = ApplyRule(rules.rules[i], rules, std::move(name), listCount, regex, progress);
    result.growing[i] = repeated.growing;
    if (!repeated.name) return std::nullopt;
    name = *std::move(repeated.name);
  }
  return name;
}

std::string ConvertWidthAndCase(const OptionValues::Modify& rules, std::string name) {
  if (rules.narrow) name = ToHalfWidth(name);
  if (rules.wide) name = ToFullWidth(name);
  if (rules.lower) name = ToLower(name);
  if (rules.upper) name = ToUpper(name);
  if (rules.proper) name = ToProper(name);
  return name;
}

}  // namespace

ModifyResult ModifyName(std::string_view name, const OptionValues::Modify& rules, std::size_t listCount,
                        RegexEngine& regex, Progress& progress) {
  RememberedEnd watch(progress);
  ModifyResult result = {std::string(name)};
  std::optional<std::string> modified = result.name;
  if (rules.replaceInvalid) {
    modified = ReplaceInvalidCharacters(*std::move(modified), rules.invalidReplacement, watch);
  }
  if (modified) modified = ApplyRules(rules, *std::move(modified), listCount, regex, watch, result);
  result.cancelled = watch.Ended();
  result.leftAlone = !modified && !result.cancelled;
  if (modified && !result.cancelled) result.name = ConvertWidthAndCase(rules, *std::move(modified));
  return result;
}

}  // namespace quillon
