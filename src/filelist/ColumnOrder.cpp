#include "filelist/ColumnOrder.h"

#include <array>
#include <functional>
#include <string>
#include <string_view>

#include "base/Text.h"
#include "filelist/KeySort.h"

namespace quillon {
namespace {

/// Makes the sort keys of texts. Making one costs more than everything else that sorting does with a row, so those of
/// texts that many rows have are made once.
class Keys {
 public:
  explicit Keys(const Collation& collation) : collation_(collation) {}

  KeySort& Sort() { return sort_; }

  void Add(std::string_view text) { sort_.Add(Made(text)); }

  /// The same for a text that lives as long as this object.
  void AddLasting(std::string_view text) {
    Known& known = known_[std::hash<std::string_view>()(text) % known_.size()];
    if (known.text != text || known.key.data() == nullptr) known = {text, Made(text)};
    sort_.Add(known.key);
  }

 private:
  struct Known {
    std::string_view text;
    std::string_view key;
  };

  [[nodiscard]] std::string_view Made(std::string_view text) { return sort_.Keep(collation_.KeyOf(ToLower(text))); }

  const Collation& collation_;
  KeySort sort_;
  std::array<Known, 1024> known_;
};

void AddKey(const FileRow& row, Column column, Keys& keys) {
  switch (column) {
    case Column::kRenameName: return keys.AddLasting(row.renameName);
    case Column::kTitle: return keys.AddLasting(row.title);
    case Column::kArtist: return keys.AddLasting(row.artist);
    case Column::kType: return keys.AddLasting(row.type.Text());
    case Column::kSize:
    case Column::kLocation: return keys.Add(ColumnText(row, column));
  }
}

}  // namespace

std::optional<std::vector<std::uint32_t>> PlacesInOrder(const RowStore& store, const std::vector<RowStore::Id>& rows,
                                                        Column column, bool falling, const Collation& collation,
                                                        Progress& progress) {
  constexpr std::size_t kAtOnce = 256;  // rows between two questions
  Keys keys(collation);
  keys.Sort().Reserve(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (i % kAtOnce == 0 && !progress.Continue()) return std::nullopt;
    AddKey(store.Row(rows[i]), column, keys);
  }
  return keys.Sort().Sorted(falling ? KeySort::Order::kFalling : KeySort::Order::kRising, progress);
}

}  // namespace quillon
