#include "plan/RenamePlan.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "base/Text.h"
#include "paths/basFileControl.h"
#include "platform/EntryPath.h"
#include "platform/TemporaryName.h"
#include "platform/WindowsPath.h"

namespace quillon {
namespace {

constexpr std::size_t kLongestName = 255;  // in the volume's units

std::size_t Utf16Length(std::string_view name) {
  std::size_t units = 0;
  for (std::size_t i = 0; i < name.size();) {
    const Character c = CharacterAt(name, i);
    units += c.codePoint > 0xFFFF ? 2 : 1;
    i += c.length;
  }
  return units;
}

// The file's name, a mark and its extension: "song.quillon-0123456789ab.mp3".
std::string TemporaryPath(const std::string& path, PathStyle style) {
  constexpr std::size_t kLongestEnding = 32;
  const EntryPath split = SplitPath(path, style);
  const std::size_t dot = split.name.rfind('.');
  const bool usual = dot != std::string_view::npos && split.name.size() - dot <= kLongestEnding;
  const std::string_view ending = usual ? split.name.substr(dot) : std::string_view();
  std::string_view base = split.name.substr(0, split.name.size() - ending.size());
  const std::string mark = TemporaryName();
  while (base.size() + mark.size() + ending.size() > kLongestName) {
    base = FirstCharacters(base, CharacterCount(base) - 1);
  }
  return std::string(split.folder).append(base).append(mark).append(ending);
}

class Planner {
 public:
  Planner(const std::vector<PlannedRename>& renames, FileReads& files, PathStyle style)
      : renames_(renames), files_(files), style_(style) {}

  void Check() {
    for (std::size_t i = 0; i < renames_.size(); ++i) {
      if (const std::optional<PlanProblem> problem = SourceProblem(i)) complaints_.push_back({i, *problem});
    }
    for (std::size_t i = 0; i < renames_.size(); ++i) {
      if (const std::optional<PlanProblem> problem = TargetProblem(i)) complaints_.push_back({i, *problem});
    }
    std::sort(complaints_.begin(), complaints_.end(),
              [](const PlanComplaint& left, const PlanComplaint& right) { return left.line < right.line; });
  }

  [[nodiscard]] const std::vector<PlanComplaint>& Complaints() const { return complaints_; }

  std::vector<PlannedRename> Arrange() {
    arranged_.assign(renames_.size(), false);
    for (std::size_t i = 0; i < renames_.size(); ++i) {
      if (!arranged_[i]) ArrangeChain(i);
    }
    return std::move(steps_);
  }

 private:
  std::string Key(const std::string& path) const { return PathIdentity(path, style_); }

  std::optional<PlanProblem> SourceProblem(std::size_t index) {
    const std::string& from = renames_[index].from;
    const Result<FileStatus, FileError> status = files_.Status(from);
    if (!status && status.Failure().number != file_error::kNotFound) return PlanProblem::kNoAccess;
    if (!status || status->kind == FileStatus::Kind::kAbsent) return PlanProblem::kNoSource;
    if (status->kind == FileStatus::Kind::kFolder) return PlanProblem::kNoSource;
    if (!bySource_.emplace(Key(from), index).second) return PlanProblem::kNamedTwice;
    byLowerSource_.emplace(ToLower(from), index);
    return std::nullopt;
  }

  std::optional<PlanProblem> TargetProblem(std::size_t index) {
    const std::string& from = renames_[index].from;
    const std::string& to = renames_[index].to;
    const EntryPath target = SplitPath(to, style_);
    if (Key(std::string(target.folder)) != Key(std::string(SplitPath(from, style_).folder))) {
      return PlanProblem::kOtherFolder;
    }
    if (from != to) {
      if (const std::optional<PlanProblem> problem = NameProblem(target)) return problem;
    }
    if (!targets_.insert(Key(to)).second) return PlanProblem::kSameTarget;
    if (bySource_.contains(Key(to))) return std::nullopt;
    const Result<FileStatus, FileError> status = files_.Status(to);
    if (!status) {
      return status.Failure().number == file_error::kNotFound ? PlanProblem::kInvalidName : PlanProblem::kNoAccess;
    }
    const bool free = status->kind == FileStatus::Kind::kAbsent || NoteOtherSpelling(to);
    return free ? std::nullopt : std::optional<PlanProblem>(PlanProblem::kTargetExists);
  }

  std::optional<PlanProblem> NameProblem(const EntryPath& target) {
    const std::string_view name = target.name;
    if (InvalidCharacterPosition(name) != 0) return PlanProblem::kInvalidCharacter;
    if (!CanNameFile(name) || Trim(name).empty()) return PlanProblem::kInvalidName;
    // A name that Windows would store differently could be that of another file.
    const bool stored = StoredWindowsName(name) == name && CanNameWindowsFile(name);
    if (style_ == PathStyle::kWindows && !stored) return PlanProblem::kInvalidName;
    const bool bytes = files_.NameUnitOf(std::string(target.folder)) == NameUnit::kByte;
    const bool tooLong = (bytes ? name.size() : Utf16Length(name)) > kLongestName;
    return tooLong ? std::optional<PlanProblem>(PlanProblem::kInvalidName) : std::nullopt;
  }

