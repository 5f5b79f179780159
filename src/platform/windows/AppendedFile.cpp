#include "platform/AppendedFile.h"

#include <windows.h>

#include <algorithm>
#include <utility>

#include "platform/windows/Handle.h"
#include "platform/windows/SystemError.h"
#include "platform/windows/SystemPath.h"

namespace quillon {
namespace {

bool WriteBytes(const Handle& file, std::string_view bytes) {
  constexpr std::size_t kMost = std::size_t{1} << 20u;
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto count = static_cast<DWORD>(std::min(bytes.size(), kMost));
    if (!::WriteFile(file.Get(), bytes.data(), count, &written, nullptr)) return false;
    if (written == 0) {
      ::SetLastError(ERROR_WRITE_FAULT);  // retrying would never end
      return false;
    }
    bytes.remove_prefix(written);
  }
  return true;
}

class WindowsAppendedFile final : public AppendedFile {
 public:
  explicit WindowsAppendedFile(Handle file) : file_(std::move(file)) {}

  FileOutcome Append(std::string_view bytes) override {
    LARGE_INTEGER end = {};
    if (!::SetFilePointerEx(file_.Get(), {}, &end, FILE_END)) return ErrorOf(::GetLastError());
    if (WriteBytes(file_, bytes)) return std::nullopt;
    const FileError error = ErrorOf(::GetLastError());
    // A torn line is told when the log is read.
    if (::SetFilePointerEx(file_.Get(), end, nullptr, FILE_BEGIN)) ::SetEndOfFile(file_.Get());
    return error;
  }

 private:
  Handle file_;
};

}  // namespace

Result<std::unique_ptr<AppendedFile>, FileError> OpenAppendedFile(const std::string& path) {
  const std::optional<std::wstring> systemPath = SystemPath(path);
  if (!systemPath) return InvalidNameError();
  Handle file(::CreateFileW(systemPath->c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                            FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.Open()) return ErrorOf(::GetLastError());
  return std::unique_ptr<AppendedFile>(std::make_unique<WindowsAppendedFile>(std::move(file)));
}

}  // namespace quillon
