#pragma once

/// The syntax of paths. Helpers take the style as a parameter so that both can be tested on every system.
namespace quillon {

enum class PathStyle {
  kWindows,  ///< "\" and ":" end the folder part
  kLinux,    ///< "/" ends the folder part
};

/// The style of the running system.
[[nodiscard]] PathStyle SystemPathStyle();

}  // namespace quillon
