#pragma once

#include <string>
#include <string_view>

#include "platform/Collation.h"

namespace quillon::test {

/// Sorts texts by their bytes: the same order on every system.
class ByteOrder final : public Collation {
 public:
  [[nodiscard]] std::string KeyOf(std::string_view text) const override { return std::string(text); }
};

}  // namespace quillon::test
