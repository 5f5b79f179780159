#include "rename/RestoreNames.h"

namespace quillon {

void RestoreName(FileList& list, int index) {
  list.SetRenameName(index, list.Row(index).BaseName());
}

void RestoreNames(FileList& list, Rows rows) {
  for (int index = 1; index <= list.Count(); ++index) {
    if (list.IsIn(rows, index)) RestoreName(list, index);
  }
}

}  // namespace quillon
