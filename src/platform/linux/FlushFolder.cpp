#include "platform/linux/FlushFolder.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "platform/linux/Descriptor.h"

namespace quillon {

int FlushFolder(const std::string& folder) {
  const Descriptor open(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!open.Open()) return errno == EACCES ? 0 : errno;
  if (::fsync(open.Number()) == 0 || errno == EINVAL || errno == EOPNOTSUPP) return 0;
  return errno;
}

}  // namespace quillon
