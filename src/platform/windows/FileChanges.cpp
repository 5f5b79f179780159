#include <windows.h>

#include <algorithm>
#include <optional>

#include "platform/EntryPath.h"
#include "platform/FileSystem.h"
#include "platform/MoveByCopying.h"
#include "platform/RenameEntry.h"
#include "platform/TemporaryMark.h"
#include "platform/WindowsPath.h"
#include "platform/windows/CopySteps.h"
#include "platform/windows/RecycleBin.h"
#include "platform/windows/SharingRetry.h"
#include "platform/windows/SystemError.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/Wide.h"

namespace quillon {
namespace {

FileOutcome LookAt(const std::string& path) {
  const std::optional<std::wstring> systemPath = SystemPath(path);
  if (!systemPath) return InvalidNameError();
  return OutcomeOf(::GetFileAttributesW(systemPath->c_str()) != INVALID_FILE_ATTRIBUTES);
}

FileOutcome MoveTo(const std::string& from, const std::string& to) {
  const std::optional<std::wstring> source = SystemPath(from);
  const std::optional<std::wstring> target = SystemPath(to);
  if (!source || !target) return InvalidNameError();
  return OutcomeOf(RetrySharing([&] { return ::MoveFileExW(source->c_str(), target->c_str(), 0) != 0; }));
}

FileOutcome RemoveAt(const std::string& path) {
  const std::optional<std::wstring> systemPath = SystemPath(path);
  if (!systemPath) return InvalidNameError();
  return OutcomeOf(RetrySharing([&] { return ::DeleteFileW(systemPath->c_str()) != 0; }));
}

class WindowsEntries final : public EntryChanges {
 public:
  FileOutcome RenameNoReplace(const std::string& from, const std::string& to) override { return MoveTo(from, to); }

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

// The path with its last name as the system would store it; nullopt for an invalid name.
std::optional<std::string> NewPath(const std::string& path) {
  const EntryPath split = SplitPath(path, PathStyle::kWindows);
  const std::string_view held = StoredWindowsName(split.name);
  if (!CanNameFile(split.name) || held.empty() || !CanNameWindowsFile(held)) return std::nullopt;
  return std::string(split.folder) + std::string(held);
}

// The literal path of an existing file.
std::optional<std::string> SourcePath(const std::string& path) {
  if (!CanNameFile(SplitPath(path, PathStyle::kWindows).name)) return std::nullopt;
  const std::optional<std::wstring> existing = ExistingPath(path);
  return existing ? std::optional<std::string>(PlainWindowsPath(FromWide(*existing))) : std::nullopt;
}

class WindowsFileChanges final : public FileChanges {
 public:
  FileOutcome Rename(const std::string& from, const std::string& to) override {
    const std::optional<std::string> source = SourcePath(from);
    const std::optional<std::string> target = from == to ? source : NewPath(to);
    if (!source || !target) return InvalidNameError();
    return from == to ? LookAt(*source) : RenameSystem(*source, *target);
  }

  MoveOutcome Move(const std::string& from, const std::string& to, Progress* progress) override {
    const FileOutcome failed = Rename(from, to);
    if (!failed) return NotKept();
    if (failed->number != file_error::kOwn + ERROR_NOT_SAME_DEVICE) return *failed;
    WindowsCopySteps steps(progress);
    return MoveByCopying(steps, SourcePath(from).value_or(from), NewPath(to).value_or(to), PathStyle::kWindows);
  }

  void RemoveLeftovers(const std::string& folder) override {
    if (!folder.empty()) RemoveMarkedLeftovers(folder.ends_with('\\') ? folder : folder + '\\');
  }

  FileOutcome Remove(const std::string& path) override {
    const std::optional<std::string> source = SourcePath(path);
    return source ? RemoveAt(*source) : InvalidNameError();
  }

  int Recycle(const std::string& path, std::uintptr_t ownerWindow) override {
    return MoveToRecycleBin(path, ownerWindow);
  }

 private:
  static FileOutcome RenameSystem(const std::string& source, const std::string& target) {
    WindowsEntries entries;
    return RenameEntry(entries, source, target, PathStyle::kWindows);
  }
};

}  // namespace

std::unique_ptr<FileChanges> MakeFileChanges() {
  return std::make_unique<WindowsFileChanges>();
}

}  // namespace quillon
