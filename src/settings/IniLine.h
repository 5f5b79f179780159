#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The single lines of an INI file, as bytes. Everything here holds for code page 932 as well as for UTF-8: none of the
/// bytes looked for is the second byte of a character where it counts.
namespace quillon {

struct IniEntry {
  std::string_view key;    ///< never empty
  std::string_view value;  ///< without surrounding blanks; ends at a NUL
};

/// The lines with their ends: CR LF, LF or CR. The last one may have none.
[[nodiscard]] std::vector<std::string> SplitIniLines(std::string_view content);

/// The line's end alone; empty when it has none.
[[nodiscard]] std::string_view IniLineEnd(std::string_view line);

[[nodiscard]] bool IsBlankIniLine(std::string_view line);

/// The name between the brackets, blanks around it left out; nullopt for a line that starts no section.
[[nodiscard]] std::optional<std::string_view> IniSectionName(std::string_view line);

/// nullopt for comments, section lines, and lines without "=" or with nothing before it.
[[nodiscard]] std::optional<IniEntry> ParseIniEntry(std::string_view line);

/// Code page 932 as UTF-8, but a byte or pair that stands for no character stays as it is instead of being replaced.
[[nodiscard]] std::string AnsiToUtf8KeepingBytes(std::string_view bytes);

}  // namespace quillon
