#pragma once

#include <string>
#include <string_view>

namespace quillon {

/// The name, without extension, changed so that every system can hold it: control characters are left out, characters
/// that a file name may not hold become their full-width twins, dots and blanks at the end are cut, and an underscore
/// is put behind a name that Windows keeps for a device (CON, NUL, COM1 ...), which counts up to its first dot. Source:
/// "Naming Files, Paths, and Namespaces", Windows documentation.
[[nodiscard]] std::string PortableName(std::string_view name);

}  // namespace quillon
