#include "platform/linux/Trash.h"

#include <gio/gio.h>

#include "platform/linux/SystemError.h"

namespace quillon {

int MoveToTrash(const std::string& path) {
  if (HoldsNul(path)) return kTrashErrorOffset + G_IO_ERROR_INVALID_FILENAME;
  GFile* file = g_file_new_for_path(path.c_str());
  GError* error = nullptr;
  int result = 0;
  if (g_file_trash(file, nullptr, &error) == FALSE) {
    result = kTrashErrorOffset + (error != nullptr ? error->code : G_IO_ERROR_FAILED);
  }
  g_clear_error(&error);
  g_object_unref(file);
  return result;
}

}  // namespace quillon
