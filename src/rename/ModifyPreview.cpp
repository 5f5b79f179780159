#include "rename/ModifyPreview.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"

namespace quillon {
namespace {

using Clock = std::chrono::steady_clock;

/// Ends the work on a row when its time is up.
class TimeLimit final : public Progress {
 public:
  explicit TimeLimit(Clock::time_point end) : end_(end) {}

  bool Continue(std::size_t /*done*/, std::size_t /*total*/, const std::string& /*item*/) override {
    return Continue();
  }
  bool Continue() override { return Clock::now() < end_; }

 private:
  Clock::time_point end_;
};

/// Names can grow to many times of what a list can show, and drawing them takes long.
std::string Shortened(const std::string& name) {
  constexpr std::size_t kMostCharacters = 300;
  const std::string_view start = FirstCharacters(name, kMostCharacters);
  return start.size() == name.size() ? name : std::string(start) + "…";
}

}  // namespace

void ModifyPreview::Restart(OptionValues::Modify rules, Repetition repetition) {
  rules_ = std::move(rules);
  for (ReplaceRule& rule : rules_.rules) rule.active = rule.active && !rule.find.empty();
  applications_ = Applications(repetition, static_cast<std::size_t>(list_.Count()));
  total_ = static_cast<std::size_t>(list_.CountOf(rows_));
  next_ = 1;
  done_ = changed_ = leftAlone_ = slow_ = 0;
  growing_ = {};
  first_.clear();
  others_.clear();
}

bool ModifyPreview::Work(Clock::duration time) {
  const Clock::time_point end = Clock::now() + time;
  while (Working()) {
    const int index = next_++;
    if (!list_.IsIn(rows_, index)) continue;
    Try(list_.Row(index).renameName);
    ++done_;
    if (Clock::now() >= end) break;
  }
  return Working();
}

void ModifyPreview::Try(std::string_view renameName) {
  const std::string name(renameName);
  TimeLimit limit(Clock::now() + rowTime_);
  const ModifyResult result = ModifyName(name, rules_, applications_, regex_, limit);
  for (std::size_t i = 0; i < kReplaceRuleCount; ++i) growing_[i] = growing_[i] || result.growing[i];
  if (result.cancelled) ++slow_;
  if (result.leftAlone) ++leftAlone_;
  const bool changes = result.name != name;
  if (changes) ++changed_;
  std::vector<Row>& rows = changes || result.cancelled || result.leftAlone ? first_ : others_;
  if (rows.size() == kMostShown) return;
  Row row = {Shortened(name), Shortened(result.name), {}};
  if (result.cancelled) row = {std::move(row.oldName), {}, "時間がかかるため、実行するまで分かりません"};
  if (result.leftAlone) row.note = "終わらないか長すぎるため、編集されません";
  rows.push_back(std::move(row));
}

std::size_t ModifyPreview::ShownCount() const {
  return Working() ? first_.size() : std::min(first_.size() + others_.size(), kMostShown);
}

const ModifyPreview::Row& ModifyPreview::Shown(std::size_t row) const {
  return row < first_.size() ? first_[row] : others_[row - first_.size()];
}

std::string ModifyPreview::Summary() const {
  if (Working()) {
    return "名前を調べています...  " + FormatThousands(done_) + " / " + FormatThousands(total_);
  }
  std::string summary = FormatThousands(changed_) + " 個の名前が変わります";
  if (leftAlone_ > 0) summary += "、" + FormatThousands(leftAlone_) + " 個は編集されません";
  if (slow_ > 0) summary += "、" + FormatThousands(slow_) + " 個は時間がかかるため分かりません";
  if (done_ < total_) {
    summary += "（" + FormatThousands(total_) + " 個のうち、はじめの " + FormatThousands(done_) + " 個）";
  }
  return summary;
}

std::string ModifyPreview::GrowthNote() const {
  std::string numbers;
  for (std::size_t i = 0; i < kReplaceRuleCount; ++i) {
    if (growing_[i]) numbers += (numbers.empty() ? "" : ", ") + std::to_string(i + 1);
  }
  if (numbers.empty()) return {};
  return "規則 " + numbers + " はリストの行数 (" + FormatThousands(static_cast<std::size_t>(list_.Count())) +
         ") だけ繰り返されます";
}

}  // namespace quillon
