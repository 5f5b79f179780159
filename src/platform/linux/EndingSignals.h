#pragma once

#include <vector>

namespace quillon {

/// The signals by which the system asks a program to end: SIGTERM, and SIGHUP unless it was ignored when the program
/// started (nohup). Call it before either is caught.
[[nodiscard]] std::vector<int> EndingSignals();

}  // namespace quillon
