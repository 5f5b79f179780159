#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quillon::test {

/// One system call as strace writes it down.
struct TracedCall {
  std::string name;    ///< "fsync"
  std::string line;    ///< "fsync(3) = 0"
  int result = 0;      ///< what it returned; -1 for a failure
  int occurrence = 0;  ///< 1 for the program's first call of this name

  /// True for a call whose first argument is this file descriptor.
  [[nodiscard]] bool IsOn(int descriptor) const;
  [[nodiscard]] bool Has(const std::string& text) const { return line.find(text) != std::string::npos; }
};

struct Trace {
  int exitCode = 0;
  std::vector<TracedCall> calls;  ///< those about files, in their order
};

/// False where programs may not be watched (some containers) or strace is missing.
[[nodiscard]] bool CanTrace();

/// Runs a program under strace. `fault` makes one call fail, in strace's words ("fsync:error=EIO:when=1"); empty for
/// none. A program that does not end is stopped after a while; its exit code is 124 then.
[[nodiscard]] Trace RunTraced(const std::vector<std::string>& words, const std::string& fault = {});

/// The fault that lets this very call fail, when the same program runs again: `how` is "error=EIO" or "retval=0".
[[nodiscard]] std::string FaultOf(const TracedCall& call, const std::string& how);

}  // namespace quillon::test
