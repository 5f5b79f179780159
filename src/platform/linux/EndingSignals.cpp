#include "platform/linux/EndingSignals.h"

#include <csignal>

namespace quillon {

std::vector<int> EndingSignals() {
  struct sigaction hangUp = {};
  ::sigaction(SIGHUP, nullptr, &hangUp);
  if (hangUp.sa_handler == SIG_IGN) return {SIGTERM};
  return {SIGTERM, SIGHUP};
}

}  // namespace quillon
