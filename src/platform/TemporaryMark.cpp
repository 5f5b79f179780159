#include "platform/TemporaryMark.h"

#include "platform/TemporaryName.h"

namespace quillon {

Result<std::unique_ptr<TemporaryMark>, FileError> MarkTemporary(const std::string& folder) {
  FileError taken;
  for (int i = 0; i < kTemporaryNameAttempts; ++i) {
    Result<std::unique_ptr<TemporaryMark>, FileError> mark = MarkTemporaryFile(folder + TemporaryName());
    if (mark || mark.Failure().number != file_error::kAlreadyExists) return mark;
    taken = mark.Failure();
  }
  return taken;
}

}  // namespace quillon
