#pragma once

#include <string>
#include <string_view>

namespace quillon::cli {

/// Standard output, collected and written in large pieces; the destructor writes the rest. Once the other end is
/// closed, all further output is dropped silently; any other failure is reported once, on standard error.
class Output {
 public:
  Output() = default;
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;
  ~Output() { Flush(); }

  void Line(std::string_view text);

  /// Writes the rest. Returns false when something could not be written, now or before.
  bool Flush();

  /// True when nothing can be written any more.
  [[nodiscard]] bool Closed() const { return closed_; }

 private:
  std::string buffer_;
  bool closed_ = false;
};

/// Writes one line to standard error.
void Complain(std::string_view text);

}  // namespace quillon::cli
