#include "filelist/FileItem.h"

#include <array>

#include "base/Text.h"
#include "paths/basFileControl.h"

namespace quillon {

const char* ColumnCaption(Column column) {
  static constexpr std::array<const char*, kColumnCount> kCaptions = {"リネーム名", "タイトル", "著作権/アーティスト",
                                                                      "種類",       "サイズ",   "場所"};
  return kCaptions.at(static_cast<std::size_t>(column));
}

std::string ColumnText(const FileItem& item, Column column) {
  switch (column) {
    case Column::kRenameName: return item.renameName;
    case Column::kTitle: return item.title;
    case Column::kArtist: return item.artist;
    case Column::kType: return item.type.Text();
    case Column::kSize: return FormatThousands(item.size);
    case Column::kLocation: return item.location;
  }
  return {};
}

bool IsPendingName(const FileItem& item, PathStyle style) {
  const std::string_view present = BaseName(item.location, style);
  if (item.renameName == present) return false;
  const std::string_view name = TrimRight(item.renameName);
  return name.empty() || (name != present && name != NameWithoutExtension(item.location, style));
}

bool HasNoTitle(const FileItem& item) {
  const std::string_view title = Trim(item.title);
  return title.empty() || title == "---";
}

}  // namespace quillon
