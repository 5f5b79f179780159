#pragma once

#include <functional>
#include <memory>

namespace quillon {

/// While the object exists, the system's requests to end the program call `end` from the message loop, and call it
/// again several times a second while the program keeps running. Open menus and toolkit dialogs are cancelled first.
/// Linux: SIGTERM, and SIGHUP unless it is ignored. Windows: does nothing, because windows receive messages instead.
class Termination {
 public:
  virtual ~Termination() = default;
};

[[nodiscard]] std::unique_ptr<Termination> CatchTermination(std::function<void()> end);

}  // namespace quillon
