#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quillon::test {

/// One system call from strace's log.
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
  std::vector<TracedCall> calls;  ///< the calls about files, in order
};

/// False where tracing is not permitted (some containers) or strace is missing.
[[nodiscard]] bool CanTrace();

/// Runs a program under strace. `fault` makes one call fail, in strace's syntax ("fsync:error=EIO:when=1"); empty for
/// none. A program that does not end is killed after a while, with exit code 124.
[[nodiscard]] Trace RunTraced(const std::vector<std::string>& words, const std::string& fault = {});

/// The fault that makes this call fail when the same program is run again; `how` is "error=EIO" or "retval=0".
[[nodiscard]] std::string FaultOf(const TracedCall& call, const std::string& how);

}  // namespace quillon::test
