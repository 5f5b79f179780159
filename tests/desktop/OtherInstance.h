#pragma once

#include <string>

#include "support/Process.h"

namespace quillon::test {

/// This program can also be started to take the part of another instance, see RunOtherInstance.
inline constexpr const char* kOtherInstanceOption = "--other-instance";

/// What a process prints that starts, asks the first instance forward when it is not that itself, and ends.
inline constexpr const char* kFirst = "first";
inline constexpr const char* kLater = "later";

[[nodiscard]] ProcessResult RunOtherInstance(const std::string& title, const std::string& windowClass);

}  // namespace quillon::test
