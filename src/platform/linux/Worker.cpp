#include "platform/Worker.h"

#include <csignal>
#include <exception>
#include <utility>

namespace quillon {

std::optional<std::thread> StartWorker(std::function<void()> work) {
  // The new thread inherits the mask.
  sigset_t all;
  sigset_t before;
  sigfillset(&all);
  if (pthread_sigmask(SIG_SETMASK, &all, &before) != 0) return std::nullopt;
  std::optional<std::thread> worker;
  try {
    worker.emplace(std::move(work));
  } catch (const std::exception&) {  // no thread, or no memory for one
    worker.reset();
  }
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  return worker;
}

}  // namespace quillon
