#include "rename/TitleRename.h"

#include <utility>

#include "base/Finally.h"
#include "paths/basFileControl.h"
#include "rename/ModifyName.h"
#include "rename/ModifyRenameNames.h"

namespace quillon {

TitleRename::TitleRename(FileList& list, const OptionValues& options, const ApplyMode& mode, RenameEngine& engine,
                         RegexEngine& regex, PendingMessages& pending, WindowState& window, MessageBoxes& boxes)
    : list_(list),
      options_(options),
      mode_(mode),
      engine_(engine),
      regex_(regex),
      pending_(pending),
      window_(window),
      boxes_(boxes) {}

void TitleRename::RenameToTitles(bool allItems) {
  leftAlone_ = 0;
  RenameRows(allItems);
  TellLeftAlone(leftAlone_, boxes_);
}

void TitleRename::RenameRows(bool allItems) {
  window_.SetPointer(Pointer::kBusyArrow);
  const Finally done([this] { window_.SetPointer(Pointer::kNormal); });
  for (int index = 1; index <= list_.Count(); ++index) {
    if (!allItems && !list_.Row(index).checked) continue;
    if (!RenameRow(index)) break;
  }
}

// False when the run is to end.
bool TitleRename::RenameRow(int index) {
  const FileItem& row = list_.Row(index);
  if (options_.rename.skipUntitledRows && !mode_.automatic && HasNoTitle(row)) {
    if (options_.rename.checkSkippedRows) list_.SetChecked(index, true);
    return true;
  }
  const std::string before = row.renameName;
  list_.SetRenameName(index, NewName(row));
  if (mode_.automatic) {
    if (engine_.ApplyRenameName(index) == apply_code::kApplied) return true;
    list_.SetRenameName(index, before);
    if (options_.update.checkFailedRows) list_.SetChecked(index, true);
    return false;
  }
  if (options_.rename.checkInvalidNames && InvalidCharacterPosition(row.renameName) != 0) {
    list_.SetChecked(index, true);
  }
  return true;
}

std::string TitleRename::NewName(const FileItem& row) {
  if (!options_.rename.applyRules) return row.title;
  ModifyResult result =
      ModifyName(row.title, options_.modify, static_cast<std::size_t>(list_.Count()), regex_, pending_);
  if (result.leftAlone) ++leftAlone_;
  return std::move(result.name);
}

}  // namespace quillon
