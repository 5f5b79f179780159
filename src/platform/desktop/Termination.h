#pragma once

#include <functional>
#include <memory>

namespace quillon {

/// As long as it lives, what the system sends to have the program end calls `end` instead, from the message loop, and
/// again several times a second while the program goes on; menus and the toolkit's own dialogs that are open are
/// cancelled before. Linux: SIGTERM, and SIGHUP unless it is ignored. Windows: nothing, where windows are told by
/// messages of their own.
class Termination {
 public:
  virtual ~Termination() = default;
};

[[nodiscard]] std::unique_ptr<Termination> CatchTermination(std::function<void()> end);

}  // namespace quillon
