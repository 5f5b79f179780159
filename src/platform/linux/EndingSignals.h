#pragma once

#include <vector>

namespace quillon {

/// The signals by which the system asks a program to end: SIGTERM, and SIGHUP unless whoever started the program had it
/// ignored (nohup). To be asked before either is caught.
[[nodiscard]] std::vector<int> EndingSignals();

}  // namespace quillon
