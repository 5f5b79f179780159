#include "platform/linux/SystemError.h"

#include <cerrno>
#include <system_error>

namespace quillon {
namespace {

int NumberOf(int number) {
  switch (number) {
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
    case EINVAL:
    case EILSEQ: return file_error::kNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EBUSY:
    case ETXTBSY:
    case EISDIR:  // only occurs when deleting a folder, which is not allowed
      return file_error::kAccess;
    case EEXIST: return file_error::kAlreadyExists;
    default: return file_error::kOwn + number;
  }
}

bool IsOutOfReach(int number) {
  switch (number) {
    case ENODEV:
    case ENXIO:
    case ENOMEDIUM:
    case EHOSTDOWN:
    case EHOSTUNREACH:
    case ENETDOWN:
    case ENETUNREACH:
    case ETIMEDOUT:
    case ENOTCONN:
    case ECONNREFUSED:
    case ECONNABORTED:
    case ESTALE: return true;
    default: return NumberOf(number) == file_error::kNotFound;
  }
}

}  // namespace

FileError ErrorOf(int number) {
  return {NumberOf(number), std::generic_category().message(number)};
}

FileOutcome OutcomeOf(int number) {
  return number == 0 ? FileOutcome() : FileOutcome(ErrorOf(number));
}

FileError FolderErrorOf(int number) {
  FileError error = ErrorOf(number);
  if (IsOutOfReach(number)) error.number = file_error::kUnreachable;
  return error;
}

FileError InvalidNameError() {
  return ErrorOf(EINVAL);
}

bool HoldsNul(const std::string& path) {
  return path.find('\0') != std::string::npos;
}

}  // namespace quillon
