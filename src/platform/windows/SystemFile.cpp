#include <windows.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/AwayFile.h"
#include "platform/WholeFile.h"
#include "platform/windows/FinalPath.h"
#include "platform/windows/Handle.h"
#include "platform/windows/LocalFile.h"
#include "platform/windows/SharingRetry.h"
#include "platform/windows/SystemPath.h"

namespace quillon {
namespace {

class SystemFile final : public ByteSource {
 public:
  SystemFile(Handle file, std::uint64_t size, bool hiddenOrSystem)
      : file_(std::move(file)), size_(size), hiddenOrSystem_(hiddenOrSystem) {}

  [[nodiscard]] std::uint64_t Size() const override { return size_; }
  [[nodiscard]] bool IsHiddenOrSystem() const override { return hiddenOrSystem_; }

  std::size_t ReadAt(std::uint64_t offset, char* into, std::size_t count) override {
    constexpr std::size_t kMostAtOnce = std::size_t{1} << 30u;
    std::size_t done = 0;
    while (done < count) {
      OVERLAPPED place = {};
      place.Offset = static_cast<DWORD>((offset + done) & 0xFFFFFFFFu);
      place.OffsetHigh = static_cast<DWORD>((offset + done) >> 32u);
      DWORD got = 0;
      const auto wanted = static_cast<DWORD>(std::min(count - done, kMostAtOnce));
      if (!::ReadFile(file_.Get(), into + done, wanted, &got, &place) || got == 0) break;
      done += got;
    }
    return done;
  }

 private:
  Handle file_;
  std::uint64_t size_;
  bool hiddenOrSystem_;
};

Handle OpenForAll(const std::wstring& path) {
  constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  return Handle(
      ::CreateFileW(path.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

std::unique_ptr<ByteSource> RegularFile(Handle file) {
  if (!file.Open() || ::GetFileType(file.Get()) != FILE_TYPE_DISK) return nullptr;
  BY_HANDLE_FILE_INFORMATION found = {};
  if (!::GetFileInformationByHandle(file.Get(), &found)) return nullptr;
  if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return nullptr;
  const std::uint64_t size = std::uint64_t{found.nFileSizeHigh} << 32u | found.nFileSizeLow;
  const bool hiddenOrSystem = (found.dwFileAttributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) != 0;
  return std::make_unique<SystemFile>(std::move(file), size, hiddenOrSystem);
}

// Where a link leads; empty when it cannot be told. The file is not opened for reading, so nothing is fetched.
std::wstring TargetOf(const std::wstring& link) {
  constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const Handle file(::CreateFileW(link.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_OPEN_NO_RECALL, nullptr));
  return file.Open() ? FinalPath(file) : std::wstring();
}

}  // namespace

std::unique_ptr<ByteSource> OpenSystemFile(const std::string& path) {
  const std::optional<std::wstring> systemPath = ExistingPath(path);
  return systemPath ? RegularFile(OpenForAll(*systemPath)) : nullptr;
}

std::unique_ptr<ByteSource> OpenLocalFile(const std::string& path, AttributesOf attributesOf) {
  ::SetLastError(ERROR_SUCCESS);
  const std::optional<std::wstring> systemPath = ExistingPath(path);
  if (!systemPath) return nullptr;
  const DWORD attributes = attributesOf(systemPath->c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || IsAwayFile(attributes)) return nullptr;
  if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
    // A link does not have the attributes of its target. Where that cannot be told, the file is opened as any other.
    const std::wstring target = TargetOf(*systemPath);
    if (!target.empty() && IsAwayFile(attributesOf(target.c_str()))) return nullptr;
  }
  return RegularFile(OpenForAll(*systemPath));
}

Result<std::unique_ptr<ByteSource>, ReadFailure> OpenRegularFile(const std::string& path) {
  const std::optional<std::wstring> systemPath = ExistingPath(path);
  if (!systemPath) return ReadFailure::kUnreadable;
  std::optional<Handle> file;
  const bool open = RetrySharing([&] { return file.emplace(OpenForAll(*systemPath)).Open(); });
  const DWORD failure = open ? ERROR_SUCCESS : ::GetLastError();
  if (failure == ERROR_FILE_NOT_FOUND || failure == ERROR_PATH_NOT_FOUND) return ReadFailure::kAbsent;
  std::unique_ptr<ByteSource> regular = RegularFile(*std::move(file));
  if (!regular) return ReadFailure::kUnreadable;
  return regular;
}

}  // namespace quillon
