#include "platform/windows/SystemPath.h"

#include <windows.h>

#include <algorithm>
#include <string_view>

#include "platform/EntryPath.h"
#include "platform/WindowsPath.h"
#include "platform/windows/Wide.h"

namespace quillon {
namespace {

// Resolves a path that depends on a current folder.
std::wstring FullFolder(const std::wstring& folder) {
  const DWORD needed = ::GetFullPathNameW(folder.c_str(), 0, nullptr, nullptr);
  std::wstring full(needed, L'\0');
  full.resize(::GetFullPathNameW(folder.c_str(), needed, full.data(), nullptr));
  return full;
}

// Only the folder part is resolved by the system, because it would drop dots and blanks from the last name.
std::optional<std::string> FromCurrentFolder(const std::string& path) {
  const bool isDots = path == "." || path == ".." || path.ends_with("\\..") || path.ends_with("/..");
  const bool isDriveOnly = path.size() == 2 && path[1] == ':';
  EntryPath split = SplitPath(path, PathStyle::kWindows);
  if (isDots || isDriveOnly) split = {path, {}};
  if (split.folder.empty() && split.name.size() > 2 && split.name[1] == ':') {
    split = {split.name.substr(0, 2), split.name.substr(2)};
  }
  const std::optional<std::wstring> folder = ToWide(split.folder.empty() ? "." : split.folder);
  if (!folder) return std::nullopt;
  std::string full = FromWide(FullFolder(*folder));
  if (split.name.empty()) return full;
  if (!full.ends_with('\\')) full += '\\';
  return full + std::string(split.name);
}

// No Windows file system supports longer names, but not every layer above one reports an error.
bool HasValidNameLengths(std::wstring_view path) {
  constexpr std::size_t kLongestName = 255;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find(L'\\'), path.size());
    if (end > kLongestName) return false;
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return true;
}

}  // namespace

std::optional<std::string> TidySystemPath(const std::string& path) {
  if (path.empty() || path.find('\0') != std::string::npos || !ToWide(path)) return std::nullopt;
  if (IsFullWindowsPath(path)) return TidyWindowsPath(path);
  const std::optional<std::string> full = FromCurrentFolder(path);
  return full ? std::optional<std::string>(TidyWindowsPath(*full)) : std::nullopt;
}

std::optional<std::wstring> SystemPath(const std::string& path) {
  const std::optional<std::string> tidy = TidySystemPath(path);
  std::optional<std::wstring> literal = tidy ? ToWide(LiteralWindowsPath(*tidy)) : std::nullopt;
  if (literal && !HasValidNameLengths(*literal)) literal.reset();
  return literal;
}

std::optional<std::wstring> ExistingPath(const std::string& path) {
  std::optional<std::wstring> literal = SystemPath(path);
  const EntryPath split = SplitPath(path, PathStyle::kWindows);
  const std::string_view held = StoredWindowsName(split.name);
  if (!literal || held.empty() || held.size() == split.name.size()) return literal;
  if (::GetFileAttributesW(literal->c_str()) != INVALID_FILE_ATTRIBUTES) return literal;
  return SystemPath(std::string(split.folder) + std::string(held));
}

}  // namespace quillon
