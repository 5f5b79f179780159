#include "rename/TitleRename.h"

#include <utility>

#include "base/Finally.h"
#include "paths/basFileControl.h"
#include "rename/ModifyName.h"

namespace quillon {

TitleRename::TitleRename(FileList& list, const OptionValues& options, const ApplyMode& mode, RenameEngine& engine,
                         ModifyPorts ports, std::chrono::milliseconds progressInterval)
    : list_(list),
      options_(options),
      mode_(mode),
      engine_(engine),
      ports_(ports),
      progressInterval_(progressInterval) {}

void TitleRename::RenameToTitles(bool allItems) {
  leftAlone_ = 0;
  RenameRows(allItems);
  TellLeftAlone(leftAlone_, ports_.boxes);
}

void TitleRename::RenameRows(bool allItems) {
  ports_.window.SetPointer(Pointer::kBusyArrow);
  const Finally done([this] { ports_.window.SetPointer(Pointer::kNormal); });
  const auto toTitle = [this](int index, PendingMessages& pending) { return ToTitle(index, pending); };
  if (options_.rename.applyRules) {
    RunOverRowsWaiting(list_, allItems, ports_.pending, ports_.progress, progressInterval_, toTitle);
  } else {
    RunOverRows(list_, allItems, [&](int index) { return toTitle(index, ports_.pending); });
  }
}

RowRunEnd TitleRename::ToTitle(int index, PendingMessages& pending) {
  const FileItem& row = list_.Row(index);
  if (options_.rename.skipUntitledRows && !mode_.automatic && HasNoTitle(row)) {
    if (options_.rename.checkSkippedRows) list_.SetChecked(index, true);
    return RowRunEnd::kComplete;
  }
  std::optional<std::string> name = NewName(row, pending);
  if (!name) return RowRunEnd::kCancelled;
  const std::string before = row.renameName;
  list_.SetRenameName(index, *std::move(name));
  if (mode_.automatic) {
    if (engine_.ApplyRenameName(index) == apply_code::kApplied) return RowRunEnd::kComplete;
    list_.SetRenameName(index, before);
    if (options_.update.checkFailedRows) list_.SetChecked(index, true);
    return RowRunEnd::kStopped;
  }
  if (options_.rename.checkInvalidNames && InvalidCharacterPosition(row.renameName) != 0) {
    list_.SetChecked(index, true);
  }
  return RowRunEnd::kComplete;
}

std::optional<std::string> TitleRename::NewName(const FileItem& row, PendingMessages& pending) {
  if (!options_.rename.applyRules) return row.title;
  ModifyResult result =
      ModifyName(row.title, options_.modify, static_cast<std::size_t>(list_.Count()), ports_.regex, pending);
  if (result.cancelled) return std::nullopt;
  if (result.leftAlone) ++leftAlone_;
  return std::move(result.name);
}

}  // namespace quillon
