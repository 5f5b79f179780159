#pragma once

#include <cstddef>
#include <string>

namespace quillon {

/// Follows a loop over many items, and may end it.
class Progress {
 public:
  virtual ~Progress() = default;

  /// Called before the first item and after each one; false ends the loop there. `done` of `total` items are behind it,
  /// `item` is the path of the last one. `total` is 0 while it is not known.
  virtual bool Continue(std::size_t done, std::size_t total, const std::string& item) = 0;

  /// Called again and again within an item that may take long; false cancels it, and the loop with it.
  virtual bool Continue() = 0;
};

}  // namespace quillon
