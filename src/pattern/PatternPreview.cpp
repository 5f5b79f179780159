#include "pattern/PatternPreview.h"

#include <unordered_map>
#include <utility>

#include "base/Text.h"
#include "filelist/FailureDetails.h"
#include "filelist/WindowPorts.h"
#include "paths/basFileControl.h"
#include "rename/PlannedChanges.h"
#include "rename/basQuillon.h"

namespace quillon {

/// The rows are applied one by one to a disk that only plans.
struct PatternPreview::DryRun {
  DryRun(PatternRules given, const ReadFacts& read, FileReads& files, const ApplyMode& mode)
      : rules(std::move(given)), names(rules, read), disk(files), engine(row, mode, disk, none) {}

  PatternRules rules;
  PatternNames names;
  PlannedChanges disk;
  PlayerControl none;
  FileList row;  ///< the one being applied
  RenameEngine engine;
  std::unordered_map<std::string, int> takenBy;  ///< by the identity of a path; 1-based rows
};

PatternPreview::PatternPreview(const FileList& list, Rows rows, FileReads& files, const ApplyMode& mode,
                               BeginReading beginReading)
    : list_(list), files_(files), mode_(mode), beginReading_(std::move(beginReading)) {
  indices_.reserve(static_cast<std::size_t>(list.CountOf(rows)));
  for (int index = 1; index <= list.Count(); ++index) {
    if (list.IsIn(rows, index)) indices_.push_back(index);
  }
}

PatternPreview::~PatternPreview() = default;

void PatternPreview::Restart(std::optional<PatternRules> rules) {
  results_.clear();
  changed_ = problems_ = 0;
  run_ = rules ? std::make_unique<DryRun>(*std::move(rules), beginReading_(), files_, mode_) : nullptr;
}

bool PatternPreview::Work(std::chrono::steady_clock::duration time) {
  const auto end = std::chrono::steady_clock::now() + time;
  while (run_ && Done() < Count()) {
    results_.push_back(Next());
    if (std::chrono::steady_clock::now() >= end) break;
  }
  return run_ && Done() < Count();
}

std::string PatternPreview::ProblemOf(const RowOutcome& failed, const std::string& to) const {
  switch (failed.code) {
    case ApplyCode::kInvalidCharacter:
      return std::to_string(failed.invalidCharacter) + " 文字目の文字は、ファイル名に使えません";
    case ApplyCode::kTargetExists: {
      const auto taken = run_->takenBy.find(PathIdentity(to));
      if (taken == run_->takenBy.end()) return "同じ名前のファイルがあります";
      return std::to_string(taken->second) + " 行目と同じ名前になります";
    }
    case ApplyCode::kInvalidName: return "ファイルがないか、使えない名前です";
    default: return ApplyReason(failed.code);
  }
}

PatternPreview::Result PatternPreview::Next() {
  const int index = indices_[Done()];
  FileItem row = list_.Row(index).Item();
  row.renameName = run_->names.NextFor(list_.Row(index));
  if (row.renameName.empty()) {
    ++problems_;
    return {{}, run_->rules.skipUnnamed ? "名前になる文字がないため、変更しません" : "名前になる文字がありません"};
  }
  const std::string from = row.location;
  const std::string to = AppliedPath(row.location, row.renameName);
  Result result = {std::string(FileName(to)), {}};
  if (to != from) ++changed_;
  run_->row.Clear();
  run_->row.Add(row);
  if (IsNameTooLong(files_, to)) {
    result.problem = "名前が長すぎます";
  } else if (const RowOutcome applied = run_->engine.Apply(1); applied.Ok()) {
    run_->takenBy[PathIdentity(to)] = index;
  } else {
    result.problem = ProblemOf(applied, to);
  }
  if (!result.problem.empty()) ++problems_;
  return result;
}

std::string PatternPreview::OldName(std::size_t row) const {
  return std::string(list_.Row(indices_[row]).name);
}

std::string PatternPreview::NewName(std::size_t row) const {
  return row < Done() ? results_[row].name : std::string();
}

std::string PatternPreview::Problem(std::size_t row) const {
  return row < Done() ? results_[row].problem : std::string();
}

std::string PatternPreview::Summary() const {
  if (!run_) return {};
  if (Done() < Count()) {
    return "名前を調べています...  " + FormatThousands(Done()) + " / " + FormatThousands(Count());
  }
  const std::string changed = FormatThousands(changed_) + " 個の名前が変わります";
  return problems_ == 0 ? changed : changed + "、" + FormatThousands(problems_) + " 個に問題があります";
}

}  // namespace quillon
