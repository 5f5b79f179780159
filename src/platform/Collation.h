#pragma once

#include <string>
#include <string_view>

namespace quillon {

/// An order of texts for people.
class Collation {
 public:
  virtual ~Collation() = default;

  /// Texts stand in the order of their keys, compared byte by byte. Texts that the order takes for the same have equal
  /// keys. Any bytes have a key.
  [[nodiscard]] virtual std::string KeyOf(std::string_view text) const = 0;
};

}  // namespace quillon
