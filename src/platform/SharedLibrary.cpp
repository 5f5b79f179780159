#include "platform/SharedLibrary.h"

#include <utility>

namespace quillon {

SharedLibrary SharedLibrary::Find(const std::string& fileName) {
  const std::optional<std::string> folder = FindLibrary(fileName);
  return folder ? SharedLibrary(*folder + fileName) : SharedLibrary();
}

SharedLibrary::SharedLibrary(SharedLibrary&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}

SharedLibrary& SharedLibrary::operator=(SharedLibrary&& other) noexcept {
  std::swap(handle_, other.handle_);
  return *this;
}

}  // namespace quillon