  // True when the existing target is a file of the plan in another spelling, on a volume that ignores letter case.
  bool NoteOtherSpelling(const std::string& to) {
    const auto source = byLowerSource_.find(ToLower(to));
    if (source == byLowerSource_.end() || !IsOneEntry(renames_[source->second].from, to)) return false;
    bySource_.emplace(Key(to), source->second);
    return true;
  }

  // False for two links to one file: their folder lists both.
  bool IsOneEntry(const std::string& left, const std::string& right) {
    if (!files_.SameFile(left, right)) return false;
    const EntryPath one = SplitPath(left, style_);
    const std::string_view other = SplitPath(right, style_).name;
    const Result<std::vector<FolderEntry>, FileError> entries = files_.ReadFolder(std::string(one.folder));
    if (!entries) return false;
    const auto listed = [&](std::string_view name) {
      return std::any_of(entries->begin(), entries->end(), [&](const FolderEntry& e) { return e.name == name; });
    };
    return !listed(one.name) || !listed(other);
  }

  // The rename that frees this one's new name; nullopt when that is free.
  std::optional<std::size_t> Before(std::size_t index) const {
    const auto found = bySource_.find(Key(renames_[index].to));
    return found == bySource_.end() ? std::nullopt : std::optional<std::size_t>(found->second);
  }

  void ArrangeChain(std::size_t first) {
    std::vector<std::size_t> chain = {first};
    arranged_[first] = true;
    std::optional<std::size_t> next = Before(first);
    for (; next && !arranged_[*next]; next = Before(*next)) {
      arranged_[*next] = true;
      chain.push_back(*next);
    }
    const bool cycle = next == first;
    if (cycle && chain.size() == 1 && renames_[first].from == renames_[first].to) return;
    std::string temporary;
    if (cycle) {
      temporary = FreeTemporaryPath(renames_[first].from);
      steps_.push_back({renames_[first].from, temporary});
    }
    for (std::size_t i = chain.size(); i-- > (cycle ? 1U : 0U);) steps_.push_back(renames_[chain[i]]);
    if (cycle) steps_.push_back({temporary, renames_[first].to});
  }

  std::string FreeTemporaryPath(const std::string& path) {
    std::string temporary;
    for (int i = 0; i < kTemporaryNameAttempts; ++i) {
      temporary = TemporaryPath(path, style_);
      const Result<FileStatus, FileError> status = files_.Status(temporary);
      const bool free = status && status->kind == FileStatus::Kind::kAbsent;
      if (free && !targets_.contains(Key(temporary))) break;
    }
    return temporary;
  }

  const std::vector<PlannedRename>& renames_;
  FileReads& files_;
  PathStyle style_;
  std::vector<PlanComplaint> complaints_;
  std::unordered_map<std::string, std::size_t> bySource_;
  std::unordered_map<std::string, std::size_t> byLowerSource_;
  std::unordered_set<std::string> targets_;
  std::vector<bool> arranged_;
  std::vector<PlannedRename> steps_;
};

// A file that could not be taken back stays where it is, also when it came there in several steps.
bool StaysSince(const PlannedRename& step, PlanOutcome& outcome) {
  for (PlannedRename& file : outcome.notBack) {
    if (file.from != step.to) continue;
    file.from = step.from;
    return true;
  }
  return false;
}

void TakeBack(const std::vector<PlannedRename>& steps, std::size_t count, FileChanges& back, PlanOutcome& outcome) {
  for (std::size_t i = count; i-- > 0;) {
    if (StaysSince(steps[i], outcome)) continue;
    if (back.Rename(steps[i].to, steps[i].from)) {
      outcome.notBack.push_back(steps[i]);
    } else {
      --outcome.done;
    }
  }
}

}  // namespace

Result<std::vector<PlannedRename>, std::vector<PlanComplaint>> MakeRenamePlan(const std::vector<PlannedRename>& renames,
                                                                              FileReads& files, PathStyle style) {
  Planner planner(renames, files, style);
  planner.Check();
  if (!planner.Complaints().empty()) return planner.Complaints();
  return planner.Arrange();
}

PlanOutcome CarryOut(const std::vector<PlannedRename>& steps, FileChanges& changes, FileChanges& back,
                     Progress& progress) {
  PlanOutcome outcome;
  outcome.cancelled = !progress.Continue(0, steps.size(), {});
  while (!outcome.cancelled && outcome.done < steps.size()) {
    const PlannedRename& step = steps[outcome.done];
    if (FileOutcome error = changes.Rename(step.from, step.to)) {
      outcome.failedStep = outcome.done;
      outcome.error = *std::move(error);
      // The rename may have stopped half-way.
      const std::string& fileAt = outcome.error.fileAt;
      if (!fileAt.empty() && back.Rename(fileAt, step.from)) outcome.notBack.push_back({step.from, fileAt});
      break;
    }
    ++outcome.done;
    outcome.cancelled = outcome.done < steps.size() && !progress.Continue(outcome.done, steps.size(), step.from);
  }
  if (outcome.failedStep || outcome.cancelled) TakeBack(steps, outcome.done, back, outcome);
  return outcome;
}

}  // namespace quillon
