#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

#include <string>
#include <string_view>
#include <vector>

/// Converts texts between logic (UTF-8) and windows (wxString).
namespace quillon {

/// Bytes that are not valid UTF-8 are shown as U+FFFD.
[[nodiscard]] wxString ToWx(std::string_view text);
[[nodiscard]] std::string FromWx(const wxString& text);

/// Paths from a dialog or a drop: on Linux the exact bytes of the names.
[[nodiscard]] std::string PathFromWx(const wxString& path);
[[nodiscard]] std::vector<std::string> PathsFromWx(const wxArrayString& paths);

}  // namespace quillon
