#pragma once

#include <functional>
#include <optional>
#include <thread>

namespace quillon {

/// Starts a thread that does this work beside the program's own thread. Signals stay with the other threads. Nothing
/// when the system has no thread to give.
[[nodiscard]] std::optional<std::thread> StartWorker(std::function<void()> work);

}  // namespace quillon
