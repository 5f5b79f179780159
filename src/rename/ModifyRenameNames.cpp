#include "rename/ModifyRenameNames.h"

#include <string>
#include <utility>

#include "rename/ModifyName.h"

namespace quillon {

RunOutcome ModifyRenameNames(FileList& list, Rows rows, const OptionValues::Modify& rules, RegexEngine& regex,
                             const ApplyRow& apply, Progress& progress) {
  RunOutcome outcome;
  outcome.end = RunOverRows(list, rows, progress, [&](int index) {
    const std::string before = list.Row(index).renameName;
    ModifyResult result = ModifyName(before, rules, static_cast<std::size_t>(list.Count()), regex, progress);
    if (result.cancelled) return RunEnd::kCancelled;
    if (result.leftAlone) ++outcome.leftAlone;
    if (result.name != before) list.SetRenameName(index, std::move(result.name));
    return ApplyOrRestore(list, index, before, apply, outcome);
  });
  return outcome;
}

}  // namespace quillon
