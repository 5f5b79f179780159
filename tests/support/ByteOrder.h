#pragma once

#include <string>
#include <string_view>

#include "platform/Collation.h"

namespace quillon::test {

/// Texts in the order of their bytes, the same everywhere.
class ByteOrder final : public Collation {
 public:
  [[nodiscard]] std::string KeyOf(std::string_view text) const override { return std::string(text); }
};

}  // namespace quillon::test
