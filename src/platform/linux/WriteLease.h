#pragma once

namespace quillon {

/// Keeps writers out of a file for as long as it lives, where the file's volume can do so: whoever opens the file for
/// writing waits until then (the system loses patience after some 45 seconds).
class WriteLease {
 public:
  /// `file` is open for reading only.
  explicit WriteLease(int file);
  WriteLease(const WriteLease&) = delete;
  WriteLease& operator=(const WriteLease&) = delete;
  ~WriteLease();

  /// True when somebody has the file open for writing, or has it mapped so. Not known on volumes of other machines, and
  /// for files of other users.
  [[nodiscard]] bool Refused() const { return refused_; }

 private:
  int file_;
  bool held_ = false;
  bool refused_ = false;
};

}  // namespace quillon
