#pragma once

#include <string>

#include "platform/AppendedFile.h"

namespace quillon::test {

/// A log in memory, with a full disk on demand.
class MemoryLog final : public AppendedFile {
 public:
  FileOutcome Append(std::string_view bytes) override {
    if (linesLeft == 0) return FileError{1028, "No space left on device"};
    --linesLeft;
    text += bytes;
    return std::nullopt;
  }

  std::string text;
  int linesLeft = 1'000'000;
};

}  // namespace quillon::test
