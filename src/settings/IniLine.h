#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The lines of an INI file, as bytes. The functions work for code page 932 as well as for UTF-8, because no byte that
/// they search for can be mistaken for the second byte of a character, except for the one that ends a section's name.
namespace quillon {

struct IniEntry {
  std::string_view key;    ///< never empty
  std::string_view value;  ///< without surrounding blanks; ends at a NUL
};

/// The lines with their line ends: CR LF, LF or CR. The last line may have none.
[[nodiscard]] std::vector<std::string> SplitIniLines(std::string_view content);

/// The line's end (CR LF, LF or CR); empty when it has none.
[[nodiscard]] std::string_view IniLineEnd(std::string_view line);

[[nodiscard]] bool IsBlankIniLine(std::string_view line);

/// The name between the brackets without surrounding blanks; nullopt for a line that starts no section. In code page
/// 932 the second byte of a character can be taken for the closing bracket; so decode the line before, if the name
/// matters.
[[nodiscard]] std::optional<std::string_view> IniSectionName(std::string_view line);

/// Returns nullopt for comments, section lines, and lines without a key before a "=".
[[nodiscard]] std::optional<IniEntry> ParseIniEntry(std::string_view line);

/// Decodes code page 932 to UTF-8, but keeps a byte or pair that is no character instead of replacing it.
[[nodiscard]] std::string AnsiToUtf8KeepingBytes(std::string_view bytes);

}  // namespace quillon
