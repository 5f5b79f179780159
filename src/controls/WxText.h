#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

#include <string>
#include <string_view>
#include <vector>

/// Where texts pass between logic (UTF-8) and windows.
namespace quillon {

/// Bytes that are not valid UTF-8 are shown as U+FFFD.
[[nodiscard]] wxString ToWx(std::string_view text);
[[nodiscard]] std::string FromWx(const wxString& text);

/// Paths that a dialog or a drop gives: on Linux the very bytes of the names.
[[nodiscard]] std::string PathFromWx(const wxString& path);
[[nodiscard]] std::vector<std::string> PathsFromWx(const wxArrayString& paths);

}  // namespace quillon
