#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "base/ByteSource.h"

namespace quillon {

/// GetFileAttributesW, or what a test has instead of it.
using AttributesOf = DWORD(WINAPI*)(const wchar_t* path);

/// As OpenSystemFile, but a file whose contents would be fetched from elsewhere is not opened, nor a link to one. When
/// the system has refused to open the file, its error is the thread's last one; otherwise that is 0.
[[nodiscard]] std::unique_ptr<ByteSource> OpenLocalFile(const std::string& path,
                                                        AttributesOf attributesOf = &::GetFileAttributesW);

}  // namespace quillon
