#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

/// The paths of many files, in the order in which they were added. A folder's path is stored once for all files added
/// one after another, the names stand together in few blocks of memory. Views of a list stay valid while it exists and
/// when it is moved.
class PathList {
 public:
  /// One file; its path is the folder, which ends in a separator, followed by the name.
  struct File {
    std::string_view folder;
    std::string_view name;

    [[nodiscard]] std::string Path() const;
    /// The same in a string that the caller uses again and again.
    void PathInto(std::string& path) const;
    /// True for files that were added with the same folder one after another: quicker than comparing the paths.
    [[nodiscard]] bool SharesFolderWith(const File& other) const { return folder.data() == other.folder.data(); }
  };

  /// Goes through the list once, and can be copied to return to a place.
  class Iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = File;
    using difference_type = std::ptrdiff_t;
    using pointer = const File*;
    using reference = File;

    Iterator() = default;
    File operator*() const;
    Iterator& operator++();
    bool operator==(const Iterator& other) const { return index_ == other.index_; }

   private:
    friend class PathList;
    Iterator(const PathList& list, std::size_t index) : list_(&list), index_(index) {}

    const PathList* list_ = nullptr;
    std::size_t index_ = 0;
    std::size_t run_ = 0;
    std::size_t block_ = 0;
    std::size_t offset_ = 0;  // in the block
  };

  void Add(std::string_view folder, std::string_view name);

  [[nodiscard]] std::size_t size() const { return size_; }
  [[nodiscard]] bool empty() const { return size_ == 0; }
  [[nodiscard]] Iterator begin() const { return Iterator(*this, 0); }
  [[nodiscard]] Iterator end() const { return Iterator(*this, size_); }

 private:
  struct Run {
    std::vector<char> folder;  // not a string, whose short texts would move with it
    std::size_t end = 0;       // the index of the first file that is not in the folder
  };
  using Length = std::uint32_t;

  std::vector<Run> runs_;
  std::vector<std::vector<char>> blocks_;  // for each name its length, then its bytes
  std::size_t size_ = 0;
};

}  // namespace quillon
