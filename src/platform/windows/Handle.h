#pragma once

#include <windows.h>

#include <utility>

namespace quillon {

/// An open file handle, closed with the object.
class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle) {}
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  Handle& operator=(Handle&&) = delete;
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() { Close(); }

  // CreateFile's failure value is all bits set; comparing it as a number avoids the macro's old-style cast.
  [[nodiscard]] bool Open() const { return handle_ != nullptr && reinterpret_cast<LONG_PTR>(handle_) != -1; }
  [[nodiscard]] HANDLE Get() const { return handle_; }

  void Close() {
    if (Open()) ::CloseHandle(handle_);
    handle_ = nullptr;
  }

 private:
  HANDLE handle_;
};

}  // namespace quillon
