#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/PathStyle.h"

namespace quillon {

struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
};

/// The folders of a list's rows, each stored once, with the number of its rows. A folder is known by a number while
/// there are rows in it.
class FolderTable {
 public:
  using Id = std::uint32_t;

  explicit FolderTable(PathStyle style) : style_(style) {}

  /// Counts one more row in this folder.
  Id Enter(std::string_view folder);
  /// Counts one row less.
  void Leave(Id folder) noexcept;
  void Clear() noexcept;

  [[nodiscard]] std::string_view Text(Id folder) const { return *entries_[folder].text; }
  /// The same for spellings that the file system treats as the same folder.
  [[nodiscard]] Id Identity(Id folder) const { return entries_[folder].identity; }
  /// The identity of this folder; nullptr when no row is in it.
  [[nodiscard]] const Id* Find(std::string_view folder) const;

 private:
  struct Entry {
    const std::string* text = nullptr;  ///< the key in ids_
    Id identity = 0;                    ///< the entry whose text is this one's path identity, often itself
    std::uint32_t uses = 0;  ///< rows, and other entries with this identity; 0: `identity` is the next unused
  };

  static constexpr Id kNone = ~Id{0};

  using Ids = std::unordered_map<std::string, Id, TextHash, std::equal_to<>>;

  Id EnterEntry(std::string_view text);
  [[nodiscard]] const Id* FindEntry(std::string_view text) const;

  PathStyle style_;
  std::vector<Entry> entries_;
  Id firstUnused_ = kNone;
  Ids ids_;
  mutable const Ids::value_type* last_ = nullptr;  ///< found last: files of one folder mostly come together
};

}  // namespace quillon
