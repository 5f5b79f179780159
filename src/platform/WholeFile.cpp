#include "platform/WholeFile.h"

namespace quillon {

Result<std::string, ReadFailure> ReadWholeFile(const std::string& path, std::uint64_t largest) {
  const Result<std::unique_ptr<ByteSource>, ReadFailure> file = OpenRegularFile(path);
  if (!file) return file.Failure();
  return ReadWhole(**file, largest);
}

Result<std::string, ReadFailure> ReadWhole(ByteSource& file, std::uint64_t largest) {
  if (file.Size() > largest) return ReadFailure::kTooLarge;
  std::string bytes = file.Read(0, file.Size());
  if (bytes.size() != file.Size()) return ReadFailure::kUnreadable;
  return bytes;
}

}  // namespace quillon
