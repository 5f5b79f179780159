#include "tags/TagStream.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

namespace quillon {
namespace {

constexpr std::size_t kSmallRead = 1024;  // what TagLib searches with
constexpr std::size_t kAtomHeader = 8;

// On Windows TagLib counts with 32 bits: what lies behind 2 GiB is not read there.
long KnownLength(std::uint64_t size) {
  return static_cast<long>(std::min<std::uint64_t>(size, std::numeric_limits<long>::max()));
}

bool IsContainer(std::string_view name) {
  static constexpr std::array<std::string_view, 11> kNames = {"moov", "udta", "mdia", "meta", "ilst", "stbl",
                                                              "minf", "moof", "traf", "trak", "stsd"};
  return std::find(kNames.begin(), kNames.end(), name) != kNames.end();
}

}  // namespace

TagStream::TagStream(ByteSource& file) : file_(file), blocks_(file), length_(KnownLength(file.Size())) {}

TagLib::ByteVector TagStream::readBlock(unsigned long length) {
  if (readsLeft_ == 0 || position_ >= length_) return {};
  --readsLeft_;
  const std::uint64_t there = static_cast<std::uint64_t>(length_ - position_);
  const auto wanted = static_cast<unsigned>(std::min({std::uint64_t{length}, there, kLongestRead, bytesLeft_}));
  const auto from = static_cast<std::uint64_t>(position_);
  TagLib::ByteVector bytes;
  if (wanted <= kSmallRead) {
    const std::string_view view = blocks_.View(from, wanted);
    bytes = TagLib::ByteVector(view.data(), static_cast<unsigned>(view.size()));
  } else {
    bytes = TagLib::ByteVector(wanted, '\0');
    bytes.resize(static_cast<unsigned>(file_.ReadAt(from, bytes.data(), wanted)));
  }
  bytesLeft_ -= bytes.size();
  if (limitsAtoms_ && length == kAtomHeader && bytes.size() == kAtomHeader) EnterAtom(position_, bytes);
  position_ += static_cast<long>(bytes.size());
  return bytes;
}

// As with a file of the system, a place in front of the file leaves the position as it is.
void TagStream::seek(long offset, Position from) {
  const long base = from == Beginning ? 0 : from == Current ? position_ : length_;
  if (offset > std::numeric_limits<long>::max() - base || offset < -base) return;
  position_ = base + offset;
}

// Atoms end where TagLib takes them to end, also behind the end of the atom around them.
void TagStream::EnterAtom(long start, const TagLib::ByteVector& header) {
  while (!containers_.empty() && containers_.back().end <= static_cast<std::uint64_t>(start)) containers_.pop_back();
  if (!IsContainer({header.data() + 4, 4}) || (!containers_.empty() && containers_.back().start == start)) return;
  const unsigned size = header.toUInt();
  const bool isOpen = size <= 1;  // to the end of the file, or with a size of 64 bits, which is not looked at
  containers_.push_back({start, isOpen ? std::numeric_limits<std::uint64_t>::max() : std::uint64_t(start) + size});
  if (containers_.size() > kDeepestAtom) readsLeft_ = 0;
}

}  // namespace quillon
