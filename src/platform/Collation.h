#pragma once

#include <string>
#include <string_view>

namespace quillon {

/// A sort order for texts shown to people.
class Collation {
 public:
  virtual ~Collation() = default;

  /// Returns the text's sort key; texts are ordered by comparing their keys byte by byte. Texts that are equal in this
  /// order have equal keys. Any bytes are accepted.
  [[nodiscard]] virtual std::string KeyOf(std::string_view text) const = 0;
};

}  // namespace quillon
