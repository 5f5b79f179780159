#pragma once

namespace quillon::test {

/// Connects this process to the window system. False when there is none.
[[nodiscard]] bool ConnectToDisplay();

}  // namespace quillon::test
