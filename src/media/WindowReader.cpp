#include "media/WindowReader.h"

#include <algorithm>

namespace quillon {

bool WindowReader::Next() {
  if (failed_ || End() >= size_) return false;
  const std::size_t kept = std::min(overlap_, length_);
  std::copy(bytes_.data() + length_ - kept, bytes_.data() + length_, bytes_.data());
  offset_ += length_ - kept;
  const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(kLength - kept, size_ - offset_ - kept));
  const std::size_t got = file_.ReadAt(offset_ + kept, bytes_.data() + kept, wanted);
  length_ = kept + got;
  failed_ = got < wanted;
  return got > 0;
}

}  // namespace quillon
