#include "rename/basQuillon.h"

#include <utility>

#include "base/Finally.h"
#include "base/Text.h"
#include "filelist/FailureDetails.h"
#include "paths/basFileControl.h"

namespace quillon {
namespace {

constexpr const char* kCaption = "ファイルに適応";

std::int16_t CodeOf(const FileError& error) {
  switch (error.number) {
    case file_error::kNotFound: return apply_code::kInvalidName;
    case file_error::kAlreadyOpen:
    case file_error::kAccess: return apply_code::kNoAccess;
    case file_error::kAlreadyExists: return apply_code::kTargetExists;
    default: return apply_code::kUnexpected;
  }
}

}  // namespace

const char* ApplyReason(std::int16_t code) {
  switch (code) {
    case apply_code::kNoName: return "リネーム名が存在しません";
    case apply_code::kInvalidCharacter: return "リネーム名に不正な文字が含まれています";
    case apply_code::kTargetExists: return "リネーム名と同名のファイルが存在します";
    case apply_code::kNoAccess: return "ファイルにアクセスできません";
    case apply_code::kInvalidName: return "リネーム名が無効 または 長すぎます";
    default: return "リネームに適応できませんでした";
  }
}

std::string AppliedPath(const FileItem& row, PathStyle style) {
  std::string path;
  path.reserve(row.location.size() + row.renameName.size());
  path += FolderPart(row.location, style);
  const std::size_t folderLength = path.size();
  path += TrimRight(row.renameName);
  const std::string extension = Extension(row.location, style);
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

RenameEngine::RenameEngine(FileList& list, OptionValues& options, const ApplyMode& mode, Ports ports, PathStyle style)
    : list_(list), options_(options), mode_(mode), ports_(ports), style_(style) {}

std::int16_t RenameEngine::ApplyRenameName(int index) {
  return Apply(index, false).code;
}

RowFailure RenameEngine::Apply(int index, bool inBatch) {
  ports_.player.ReleaseFile(list_.Row(index).location);
  RowFailure result = Rename(index);
  if (result.code == apply_code::kApplied) {
    if (options_.update.uncheckAppliedRows && !mode_.automatic) list_.SetChecked(index, false);
  } else if ((!options_.update.skipFailedRows && tells_) || result.code == apply_code::kUnexpected) {
    Report(result, inBatch);
  }
  return result;
}

// A file may have got a name here that no file should have. As it is, it passes; the automatic mode lets such
// characters be taken out one after the other.
int RenameEngine::RefusedCharacterPosition(const FileItem& row) const {
  const std::string_view present = BaseName(row.location, style_);
  if (mode_.automatic) return AddedInvalidCharacterPosition(row.renameName, present);
  return row.renameName == present ? 0 : InvalidCharacterPosition(row.renameName);
}

std::string RenameEngine::DetailsOf(const RowFailure& failure) const {
  const FileItem& row = list_.Row(failure.index);
  if (failure.code == apply_code::kInvalidCharacter) {
    return InvalidCharacterDetails(row.location, row.renameName, RefusedCharacterPosition(row));
  }
  const std::string to = failure.error.number == 0 ? std::string() : AppliedPath(row, style_);
  const std::string& from = failure.from.empty() ? row.location : failure.from;
  return FailureDetails(ports_.files, from, to, failure.error, style_);
}

RowFailure RenameEngine::Rename(int index) {
  const FileItem& row = list_.Row(index);
  if (Trim(row.renameName).empty()) return {index, apply_code::kNoName, {}};
  if (RefusedCharacterPosition(row) != 0) return {index, apply_code::kInvalidCharacter, {}};
  std::string path = AppliedPath(row, style_);
  if (const FileOutcome error = ports_.disk.Rename(row.location, path)) {
    if (error->fileAt.empty()) return {index, CodeOf(*error), *error};
    std::string from = row.location;
    Follow(index, error->fileAt);
    return {index, CodeOf(*error), *error, std::move(from)};
  }
  if (path != row.location) Follow(index, std::move(path));
  return {index, apply_code::kApplied, {}};
}

void RenameEngine::Follow(int index, std::string path) {
  const std::string from = list_.Row(index).location;
  list_.SetLocation(index, std::move(path));
  ports_.player.FileMoved(from, list_.Row(index).location);
  if (list_.SelectedIndex() == index) ports_.filePanel.ShowFileName(list_.Row(index).location);
}

// The box stands beside the row that it is about.
void RenameEngine::Report(const RowFailure& failure, bool inBatch) {
  list_.SelectOnly(failure.index);
  ports_.filePanel.ShowRow(failure.index);
  ports_.window.ScrollToRow(failure.index);
  const bool unexpected = failure.code == apply_code::kUnexpected;
  std::string text = std::string(ApplyReason(failure.code)) + "\r\nファイルに適応できませんでした";
  if (!failure.error.fileAt.empty()) text += "\r\n\r\nファイルは現在ここにあります： " + failure.error.fileAt;
  const FailureAnswer answer =
      ports_.boxes.ShowFailure({{kCaption, text, unexpected ? MessageIcon::kStop : MessageIcon::kExclamation},
                                DetailsOf(failure),
                                inBatch && !unexpected});
  tells_ = tells_ && answer != FailureAnswer::kTellNoMore;
  abandoned_ = answer == FailureAnswer::kStop;
  ports_.window.SetEnabled(true);
  ports_.window.FocusList();
}

BatchOutcome RenameEngine::ApplyRenameBatch(bool allItems, BatchObserver* observer) {
  ports_.window.SetPointer(Pointer::kHourglass);
  ports_.window.SetEnabled(false);
  const Finally done([this] {
    ports_.window.SetPointer(Pointer::kNormal);
    ports_.window.SetEnabled(true);
  });
  tells_ = true;
  abandoned_ = false;
  const Finally tellsAgain([this] { tells_ = true; });
  BatchOutcome outcome;
  for (int index = 1; index <= list_.Count() && !outcome.stopped; ++index) {
    if (!allItems && !list_.Row(index).checked) continue;
    if (observer != nullptr && !observer->Continue()) break;
    const std::string from = observer != nullptr ? list_.Row(index).location : std::string();
    const RowFailure result = Apply(index, true);
    if (result.code == apply_code::kApplied && observer != nullptr) {
      observer->Applied(index, from, list_.Row(index).location);
    }
    Count(result, outcome);
  }
  if (!abandoned_) ShowSummary(outcome);
  return outcome;
}

void RenameEngine::Count(const RowFailure& result, BatchOutcome& outcome) {
  if (result.code == apply_code::kApplied) {
    ++outcome.applied;
    return;
  }
  outcome.failures.push_back(result);
  if (options_.update.checkFailedRows) list_.SetChecked(result.index, true);
  if (result.code != apply_code::kUnexpected) ++outcome.skipped;
  outcome.stopped = result.code == apply_code::kUnexpected || abandoned_;
}

void RenameEngine::ShowSummary(const BatchOutcome& outcome) {
  if (outcome.stopped) {
    if (outcome.applied > 0) {
      ports_.boxes.Show(
          {kCaption, AppliedLine(outcome.applied) + "\r\nエラーにより処理が中断されました", MessageIcon::kExclamation});
    }
  } else if (outcome.applied > 0 || outcome.skipped > 0) {
    ports_.boxes.Show({kCaption, AppliedLine(outcome.applied) + "\r\n" + SkippedLine(outcome.skipped),
                       outcome.skipped == 0 ? MessageIcon::kInformation : MessageIcon::kExclamation});
  }
}

void RenameEngine::mnuThisUpdate() {
  const int index = list_.SelectedIndex();
  if (index == 0) return;
  const bool skip = std::exchange(options_.update.skipFailedRows, false);
  const Finally restored([&] { options_.update.skipFailedRows = skip; });
  if (ApplyRenameName(index) == apply_code::kApplied) {
    if (options_.update.uncheckAppliedRows) list_.SetChecked(index, false);
    ports_.boxes.Show({kCaption, "選択されたアイテムの適応が完了しました", MessageIcon::kInformation});
  } else if (options_.update.checkFailedRows) {
    list_.SetChecked(index, true);
  }
}

void RenameEngine::mnuAllUpdate() {
  ConfirmedBatch(true, "全アイテムのリネーム名をファイルに適応します");
}

void RenameEngine::mnuUpdate() {
  ConfirmedBatch(false, "チェックアイテムのリネーム名をファイルに適応します");
}

void RenameEngine::ConfirmedBatch(bool allItems, const char* question) {
  const bool confirmed =
      options_.system.suppressConfirmations ||
      ports_.boxes.Show({kCaption, std::string(question) + "\r\nこの操作は元に戻せません。実行しますか",
                         MessageIcon::kQuestion, MessageButtons::kYesNo});
  if (confirmed) ApplyRenameBatch(allItems);
}

}  // namespace quillon
