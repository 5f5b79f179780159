#include "tags/TagFrames.h"

#include <algorithm>
#include <array>

#include "media/TextLimit.h"

namespace quillon {
namespace {

bool IsWanted(const TagLib::ByteVector& id) {
  static constexpr std::array<const char*, 6> kIds = {"TIT2", "TPE1", "TALB", "TRCK", "TCON", "TDRC"};
  return std::any_of(kIds.begin(), kIds.end(), [&id](const char* known) { return id == known; });
}

}  // namespace

// False makes an unknown frame.
bool TagFrames::updateFrame(FrameNames::FrameHeader* header) const {
  if (framesLeft_ == 0) {
    header->setFrameSize(0);  // ends the tag
    return false;
  }
  --framesLeft_;
  const bool known = FrameFactory::updateFrame(header);
  if (known && !header->compression() && header->frameSize() <= kLongestText && textsLeft_ > 0 &&
      IsWanted(header->frameID())) {
    --textsLeft_;
    return true;
  }
  if (header->compression()) {
    // Unknown frames are decompressed, too. The same size again, in a header without flags.
    const unsigned size = header->frameSize();
    header->setData(TagLib::ByteVector("XXXX\0\0\0\0\0\0", 10), 3U);
    header->setFrameSize(size);
  }
  return false;
}

}  // namespace quillon
