#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace quillon {

using Status = BY_HANDLE_FILE_INFORMATION;

/// Identifies a file independently of its names.
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

/// The status of the file or link at this path, which is in the form for system calls; nullopt with the last error set
/// on failure.
[[nodiscard]] std::optional<Status> StatusAt(const std::wstring& path);

/// Deletes the file or link at this path, read-only ones too, if `wanted` accepts its status; its status is read and it
/// is deleted through one handle that keeps writers out. Returns false with the last error set when it is not deleted:
/// ERROR_BUSY when `wanted` rejects it.
[[nodiscard]] bool DeleteIf(const std::wstring& path, const std::function<bool(const Status&)>& wanted);

/// Deletes the entry at this path if it is this file. Returns false with the last error set when that fails.
[[nodiscard]] bool DeleteOwn(const std::wstring& path, const FileId& file);

}  // namespace quillon
