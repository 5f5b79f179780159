// windows.h has to come first.
// clang-format off
#include <windows.h>
#include <shellapi.h>
// clang-format on

#include <algorithm>
#include <optional>

#include "platform/EntryPath.h"
#include "platform/FileSystem.h"
#include "platform/MoveByCopying.h"
#include "platform/RenameEntry.h"
#include "platform/WindowsPath.h"
#include "platform/windows/CopyFile.h"
#include "platform/windows/Handle.h"
#include "platform/windows/SystemError.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/Wide.h"

namespace quillon {
namespace {

FileOutcome LookAt(const std::string& path) {
  const std::optional<std::wstring> systemPath = SystemPath(path);
  if (!systemPath) return UnholdableName();
  return OutcomeOf(::GetFileAttributesW(systemPath->c_str()) != INVALID_FILE_ATTRIBUTES);
}

FileOutcome MoveTo(const std::string& from, const std::string& to, DWORD flags) {
  const std::optional<std::wstring> source = SystemPath(from);
  const std::optional<std::wstring> target = SystemPath(to);
  if (!source || !target) return UnholdableName();
  return OutcomeOf(::MoveFileExW(source->c_str(), target->c_str(), flags));
}

FileOutcome RemoveAt(const std::string& path) {
  const std::optional<std::wstring> systemPath = SystemPath(path);
  if (!systemPath) return UnholdableName();
  return OutcomeOf(::DeleteFileW(systemPath->c_str()));
}

class WindowsEntries final : public EntryChanges {
 public:
  FileOutcome RenameNoReplace(const std::string& from, const std::string& to) override { return MoveTo(from, to, 0); }

  FileOutcome Look(const std::string& path) override { return LookAt(path); }

  bool SameFile(const std::string& left, const std::string& right) override {
    return MakeFileReads()->SameFile(left, right);
  }

  bool HasOneName(const std::string&) override { return false; }

  std::string ListedName(const std::string& path) override {
    const std::optional<std::wstring> systemPath = SystemPath(path);
    if (!systemPath) return {};
    WIN32_FIND_DATAW found = {};
    HANDLE search = ::FindFirstFileW(systemPath->c_str(), &found);
    if (reinterpret_cast<LONG_PTR>(search) == -1) return {};
    ::FindClose(search);
    return FromWide(found.cFileName);
  }
};

// A file that is only read-only must not make a move fail that has copied it already.
FileOutcome RemoveEvenReadOnly(const std::string& path) {
  FileOutcome outcome = RemoveAt(path);
  const std::optional<std::wstring> systemPath = SystemPath(path);
  if (!outcome || !systemPath) return outcome;
  const DWORD attributes = ::GetFileAttributesW(systemPath->c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_READONLY) == 0) return outcome;
  constexpr DWORD kReadOnly = FILE_ATTRIBUTE_READONLY;
  ::SetFileAttributesW(systemPath->c_str(), attributes & ~kReadOnly);
  FileOutcome second = RemoveAt(path);
  if (second) ::SetFileAttributesW(systemPath->c_str(), attributes);
  return second;
}

class WindowsCopySteps final : public CopySteps {
 public:
  FileOutcome Look(const std::string& path) override { return LookAt(path); }

  FileOutcome Copy(const std::string& from, const std::string& to) override {
    const std::optional<std::wstring> source = SystemPath(from);
    const std::optional<std::wstring> target = SystemPath(to);
    if (!source || !target) return UnholdableName();
    return CopyWithAttributes(*source, *target);
  }

  FileOutcome Publish(const std::string& temporary, const std::string& to) override {
    return MoveTo(temporary, to, MOVEFILE_WRITE_THROUGH);
  }

  // Windows has no such call; the write-through rename has done it.
  FileOutcome FlushFolder(const std::string&) override { return std::nullopt; }

  FileOutcome Remove(const std::string& path) override { return RemoveEvenReadOnly(path); }
};

// The path with its last name as the system will hold it; nullopt when it cannot.
std::optional<std::string> NewPath(const std::string& path) {
  const EntryPath split = SplitPath(path, PathStyle::kWindows);
  const std::string_view held = HeldWindowsName(split.name);
  if (!CanNameFile(split.name) || held.empty() || !CanNameWindowsFile(held)) return std::nullopt;
  return std::string(split.folder) + std::string(held);
}

// The path of a file that is there, spelled so that it is found literally.
std::optional<std::string> SourcePath(const std::string& path) {
  if (!CanNameFile(SplitPath(path, PathStyle::kWindows).name)) return std::nullopt;
  const std::optional<std::wstring> existing = ExistingPath(path);
  return existing ? std::optional<std::string>(PlainWindowsPath(FromWide(*existing))) : std::nullopt;
}

class WindowsFileChanges final : public FileChanges {
 public:
  FileOutcome Rename(const std::string& from, const std::string& to) override {
    if (from == to) return SourcePath(from) ? LookAt(*SourcePath(from)) : UnholdableName();
    return RenameThen(from, to, [](const std::string&, const std::string&, FileOutcome outcome) { return outcome; });
  }

  FileOutcome Move(const std::string& from, const std::string& to) override {
    if (from == to) return Rename(from, to);
    return RenameThen(from, to, [](const std::string& source, const std::string& target, FileOutcome outcome) {
      if (!outcome || outcome->number != file_error::kOwn + ERROR_NOT_SAME_DEVICE) return outcome;
      WindowsCopySteps steps;
      return MoveByCopying(steps, source, target, PathStyle::kWindows);
    });
  }

  FileOutcome Remove(const std::string& path) override {
    const std::optional<std::string> source = SourcePath(path);
    return source ? RemoveAt(*source) : UnholdableName();
  }

  int Recycle(const std::string& path, std::uintptr_t ownerWindow) override {
    const std::optional<std::string> tidy = TidySystemPath(path);
    std::optional<std::wstring> source = tidy ? ToWide(*tidy) : std::nullopt;
    if (!source) return kRecycleNotDone;
    source->push_back(L'\0');  // a list of one, ended by an empty entry
    SHFILEOPSTRUCTW request = {};
    // The handle travels as a number, so that no header outside knows the type.
    request.hwnd = reinterpret_cast<HWND>(ownerWindow);  // NOLINT(performance-no-int-to-ptr)
    request.wFunc = FO_DELETE;
    request.pFrom = source->c_str();
    request.fFlags = FOF_ALLOWUNDO;
    const int result = ::SHFileOperationW(&request);
    // A declined confirmation is no failure: the caller sees by itself that the file is still there.
    return request.fAnyOperationsAborted != FALSE || result == ERROR_CANCELLED ? 0 : result;
  }

 private:
  template <class Next>
  static FileOutcome RenameThen(const std::string& from, const std::string& to, Next next) {
    const std::optional<std::string> source = SourcePath(from);
    const std::optional<std::string> target = NewPath(to);
    if (!source || !target) return UnholdableName();
    WindowsEntries entries;
    return next(*source, *target, RenameEntry(entries, *source, *target, PathStyle::kWindows));
  }
};

}  // namespace

std::unique_ptr<FileChanges> MakeFileChanges() {
  return std::make_unique<WindowsFileChanges>();
}

}  // namespace quillon
