#pragma once

/// How paths are written. Helpers take the style so that both can be tested everywhere.
namespace quillon {

enum class PathStyle {
  kWindows,  ///< "\" and ":" end the folder part
  kLinux,    ///< "/" ends the folder part
};

/// The running system's own.
[[nodiscard]] PathStyle SystemPathStyle();

}  // namespace quillon
