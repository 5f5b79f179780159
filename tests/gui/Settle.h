#pragma once

#include <functional>

namespace quillon::test {

/// Processes events until the condition holds, for ten seconds at most. False when it never did.
bool SettleUntil(const std::function<bool()>& condition);

/// Waits for windows to appear, take the focus and paint, when there is no condition to wait for.
void Settle();

}  // namespace quillon::test
