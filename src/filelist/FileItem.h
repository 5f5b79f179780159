#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "media/MediaType.h"
#include "platform/PathStyle.h"

namespace quillon {

/// A registered file, from which a row of the file list is made. Texts are UTF-8; the location is a full path (see
/// FileSystem.h).
struct FileItem {
  std::string renameName;  ///< the new base name, never with the extension
  std::string title;       ///< "---" where the type has none
  std::string artist;      ///< copyright or artist; "---" where the type has none
  FileType type;           ///< see GetMediaType
  std::string location;    ///< the row's identity
  std::uint64_t size = 0;  ///< bytes
  bool checked = false;
  bool selected = false;
};

/// A row as the file list stores it. It refers to the list's memory: a change of the list ends it.
struct FileRow {
  std::string_view renameName;
  std::string_view title;
  std::string_view artist;
  std::string_view folder;  ///< of the location, with the separator
  std::string_view name;    ///< the file's name in it
  const FileType& type;
  std::uint64_t size = 0;
  std::uint32_t iconNumber = 0;  ///< of the small icon, see FileList::IconKey
  bool checked = false;
  bool selected = false;
  bool pending = false;  ///< applying would rename the file

  [[nodiscard]] std::string Location() const;
  /// The file's name up to its last "."; empty for a name without a dot.
  [[nodiscard]] std::string_view BaseName() const;
  /// The same, but for a name without a dot the whole name.
  [[nodiscard]] std::string_view NameWithoutExtension() const;
  [[nodiscard]] FileItem Item() const;
};

/// The item as a row. It refers to the item.
[[nodiscard]] FileRow RowOf(const FileItem& item, PathStyle style = SystemPathStyle());

/// The columns in the order in which the list shows them.
enum class Column { kRenameName, kTitle, kArtist, kType, kSize, kLocation };
inline constexpr int kColumnCount = 6;

/// The header's caption.
[[nodiscard]] const char* ColumnCaption(Column column);

/// The cell's text as the list shows it.
[[nodiscard]] std::string ColumnText(const FileRow& row, Column column);

/// True when the rename name is another one than the file's own name. Blanks at its end make no difference, because
/// applying drops them; a file without extension is named by its whole name, too.
[[nodiscard]] bool IsPendingName(std::string_view renameName, std::string_view fileName);

/// True when the title is "" or "---", ignoring blanks around it.
[[nodiscard]] bool HasNoTitle(std::string_view title);

}  // namespace quillon
