#pragma once

#include <ostream>
#include <string>

#include "platform/multimedia/CommandDevice.h"

namespace quillon {

/// Prints them in a failed test.
inline void PrintTo(const MediaStatus& status, std::ostream* out) {
  if (status.Ok()) {
    *out << "done";
  } else {
    *out << "error " << static_cast<int>(status.Failure());
  }
}

}  // namespace quillon

namespace quillon::test {

inline const MediaStatus kDone;

inline MediaStatus StatusOf(const CommandReply& reply) {
  return reply ? MediaStatus() : reply.Failure();
}

/// Empty for a command that failed.
inline std::string TextOf(const CommandReply& reply) {
  return reply ? *reply : std::string();
}

}  // namespace quillon::test
