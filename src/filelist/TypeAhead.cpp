#include "filelist/TypeAhead.h"

#include <algorithm>

#include "base/FoldedText.h"

namespace quillon {

int TypeAhead::Type(const FileList& list, std::string_view character, int current, Clock::time_point now) {
  const std::string folded = Folded(character);
  if (IsGoingOn(now)) {
    repeats_ = repeats_ && folded == first_;
    typed_ += folded;
  } else {
    typed_ = first_ = folded;
    repeats_ = true;
  }
  last_ = now;
  const std::string& wanted = repeats_ ? first_ : typed_;
  const int before = repeats_ ? current : current - 1;  // a longer text may still fit the row that it has led to
  std::string name;
  for (int step = 0; step < list.Count(); ++step) {
    const int index = (std::max(before, 0) + step) % list.Count() + 1;
    name.clear();
    AppendFolded(name, list.Row(index).renameName);
    if (name.starts_with(wanted)) return index;
  }
  return 0;
}

}  // namespace quillon
