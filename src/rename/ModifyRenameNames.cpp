#include "rename/ModifyRenameNames.h"

#include <string>
#include <utility>

namespace quillon {

RunOutcome ModifyRenameNames(FileList& list, Rows rows, const OptionValues::Modify& rules, Repetition repetition,
                             RegexEngine& regex, const ApplyRow& apply, Progress& progress) {
  const std::size_t applications = Applications(repetition, static_cast<std::size_t>(list.Count()));
  RunOutcome outcome;
  outcome.end = RunOverRows(list, rows, progress, [&](int index) {
    const std::string before(list.Row(index).renameName);
    ModifyResult result = ModifyName(before, rules, applications, regex, progress);
    if (result.cancelled) return RunEnd::kCancelled;
    if (result.leftAlone) ++outcome.leftAlone;
    if (result.name != before) list.SetRenameName(index, result.name);
    return ApplyOrRestore(list, index, before, apply, outcome);
  });
  return outcome;
}

}  // namespace quillon
