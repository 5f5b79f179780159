#include "platform/PreparedFile.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <string_view>
#include <utility>

namespace quillon {

void PreparedFile::Prepare(FileOpener& opener, const PathList::File& file, const FileNeeds& needs) try {
  Release();
  if (needs.what == FileNeeds::What::kContents) {
    FileOpener::Opened opened = opener.Open(file);
    if (opened.lacksResources) return;
    file_ = std::move(opened.file);
    open_ = file_ != nullptr;
    if (open_) ReadParts(needs);
  }
  // A caller that gets no file asks what there is.
  if (needs.what != FileNeeds::What::kNothing && (!open_ || needs.statusToo)) status_ = opener.Status(file);
  prepared_ = true;
} catch (const std::exception&) {  // no memory
  Release();
}

void PreparedFile::Release() {
  prepared_ = open_ = hiddenOrSystem_ = false;
  size_ = 0;
  head_.length = tail_.length = 0;
  file_ = nullptr;
  status_.reset();
}

void PreparedFile::ReadParts(const FileNeeds& needs) {
  size_ = file_->Size();
  hiddenOrSystem_ = file_->IsHiddenOrSystem();
  head_.Read(*file_, 0, static_cast<std::size_t>(std::min<std::uint64_t>(needs.head, size_)));
  if (head_.length == size_) {
    file_ = nullptr;
    return;
  }
  const std::string_view start(head_.bytes.data(), head_.length);
  const bool needsTail = needs.tailUnless.empty() || !start.starts_with(needs.tailUnless);
  if (needsTail && needs.tail > 0 && size_ >= needs.tail) tail_.Read(*file_, size_ - needs.tail, needs.tail);
}

void PreparedFile::Part::Read(ByteSource& file, std::uint64_t from, std::size_t count) {
  if (bytes.size() < count) bytes.resize(count);
  offset = from;
  length = count > 0 ? file.ReadAt(from, bytes.data(), count) : 0;
}

std::size_t PreparedFile::ReadAt(std::uint64_t offset, char* into, std::size_t count) {
  if (!file_) {
    if (offset >= size_) return 0;
    count = static_cast<std::size_t>(std::min<std::uint64_t>(count, size_ - offset));
  }
  if (count == 0) return 0;
  if (const std::string_view held = InMemory(offset, count); !held.empty()) {
    std::memcpy(into, held.data(), count);
    return count;
  }
  return file_ ? file_->ReadAt(offset, into, count) : 0;
}

std::string_view PreparedFile::InMemory(std::uint64_t offset, std::size_t count) const {
  for (const Part* part : {&head_, &tail_}) {
    if (part->Holds(offset, count)) return {part->bytes.data() + (offset - part->offset), count};
  }
  return {};
}

}  // namespace quillon
