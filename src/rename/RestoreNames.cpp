#include "rename/RestoreNames.h"

#include <string>

#include "paths/basFileControl.h"

namespace quillon {

void RestoreName(FileList& list, int index, PathStyle style) {
  list.SetRenameName(index, std::string(BaseName(list.Row(index).location, style)));
}

void RestoreNames(FileList& list, Rows rows, PathStyle style) {
  for (int index = 1; index <= list.Count(); ++index) {
    if (list.IsIn(rows, index)) RestoreName(list, index, style);
  }
}

}  // namespace quillon
