#pragma once

#include <string>

#include "support/Process.h"

namespace quillon::test {

/// With this option the test program acts as another instance, see RunOtherInstance.
inline constexpr const char* kOtherInstanceOption = "--other-instance";

/// The output of the other instance, which asks the first instance to come to the front unless it is the first itself,
/// and ends.
inline constexpr const char* kFirst = "first";
inline constexpr const char* kLater = "later";

[[nodiscard]] ProcessResult RunOtherInstance(const std::string& title, const std::string& windowClass);

}  // namespace quillon::test
