#include "platform/WholeFile.h"

namespace quillon {

std::optional<std::string> ReadWholeFile(const std::string& path) {
  const std::unique_ptr<ByteSource> file = OpenSystemFile(path);
  if (!file) return std::nullopt;
  std::string bytes = file->Read(0, file->Size());
  if (bytes.size() != file->Size()) return std::nullopt;
  return bytes;
}

}  // namespace quillon
