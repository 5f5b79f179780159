#include <windows.h>

#include <algorithm>
#include <optional>

#include "platform/EntryPath.h"
#include "platform/TemporaryName.h"
#include "platform/WholeFile.h"
#include "platform/windows/Handle.h"
#include "platform/windows/SystemError.h"
#include "platform/windows/SystemPath.h"

namespace quillon {
namespace {

constexpr std::size_t kMostAtOnce = std::size_t{1} << 30u;

// Where a link at `path` leads; the path itself when it is none or leads nowhere.
std::string BehindLinks(const std::string& path) {
  const std::string real = MakeFileReads()->RealPath(path);
  return real.empty() ? path : real;
}

std::string FolderOf(const std::string& path) {
  return std::string(SplitPath(path, PathStyle::kWindows).folder);
}

FileOutcome MakeFolders(const std::string& folder) {
  const std::optional<std::wstring> systemPath = SystemPath(folder);
  if (!systemPath) return UnholdableName();
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
    bytes.remove_prefix(written);
  }
  return ::FlushFileBuffers(file.Get()) != 0;
}

// ReplaceFile keeps the old file's attributes and access rights; it needs an old file.
bool PutInPlace(const std::wstring& temporary, const std::wstring& path) {
  if (::GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) {
    return ::MoveFileExW(temporary.c_str(), path.c_str(), MOVEFILE_WRITE_THROUGH) != 0;
  }
  return ::ReplaceFileW(path.c_str(), temporary.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) !=
         0;
}

FileOutcome ReplaceThrough(const std::wstring& temporary, const std::wstring& path, std::string_view bytes,
                           Handle file) {
  const bool written = WriteAndFlush(file, bytes);
  DWORD failure = ::GetLastError();
  file.Close();
  if (written && PutInPlace(temporary, path)) return std::nullopt;
  if (written) failure = ::GetLastError();
  ::DeleteFileW(temporary.c_str());
  return ErrorOf(failure);
}

Handle CreateNew(const std::wstring& path, DWORD flags) {
  return Handle(::CreateFileW(path.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW, flags, nullptr));
}

}  // namespace

FileOutcome ReplaceWholeFile(const std::string& path, std::string_view bytes) {
  const std::optional<std::string> tidy = TidySystemPath(path);
  if (!tidy) return UnholdableName();
  const std::string target = BehindLinks(*tidy);
  const std::string folder = FolderOf(target);
  if (FileOutcome failed = MakeFolders(folder)) return failed;
  const std::optional<std::wstring> systemPath = SystemPath(target);
  if (!systemPath) return UnholdableName();
  const DWORD attributes = ::GetFileAttributesW(systemPath->c_str());
  constexpr DWORD kUnwritable = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY;
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & kUnwritable) != 0) return ErrorOf(ERROR_ACCESS_DENIED);
  for (int i = 0; i < kTemporaryNameAttempts; ++i) {
    const std::optional<std::wstring> temporary = SystemPath(folder + TemporaryName());
    if (!temporary) return UnholdableName();
    Handle file = CreateNew(*temporary, FILE_ATTRIBUTE_NORMAL);
    if (file.Open()) return ReplaceThrough(*temporary, *systemPath, bytes, std::move(file));
    if (::GetLastError() != ERROR_FILE_EXISTS) return ErrorOf(::GetLastError());
  }
  return ErrorOf(ERROR_FILE_EXISTS);
}

bool CanWriteFolder(const std::string& folder) {
  const std::optional<std::string> tidy = TidySystemPath(folder);
  if (!tidy) return false;
  const std::string separator = tidy->ends_with('\\') ? "" : "\\";
  const std::optional<std::wstring> probe = SystemPath(*tidy + separator + TemporaryName());
  return probe && CreateNew(*probe, FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE).Open();
}

}  // namespace quillon
