#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "filelist/FileList.h"

namespace quillon {

/// Leads to rows by what is typed in the list: to the next row whose rename name begins so, and from the end of the
/// list on from its top. Characters typed within a second of one another add up; one and the same character typed again
/// leads to the next row that begins with it. See base/FoldedText.h for what counts as equal.
class TypeAhead {
 public:
  using Clock = std::chrono::steady_clock;

  /// True while the next character would be added to those typed before.
  [[nodiscard]] bool IsGoingOn(Clock::time_point now) const { return !typed_.empty() && now - last_ < kPause; }

  /// The row to go to from row `current` (0 for none); 0 when no row begins so.
  [[nodiscard]] int Type(const FileList& list, std::string_view character, int current, Clock::time_point now);

 private:
  static constexpr std::chrono::seconds kPause{1};

  std::string typed_;     // folded
  std::string first_;     // the first character of `typed_`
  bool repeats_ = false;  // whether `typed_` is that character again and again
  Clock::time_point last_;
};

}  // namespace quillon
