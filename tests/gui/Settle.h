#pragma once

#include <functional>

namespace quillon::test {

/// Processes events until the condition holds, for ten seconds at most. False when it never did.
bool SettleUntil(const std::function<bool()>& condition);

/// Lets windows appear, take the focus and paint, where no condition tells when they have.
void Settle();

}  // namespace quillon::test
