#include "rename/TitleRename.h"

#include <string>
#include <utility>

#include "paths/basFileControl.h"

namespace quillon {

TitleOutcome RenameToTitles(FileList& list, Rows rows, const TitleRules& titles, RegexEngine& regex,
                            const ApplyRow& apply, Progress& progress) {
  const std::size_t applications = Applications(titles.repetition, static_cast<std::size_t>(list.Count()));
  TitleOutcome outcome;
  outcome.end = RunOverRows(list, rows, progress, [&](int index) {
    const FileRow row = list.Row(index);
    if (titles.skipUntitled && HasNoTitle(row.title)) {
      outcome.untitled.push_back(index);
      return RunEnd::kComplete;
    }
    ModifyResult result = {std::string(row.title)};
    if (titles.rules != nullptr) {
      result = ModifyName(row.title, *titles.rules, applications, regex, progress);
    }
    if (result.cancelled) return RunEnd::kCancelled;
    if (result.leftAlone) ++outcome.leftAlone;
    const std::string before(row.renameName);
    list.SetRenameName(index, result.name);
    if (titles.findInvalid && InvalidCharacterPosition(result.name) != 0) outcome.invalid.push_back(index);
    return ApplyOrRestore(list, index, before, apply, outcome);
  });
  return outcome;
}

}  // namespace quillon
