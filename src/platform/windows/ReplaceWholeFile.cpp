#include <windows.h>

#include <algorithm>
#include <functional>
#include <optional>

#include "platform/EntryPath.h"
#include "platform/ReplaceContent.h"
#include "platform/TemporaryMark.h"
#include "platform/TemporaryName.h"
#include "platform/WholeFile.h"
#include "platform/windows/Handle.h"
#include "platform/windows/SharingRetry.h"
#include "platform/windows/SystemError.h"
#include "platform/windows/SystemPath.h"

namespace quillon {
namespace {

constexpr std::size_t kMostAtOnce = std::size_t{1} << 30u;

// The target of a link at `path`; the path itself when it is no link or a dangling one.
std::string BehindLinks(const std::string& path) {
  const std::string real = MakeFileReads()->RealPath(path);
  return real.empty() ? path : real;
}

std::string FolderOf(const std::string& path) {
  return std::string(SplitPath(path, PathStyle::kWindows).folder);
}

FileOutcome MakeFolders(const std::string& folder) {
  const std::optional<std::wstring> systemPath = SystemPath(folder);
  if (!systemPath) return InvalidNameError();
  if (::GetFileAttributesW(systemPath->c_str()) != INVALID_FILE_ATTRIBUTES) return std::nullopt;
  const std::string parent = FolderOf(folder.substr(0, folder.size() - 1));
  if (parent.size() < folder.size() && !parent.empty()) {
    if (FileOutcome failed = MakeFolders(parent)) return failed;
  }
  if (::CreateDirectoryW(systemPath->c_str(), nullptr) || ::GetLastError() == ERROR_ALREADY_EXISTS) return std::nullopt;
  return ErrorOf(::GetLastError());
}

bool WriteAndFlush(const Handle& file, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto count = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
    if (!::WriteFile(file.Get(), bytes.data(), count, &written, nullptr)) return false;
    if (written == 0) {
      ::SetLastError(ERROR_WRITE_FAULT);  // retrying would never end
      return false;
    }
    bytes.remove_prefix(written);
  }
  return ::FlushFileBuffers(file.Get()) != 0;
}

Handle CreateNew(const std::wstring& path, DWORD flags) {
  return Handle(::CreateFileW(path.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW, flags, nullptr));
}

FileOutcome RetryCall(const std::function<BOOL()>& call) {
  return OutcomeOf(RetrySharing(call) ? TRUE : FALSE);
}

class WindowsReplaceSteps final : public ReplaceSteps {
 public:
  FileOutcome Look(const std::string& path) override {
    const std::optional<std::wstring> systemPath = SystemPath(path);
    if (!systemPath) return InvalidNameError();
    const DWORD attributes = ::GetFileAttributesW(systemPath->c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return ErrorOf(::GetLastError());
    constexpr DWORD kUnwritable = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE | FILE_ATTRIBUTE_READONLY;
    return (attributes & kUnwritable) != 0 ? FileOutcome(ErrorOf(ERROR_ACCESS_DENIED)) : std::nullopt;
  }

  FileOutcome Write(const std::string& temporary, std::string_view bytes, const std::string& /*path*/) override {
    const std::optional<std::wstring> systemPath = SystemPath(temporary);
    if (!systemPath) return InvalidNameError();
    Result<std::unique_ptr<TemporaryMark>, FileError> mark = MarkTemporaryFile(temporary);
    if (!mark) return mark.Failure();
    mark_ = std::move(*mark);
    Handle file = CreateNew(*systemPath, FILE_ATTRIBUTE_NORMAL);
    if (!file.Open()) return ErrorOf(::GetLastError());
    FileOutcome outcome = OutcomeOf(WriteAndFlush(file, bytes));
    file.Close();
    if (outcome) ::DeleteFileW(systemPath->c_str());
    return outcome;
  }

  // ReplaceFile keeps the old file's attributes and access rights. When it fails to rename the new file (errors 1176,
  // 1177), it has already removed the old file's name; since no backup name is given, the old file is then gone.
  FileOutcome Replace(const std::string& temporary, const std::string& path) override {
    const std::optional<std::wstring> from = SystemPath(temporary);
    const std::optional<std::wstring> to = SystemPath(path);
    if (!from || !to) return InvalidNameError();
    return RetryCall([&] {
      return ::ReplaceFileW(to->c_str(), from->c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr);
    });
  }

  FileOutcome Publish(const std::string& temporary, const std::string& path) override {
    const std::optional<std::wstring> from = SystemPath(temporary);
    const std::optional<std::wstring> to = SystemPath(path);
    if (!from || !to) return InvalidNameError();
    return RetryCall([&] { return ::MoveFileExW(from->c_str(), to->c_str(), MOVEFILE_WRITE_THROUGH); });
  }

  // Windows has no such call.
  FileOutcome FlushFolder(const std::string&) override { return std::nullopt; }

  FileOutcome Remove(const std::string& path) override {
    const std::optional<std::wstring> systemPath = SystemPath(path);
    if (!systemPath) return InvalidNameError();
    return RetryCall([&] { return ::DeleteFileW(systemPath->c_str()); });
  }

 private:
  std::unique_ptr<TemporaryMark> mark_;  // deleted after the replacement
};

}  // namespace

std::unique_ptr<ReplaceSteps> MakeReplaceSteps() {
  return std::make_unique<WindowsReplaceSteps>();
}

FileOutcome ReplaceWholeFile(const std::string& path, std::string_view bytes) {
  const std::optional<std::string> tidy = TidySystemPath(path);
  if (!tidy) return InvalidNameError();
  const std::string target = BehindLinks(*tidy);
  if (FileOutcome failed = MakeFolders(FolderOf(target))) return failed;
  RemoveMarkedLeftovers(FolderOf(target));
  return ReplaceContent(*MakeReplaceSteps(), target, bytes, PathStyle::kWindows);
}

bool CanWriteFolder(const std::string& folder) {
  const std::optional<std::string> tidy = TidySystemPath(folder);
  if (!tidy) return false;
  const std::string separator = tidy->ends_with('\\') ? "" : "\\";
  const std::optional<std::wstring> probe = SystemPath(*tidy + separator + TemporaryName());
  return probe && CreateNew(*probe, FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE).Open();
}

}  // namespace quillon
