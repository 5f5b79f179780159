#include "platform/Worker.h"

#include <system_error>
#include <utility>

namespace quillon {

std::optional<std::thread> StartWorker(std::function<void()> work) try {
  return std::thread(std::move(work));
} catch (const std::system_error&) {
  return std::nullopt;
}

}  // namespace quillon
