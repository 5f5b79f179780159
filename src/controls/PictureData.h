#pragma once

#include <string_view>

namespace quillon {

/// The SVG text of resources/icons/<name>.svg, which CMake builds in; empty when there is no such file.
[[nodiscard]] std::string_view PictureData(std::string_view name);

}  // namespace quillon
