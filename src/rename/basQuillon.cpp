#include "rename/basQuillon.h"

#include <utility>

#include "base/Text.h"
#include "paths/basFileControl.h"

namespace quillon {
namespace {

ApplyCode CodeOf(const FileError& error) {
  switch (error.number) {
    case file_error::kNotFound: return ApplyCode::kInvalidName;
    case file_error::kAlreadyOpen:
    case file_error::kAccess: return ApplyCode::kNoAccess;
    case file_error::kAlreadyExists: return ApplyCode::kTargetExists;
    default: return ApplyCode::kUnexpected;
  }
}

}  // namespace

const char* ApplyReason(ApplyCode code) {
  switch (code) {
    case ApplyCode::kNoName: return "リネーム名が存在しません";
    case ApplyCode::kInvalidCharacter: return "リネーム名に不正な文字が含まれています";
    case ApplyCode::kTargetExists: return "リネーム名と同名のファイルが存在します";
    case ApplyCode::kNoAccess: return "ファイルにアクセスできません";
    case ApplyCode::kInvalidName: return "リネーム名が無効 または 長すぎます";
    default: return "リネームに適応できませんでした";
  }
}

std::string AppliedPath(std::string_view location, std::string_view renameName, PathStyle style) {
  std::string path;
  path.reserve(location.size() + renameName.size());
  path += FolderPart(location, style);
  const std::size_t folderLength = path.size();
  path += TrimRight(renameName);
  const std::string extension = Extension(location, style);
  if (!extension.empty()) {
    path += '.';
    path += ToLower(extension);
    return path;
  }
  while (path.size() > folderLength && (path.back() == '.' || path.back() == ' ')) path.pop_back();
  return path;
}

std::string AppliedLine(int applied) {
  return applied == 0 ? "正常に適応が完了したファイルはありません"
                      : std::to_string(applied) + " 個のファイルを適応しました";
}

std::string SkippedLine(int skipped) {
  return skipped == 0 ? "エラーでスキップされたファイルはありません"
                      : std::to_string(skipped) + " 個のファイルがエラーでスキップされました";
}

RenameEngine::RenameEngine(FileList& list, const ApplyMode& mode, FileChanges& disk, PlayerControl& player,
                           PathStyle style)
    : list_(list), mode_(mode), disk_(disk), player_(player), style_(style) {}

// A file may already have a name with such characters. An unchanged name passes, and automatic mode only refuses added
// ones, so that the user can remove them one by one.
int RenameEngine::RefusedCharacterPosition(const FileRow& row) const {
  const std::string_view present = row.BaseName();
  if (mode_.automatic) return AddedInvalidCharacterPosition(row.renameName, present);
  return row.renameName == present ? 0 : InvalidCharacterPosition(row.renameName);
}

RowOutcome RenameEngine::Rename(int index) {
  const FileRow row = list_.Row(index);
  RowOutcome outcome = {index, ApplyCode::kApplied, {}, row.Location(), {}};
  if (Trim(row.renameName).empty()) {
    outcome.code = ApplyCode::kNoName;
  } else if (const int position = RefusedCharacterPosition(row); position != 0) {
    outcome.code = ApplyCode::kInvalidCharacter;
    outcome.invalidCharacter = position;
  } else if (std::string path = AppliedPath(outcome.from, row.renameName, style_);
             FileOutcome error = disk_.Rename(outcome.from, path)) {
    outcome.code = CodeOf(*error);
    outcome.error = *std::move(error);
    outcome.to = outcome.error.fileAt;
  } else {
    outcome.to = std::move(path);
  }
  if (outcome.to.empty()) outcome.to = outcome.from;
  return outcome;
}

RowOutcome RenameEngine::Apply(int index) {
  player_.ReleaseFile(list_.Row(index).Location());
  RowOutcome outcome = Rename(index);
  if (outcome.to != outcome.from) {
    list_.SetLocation(index, outcome.to);
    player_.FileMoved(outcome.from, outcome.to);
  }
  if (outcome.Ok()) list_.ForgetEdits(index);
  return outcome;
}

BatchOutcome RenameEngine::Apply(Rows rows, Progress& progress, const RowDone& done) {
  return Run(rows, &RenameEngine::Apply, progress, done);
}

BatchOutcome RenameEngine::Plan(Rows rows, Progress& progress, const RowDone& done) {
  return Run(rows, &RenameEngine::Rename, progress, done);
}

BatchOutcome RenameEngine::Run(Rows rows, ApplyOne apply, Progress& progress, const RowDone& done) {
  BatchOutcome outcome;
  const auto total = static_cast<std::size_t>(list_.CountOf(rows));
  std::size_t behind = 0;
  bool goesOn = progress.Continue(behind, total, {});
  for (int index = 1; index <= list_.Count() && goesOn && !outcome.stopped; ++index) {
    if (!list_.IsIn(rows, index)) continue;
    RowOutcome row = (this->*apply)(index);
    outcome.stopped = !done(row) || row.code == ApplyCode::kUnexpected;
    goesOn = progress.Continue(++behind, total, row.from);
    if (row.Ok()) {
      ++outcome.applied;
    } else {
      if (row.code != ApplyCode::kUnexpected) ++outcome.skipped;
      outcome.failures.push_back(std::move(row));
    }
  }
  return outcome;
}

}  // namespace quillon
