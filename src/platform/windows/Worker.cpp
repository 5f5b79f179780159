#include "platform/Worker.h"

#include <exception>
#include <utility>

namespace quillon {

std::optional<std::thread> StartWorker(std::function<void()> work) try {
  return std::thread(std::move(work));
} catch (const std::exception&) {
  return std::nullopt;
}

}  // namespace quillon
