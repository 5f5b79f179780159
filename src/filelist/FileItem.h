#pragma once

#include <cstdint>
#include <string>

#include "media/MediaType.h"
#include "platform/PathStyle.h"

namespace quillon {

/// One row of the file list: one registered file. Texts are UTF-8; the location is a full path (see FileSystem.h).
struct FileItem {
  std::string renameName;        ///< the new base name, never with the extension
  std::string title;             ///< "---" where the type has none
  std::string artist;            ///< copyright or artist; "---" where the type has none
  FileType type;                 ///< see GetMediaType
  std::string location;          ///< the row's identity
  std::uint64_t size = 0;        ///< bytes
  std::uint32_t iconNumber = 0;  ///< of the small icon, see FileList::IconKey
  bool checked = false;
  bool selected = false;
  bool pending = false;  ///< applying would rename the file; FileList keeps it up to date
};

/// The columns in the order in which the list shows them.
enum class Column { kRenameName, kTitle, kArtist, kType, kSize, kLocation };
inline constexpr int kColumnCount = 6;

/// The header's caption.
[[nodiscard]] const char* ColumnCaption(Column column);

/// The cell's text as the list shows it.
[[nodiscard]] std::string ColumnText(const FileItem& item, Column column);

/// True when the rename name is another one than the file's own name. Blanks at its end make no difference, because
/// applying drops them; a file without extension is named by its whole name, too.
[[nodiscard]] bool IsPendingName(const FileItem& item, PathStyle style = SystemPathStyle());

/// True when the title is "" or "---", ignoring blanks around it.
[[nodiscard]] bool HasNoTitle(const FileItem& item);

}  // namespace quillon
