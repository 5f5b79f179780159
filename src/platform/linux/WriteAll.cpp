#include "platform/linux/WriteAll.h"

#include <unistd.h>

#include <cerrno>
#include <cstddef>

namespace quillon {

bool WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    if (written == 0) {
      errno = EIO;  // retrying would never end
      return false;
    }
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace quillon
