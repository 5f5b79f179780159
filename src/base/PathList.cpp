#include "base/PathList.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace quillon {
namespace {

constexpr std::size_t kBlockLength = std::size_t{64} << 10u;

std::string_view ViewOf(const std::vector<char>& bytes) {
  return {bytes.data(), bytes.size()};
}

void Append(std::vector<char>& block, const char* bytes, std::size_t count) {
  block.insert(block.end(), bytes, bytes + count);
}

}  // namespace

std::string PathList::File::Path() const {
  std::string path;
  PathInto(path);
  return path;
}

void PathList::File::PathInto(std::string& path) const {
  path.clear();
  path.reserve(folder.size() + name.size());
  path.append(folder).append(name);
}

void PathList::Add(std::string_view folder, std::string_view name) {
  if (runs_.empty() || ViewOf(runs_.back().folder) != folder) runs_.push_back({{folder.begin(), folder.end()}, size_});
  const std::size_t needed = sizeof(Length) + name.size();
  if (blocks_.empty() || blocks_.back().capacity() - blocks_.back().size() < needed) {
    // A block never grows, because views point into it. A short list costs little.
    const std::size_t usual = blocks_.empty() ? kBlockLength / 64 : kBlockLength;
    blocks_.emplace_back().reserve(std::max(usual, needed));
  }
  const auto length = static_cast<Length>(name.size());
  std::array<char, sizeof length> bytes;
  std::memcpy(bytes.data(), &length, sizeof length);
  Append(blocks_.back(), bytes.data(), sizeof length);
  Append(blocks_.back(), name.data(), name.size());
  runs_.back().end = ++size_;
}

PathList::File PathList::Iterator::operator*() const {
  const char* const at = list_->blocks_[block_].data() + offset_;
  Length length = 0;
  std::memcpy(&length, at, sizeof length);
  return {ViewOf(list_->runs_[run_].folder), {at + sizeof length, length}};
}

PathList::Iterator& PathList::Iterator::operator++() {
  offset_ += sizeof(Length) + (**this).name.size();
  if (offset_ == list_->blocks_[block_].size()) {
    ++block_;
    offset_ = 0;
  }
  if (++index_ == list_->runs_[run_].end) ++run_;
  return *this;
}

}  // namespace quillon
