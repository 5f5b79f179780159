#pragma once

#include <cstddef>
#include <string>

namespace quillon {

/// Receives the progress of a loop over many items, and can end the loop.
class Progress {
 public:
  virtual ~Progress() = default;

  /// Called before the first item and after each one; false ends the loop there. `done` of `total` items are finished;
  /// `item` is the path of the last one. `total` is 0 while it is unknown. A file's copy counts its bytes, and
  /// has no path.
  virtual bool Continue(std::size_t done, std::size_t total, const std::string& item) = 0;

  /// Called repeatedly during an item that may take long; false cancels the item and the loop.
  virtual bool Continue() = 0;
};

/// Progress of a loop that is not shown and cannot be cancelled.
class Unwatched final : public Progress {
 public:
  bool Continue(std::size_t /*done*/, std::size_t /*total*/, const std::string& /*item*/) override { return true; }
  bool Continue() override { return true; }
};

}  // namespace quillon
