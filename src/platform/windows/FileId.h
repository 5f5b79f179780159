#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace quillon {

using Status = BY_HANDLE_FILE_INFORMATION;

/// Tells files apart, whatever their names.
struct FileId {
  DWORD volume = 0;
  std::uint64_t index = 0;

  bool operator==(const FileId&) const = default;
};

[[nodiscard]] inline FileId IdOf(const Status& status) {
  return {status.dwVolumeSerialNumber, std::uint64_t{status.nFileIndexHigh} << 32u | status.nFileIndexLow};
}

[[nodiscard]] inline std::uint64_t SizeOf(const Status& status) {
  return std::uint64_t{status.nFileSizeHigh} << 32u | status.nFileSizeLow;
}

/// The status of the file or link at this path, as system calls take it; nullopt with the last error set when it cannot
/// be told.
[[nodiscard]] std::optional<Status> StatusAt(const std::wstring& path);

/// Deletes the file or link at this path, read-only ones too, if `wanted` accepts its status; it is looked at and
/// deleted by one handle that keeps writers out. False with the last error set when it stays:
/// ERROR_BUSY for one that is not wanted.
[[nodiscard]] bool DeleteIf(const std::wstring& path, const std::function<bool(const Status&)>& wanted);

/// Deletes what stands at this path if it is this very file. False with the last error set when that fails.
[[nodiscard]] bool DeleteOwn(const std::wstring& path, const FileId& file);

}  // namespace quillon
