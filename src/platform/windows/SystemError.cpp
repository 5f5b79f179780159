#include "platform/windows/SystemError.h"

#include "platform/windows/Wide.h"

namespace quillon {
namespace {

int NumberOf(DWORD number) {
  switch (number) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_DEV_TYPE:
    case ERROR_INVALID_PARAMETER:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_DIRECTORY: return file_error::kNotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_BUSY:
    case ERROR_USER_MAPPED_FILE: return file_error::kAccess;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS: return file_error::kAlreadyExists;
    default: return file_error::kOwn + static_cast<int>(number);
  }
}

bool IsOutOfReach(DWORD number) {
  switch (number) {
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_UNIT:
    case ERROR_NOT_READY:
    case ERROR_GEN_FAILURE:
    case ERROR_REM_NOT_LIST:
    case ERROR_BAD_NETPATH:
    case ERROR_DEV_NOT_EXIST:
    case ERROR_UNEXP_NET_ERR:
    case ERROR_NETNAME_DELETED:
    case ERROR_BAD_NET_NAME:
    case ERROR_SEM_TIMEOUT:
    case ERROR_UNRECOGNIZED_VOLUME:
    case ERROR_NO_MEDIA_IN_DRIVE:
    case ERROR_DEVICE_NOT_CONNECTED:
    case ERROR_NO_NETWORK:
    case ERROR_NETWORK_UNREACHABLE:
    case ERROR_HOST_UNREACHABLE: return true;
    default: return NumberOf(number) == file_error::kNotFound;
  }
}

std::string Description(DWORD number) {
  wchar_t* text = nullptr;
  constexpr DWORD kFlags = FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
  const DWORD length = ::FormatMessageW(kFlags, nullptr, number, 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
  if (length == 0) return {};
  std::wstring description(text, length);
  ::LocalFree(text);
  description.erase(description.find_last_not_of(L"\r\n ") + 1);
  return FromWide(description);
}

}  // namespace

FileError ErrorOf(DWORD number) {
  return {NumberOf(number), Description(number)};
}

FileError FolderErrorOf(DWORD number) {
  FileError error = ErrorOf(number);
  if (IsOutOfReach(number)) error.number = file_error::kUnreachable;
  return error;
}

FileError InvalidNameError() {
  return ErrorOf(ERROR_INVALID_NAME);
}

FileOutcome OutcomeOf(BOOL succeeded) {
  return succeeded ? FileOutcome() : FileOutcome(ErrorOf(::GetLastError()));
}

}  // namespace quillon
