#pragma once

#include "filelist/FileList.h"
#include "platform/PathStyle.h"

namespace quillon {

/// Sets the rename name of the row with this 1-based index to the present base name of its file.
void RestoreName(FileList& list, int index);

/// The same for several rows.
void RestoreNames(FileList& list, Rows rows);

}  // namespace quillon
