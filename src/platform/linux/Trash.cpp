#include "platform/linux/Trash.h"

#include <gio/gio.h>

#include "platform/linux/SystemError.h"

namespace quillon {

bool MoveToTrash(const std::string& path) {
  if (HoldsNul(path)) return false;
  GFile* file = g_file_new_for_path(path.c_str());
  const bool moved = g_file_trash(file, nullptr, nullptr) != FALSE;
  g_object_unref(file);
  return moved;
}

}  // namespace quillon
