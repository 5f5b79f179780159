#include "filelist/FileItem.h"

#include <array>

#include "base/Text.h"
#include "paths/basFileControl.h"

namespace quillon {
namespace {

bool HasDot(std::string_view name) {
  return name.find('.') != std::string_view::npos;
}

std::string_view UpToLastDot(std::string_view name) {
  return HasDot(name) ? name.substr(0, name.rfind('.')) : std::string_view();
}

}  // namespace

std::string FileRow::Location() const {
  std::string location;
  location.reserve(folder.size() + name.size());
  location += folder;
  location += name;
  return location;
}

std::string_view FileRow::BaseName() const {
  return UpToLastDot(name);
}

std::string_view FileRow::NameWithoutExtension() const {
  return HasDot(name) ? UpToLastDot(name) : name;
}

FileItem FileRow::Item() const {
  return {.renameName = std::string(renameName),
          .title = std::string(title),
          .artist = std::string(artist),
          .type = type,
          .location = Location(),
          .size = size,
          .checked = checked,
          .selected = selected};
}

FileRow RowOf(const FileItem& item, PathStyle style) {
  const std::string_view name = FileName(item.location, style);
  return {.renameName = item.renameName,
          .title = item.title,
          .artist = item.artist,
          .folder = FolderPart(item.location, style),
          .name = name,
          .type = item.type,
          .size = item.size,
          .checked = item.checked,
          .selected = item.selected,
          .pending = IsPendingName(item.renameName, name)};
}

const char* ColumnCaption(Column column) {
  static constexpr std::array<const char*, kColumnCount> kCaptions = {"リネーム名", "タイトル", "著作権/アーティスト",
                                                                      "種類",       "サイズ",   "場所"};
  return kCaptions.at(static_cast<std::size_t>(column));
}

std::string ColumnText(const FileRow& row, Column column) {
  switch (column) {
    case Column::kRenameName: return std::string(row.renameName);
    case Column::kTitle: return std::string(row.title);
    case Column::kArtist: return std::string(row.artist);
    case Column::kType: return row.type.Text();
    case Column::kSize: return FormatThousands(row.size);
    case Column::kLocation: return row.Location();
  }
  return {};
}

bool IsPendingName(std::string_view renameName, std::string_view fileName) {
  const std::string_view present = UpToLastDot(fileName);
  if (renameName == present) return false;
  const std::string_view name = TrimRight(renameName);
  return name.empty() || (name != present && (HasDot(fileName) || name != fileName));
}

bool HasNoTitle(std::string_view title) {
  const std::string_view text = Trim(title);
  return text.empty() || text == "---";
}

}  // namespace quillon
