#include "tags/TagStream.h"

#include <algorithm>
#include <array>
#include <limits>
#include <new>
#include <string_view>

namespace quillon {
namespace {

constexpr std::size_t kSmallRead = 1024;  // what TagLib searches with
constexpr std::size_t kAtomHeader = 8;
constexpr std::size_t kApeFooter = 32;

// On Windows TagLib counts with 32 bits: what lies behind 2 GiB is not read there.
long KnownLength(std::uint64_t size) {
  return static_cast<long>(std::min<std::uint64_t>(size, std::numeric_limits<long>::max()));
}

bool IsContainer(std::string_view name) {
  static constexpr std::array<std::string_view, 11> kNames = {"moov", "udta", "mdia", "meta", "ilst", "stbl",
                                                              "minf", "moof", "traf", "trak", "stsd"};
  return std::find(kNames.begin(), kNames.end(), name) != kNames.end();
}

/// TagLib keeps every item of a tag, and a tag may hold millions.
void LimitItems(TagLib::ByteVector& footer) {
  constexpr unsigned kPlace = 16;
  const std::uint32_t count = std::min(footer.toUInt(kPlace, false), TagStream::kMostItems);
  const TagLib::ByteVector bytes = TagLib::ByteVector::fromUInt(count, false);
  std::copy(bytes.begin(), bytes.end(), footer.begin() + kPlace);
}

}  // namespace

TagStream::TagStream(ByteSource& file) : file_(file), blocks_(file), length_(KnownLength(file.Size())) {}

// What a file object of TagLib has allocated is lost when its constructor throws: lack of memory ends the file instead.
TagLib::ByteVector TagStream::readBlock(unsigned long length) try {
  if (readsLeft_ == 0) return {};
  --readsLeft_;
  if (position_ >= length_) return {};
  const auto from = static_cast<std::uint64_t>(position_);
  const std::uint64_t wanted = std::min<std::uint64_t>(length, static_cast<std::uint64_t>(length_ - position_));
  TagLib::ByteVector bytes = wanted <= kSmallRead ? ReadSmall(from, wanted) : ReadLarge(from, wanted);
  if (limitsAtoms_ && length == kAtomHeader && bytes.size() == kAtomHeader) EnterAtom(position_, bytes);
  position_ += static_cast<long>(bytes.size());
  return bytes;
} catch (const std::bad_alloc&) {
  readsLeft_ = 0;
  return {};
}

TagLib::ByteVector TagStream::ReadSmall(std::uint64_t from, std::uint64_t wanted) {
  const std::string_view view = blocks_.View(from, std::min(wanted, smallBytesLeft_));
  smallBytesLeft_ -= view.size();
  TagLib::ByteVector bytes(view.data(), static_cast<unsigned>(view.size()));
  if (view.size() == kApeFooter && view.starts_with("APETAGEX")) LimitItems(bytes);
  return bytes;
}

TagLib::ByteVector TagStream::ReadLarge(std::uint64_t from, std::uint64_t wanted) {
  const auto count = static_cast<unsigned>(std::min({wanted, kLongestRead, bytesLeft_}));
  TagLib::ByteVector bytes(count, '\0');
  bytes.resize(static_cast<unsigned>(file_.ReadAt(from, bytes.data(), count)));
  bytesLeft_ -= bytes.size();
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
