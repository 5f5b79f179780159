#include <windows.h>

#include <atomic>
#include <string_view>
#include <utility>

#include "platform/AwayFile.h"
#include "platform/FileOpener.h"
#include "platform/FileSystem.h"
#include "platform/FolderOrder.h"
#include "platform/ReadAhead.h"
#include "platform/WindowsPath.h"
#include "platform/windows/FileId.h"
#include "platform/windows/FinalPath.h"
#include "platform/windows/Handle.h"
#include "platform/windows/LocalFile.h"
#include "platform/windows/SystemError.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/Wide.h"

namespace quillon {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// Opens a file or folder only to query it, links followed, with full sharing.
Handle OpenForQuestions(const std::wstring& path) {
  return Handle(::CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING,
                              FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

bool IsFolder(DWORD attributes) {
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Other reparse points, such as cloud files and deduplicated files, are treated as ordinary files.
bool IsLink(const WIN32_FIND_DATAW& found) {
  if ((found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return false;
  return found.dwReserved0 == IO_REPARSE_TAG_SYMLINK || found.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT;
}

void AddEntry(std::vector<FolderEntry>& entries, const std::wstring& folder, const WIN32_FIND_DATAW& found) {
  const std::wstring_view name = found.cFileName;
  if (name == L"." || name == L"..") return;
  const bool isLink = IsLink(found);
  if (isLink && !OpenForQuestions(folder + std::wstring(name)).Open()) return;
  entries.push_back({FromWide(name), IsFolder(found.dwFileAttributes), isLink});
}

class SearchCloser {
 public:
  explicit SearchCloser(HANDLE search) : search_(search) {}
  SearchCloser(const SearchCloser&) = delete;
  SearchCloser& operator=(const SearchCloser&) = delete;
  ~SearchCloser() { ::FindClose(search_); }

 private:
  HANDLE search_;
};

// The system counts steps of 100 ns since 1601.
std::int64_t SecondsSince1970(const FILETIME& time) {
  constexpr std::int64_t kStepsPerSecond = 10'000'000;
  constexpr std::int64_t kSecondsTo1970 = 11'644'473'600;
  const auto steps = static_cast<std::int64_t>(std::uint64_t{time.dwHighDateTime} << 32u | time.dwLowDateTime);
  return steps / kStepsPerSecond - kSecondsTo1970;
}

// For both structures in which the system tells of a file.
template <class Found>
Result<FileStatus, FileError> StatusOf(const Found& found) {
  if (IsFolder(found.dwFileAttributes)) return FileStatus{FileStatus::Kind::kFolder, 0};
  return FileStatus{FileStatus::Kind::kFile, std::uint64_t{found.nFileSizeHigh} << 32u | found.nFileSizeLow,
                    SecondsSince1970(found.ftLastWriteTime)};
}

Result<FileStatus, FileError> StatusError(DWORD number) {
  if (number == ERROR_FILE_NOT_FOUND || number == ERROR_PATH_NOT_FOUND || number == ERROR_DIRECTORY) {
    return FileStatus();
  }
  return ErrorOf(number);
}

Result<FileStatus, FileError> StatusBehindLink(const std::wstring& path) {
  const Handle file = OpenForQuestions(path);
  BY_HANDLE_FILE_INFORMATION found = {};
  if (file.Open() && ::GetFileInformationByHandle(file.Get(), &found)) {
    return StatusOf(found);
  }
  const Result<FileStatus, FileError> status = StatusError(::GetLastError());
  // A dangling link is not absent: its name is taken.
  return status && status->kind == FileStatus::Kind::kAbsent ? FileStatus{FileStatus::Kind::kOther, 0} : status;
}

// In nanoseconds since 1970. Times that the type cannot hold wrap around, which still tells two times apart.
std::int64_t SinceEpoch(const FILETIME& time) {
  constexpr std::uint64_t kEpoch = 116'444'736'000'000'000;  // 1970 in units of 100 ns since 1601
  const std::uint64_t units = std::uint64_t{time.dwHighDateTime} << 32u | time.dwLowDateTime;
  return static_cast<std::int64_t>((units - kEpoch) * 100);
}

Result<FileStatus, FileError> StatusOfPath(const std::string& path) {
  if (path.empty()) return FileStatus();
  const std::optional<std::wstring> systemPath = ExistingPath(path);
  if (!systemPath) return InvalidNameError();
  WIN32_FILE_ATTRIBUTE_DATA found = {};
  if (!::GetFileAttributesExW(systemPath->c_str(), GetFileExInfoStandard, &found)) return StatusError(::GetLastError());
  const bool mayBeLink = (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  if (mayBeLink && !IsAwayFile(found.dwFileAttributes)) return StatusBehindLink(*systemPath);
  return StatusOf(found);
}

class SystemFiles final : public FileOpener {
 public:
  Opened Open(const PathList::File& file) override {
    file.PathInto(path_);
    std::unique_ptr<ByteSource> opened = OpenLocalFile(path_);
    const DWORD failure = opened ? ERROR_SUCCESS : ::GetLastError();
    return {std::move(opened), failure == ERROR_TOO_MANY_OPEN_FILES || failure == ERROR_NOT_ENOUGH_MEMORY};
  }

  Result<FileStatus, FileError> Status(const PathList::File& file) override {
    file.PathInto(path_);
    return StatusOfPath(path_);
  }

 private:
  std::string path_;
};

std::unique_ptr<FileOpener> MakeSystemFiles() {
  return std::make_unique<SystemFiles>();
}

Listing ListEntries(const std::string& folder, const std::atomic<bool>& abandoned) {
  std::optional<std::wstring> path = SystemPath(folder);
  if (!path) return FolderErrorOf(ERROR_INVALID_NAME);
  if (!path->ends_with(L'\\')) *path += L'\\';
  WIN32_FIND_DATAW found = {};
  HANDLE search = ::FindFirstFileExW((*path + L'*').c_str(), FindExInfoBasic, &found, FindExSearchNameMatch, nullptr,
                                     FIND_FIRST_EX_LARGE_FETCH);
  std::vector<FolderEntry> entries;
  if (reinterpret_cast<LONG_PTR>(search) == -1) {
    const DWORD failure = ::GetLastError();
    // An empty root folder has no entries at all, not even ".".
    if (failure == ERROR_FILE_NOT_FOUND) return entries;
    return FolderErrorOf(failure);
  }
  const SearchCloser closer(search);
  do AddEntry(entries, *path, found);
  while (!abandoned.load(std::memory_order_relaxed) && ::FindNextFileW(search, &found));
  if (abandoned.load(std::memory_order_relaxed)) return entries;
  if (const DWORD failure = ::GetLastError(); failure != ERROR_NO_MORE_FILES) return FolderErrorOf(failure);
  SortAsVolumeLists(entries);
  return entries;
}

std::string ResolveLinks(const std::string& folder) {
  const std::optional<std::wstring> path = SystemPath(folder);
  if (!path) return {};
  const Handle open = OpenForQuestions(*path);
  return open.Open() ? PlainWindowsPath(FromWide(FinalPath(open))) : std::string();
}

class WindowsFileReads final : public FileReads {
 public:
  explicit WindowsFileReads(const FileReadsOptions& options) : options_(options) {}

  Result<std::vector<FolderEntry>, FileError> ReadFolder(const std::string& folder) override {
    return ListEntries(folder, std::atomic<bool>(false));
  }

  std::unique_ptr<FolderListings> ListFolders(bool subfolders) override {
    if (!options_.readAhead) return FileReads::ListFolders(subfolders);
    return MakeListingsAhead({&ListEntries, &ResolveLinks}, subfolders, '\\');
  }

  std::string RealPath(const std::string& folder) override { return ResolveLinks(folder); }

  std::unique_ptr<ByteSource> OpenFile(const std::string& path) override { return OpenLocalFile(path); }

  Result<FileStatus, FileError> Status(const std::string& path) override { return StatusOfPath(path); }

  std::unique_ptr<FilesInTurn> ReadInTurn(const PathList& list, const NeedsOf& needs) override {
    if (!options_.readAhead || list.size() < kFewestReadAhead) return FileReads::ReadInTurn(list, needs);
    return MakeReadAhead(list, needs, &MakeSystemFiles, {});
  }

  bool SameFile(const std::string& left, const std::string& right) override {
    const std::optional<std::wstring> leftPath = ExistingPath(left);
    const std::optional<std::wstring> rightPath = ExistingPath(right);
    if (!leftPath || !rightPath) return false;
    // Both are open during the comparison, because a file's id could be reused once no handle is open.
    const Handle one = OpenForQuestions(*leftPath);
    const Handle other = OpenForQuestions(*rightPath);
    BY_HANDLE_FILE_INFORMATION first = {};
    BY_HANDLE_FILE_INFORMATION second = {};
    if (!one.Open() || !other.Open()) return false;
    if (!::GetFileInformationByHandle(one.Get(), &first)) return false;
    if (!::GetFileInformationByHandle(other.Get(), &second)) return false;
    return first.dwVolumeSerialNumber == second.dwVolumeSerialNumber && first.nFileIndexHigh == second.nFileIndexHigh &&
           first.nFileIndexLow == second.nFileIndexLow;
  }

  Result<FileIdentity, FileError> Identity(const std::string& path) override {
    const std::optional<std::wstring> systemPath = ExistingPath(path);
    if (!systemPath) return InvalidNameError();
    const std::optional<quillon::Status> status = StatusAt(*systemPath);
    if (!status) return ErrorOf(::GetLastError());
    const FileId id = IdOf(*status);
    return FileIdentity{id.volume, id.index, SizeOf(*status), SinceEpoch(status->ftLastWriteTime)};
  }

  NameUnit NameUnitOf(const std::string& /*folder*/) override { return NameUnit::kUtf16; }

 private:
  FileReadsOptions options_;
};

}  // namespace

std::unique_ptr<FileReads> MakeFileReads(const FileReadsOptions& options) {
  return std::make_unique<WindowsFileReads>(options);
}

}  // namespace quillon
