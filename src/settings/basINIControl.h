#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillon {

/// One INI file in memory: "[section]" lines, "key=value" lines, comments from ";". Values are UTF-8 here; in the file
/// they are code page 932, or UTF-8 where the file starts with a byte-order mark, and so are sections' names. Key names
/// are ASCII. Both are compared ignoring case; of several lines with the same key the first counts. Lines that are not
/// written to keep their bytes, their order and their line ends.
class IniFile {
 public:
  /// Longer values are cut to this many characters when read.
  static constexpr std::size_t kLongestValue = 127;

  /// A file with more bytes is considered damaged and neither read nor written.
  static constexpr std::size_t kLargestFile = std::size_t{1} << 20u;

  /// Remembers the path; the file is not touched yet.
  explicit IniFile(std::string path) : path_(std::move(path)) {}

  [[nodiscard]] const std::string& Path() const { return path_; }

  /// Reads the file's content; a missing file is empty. Returns false when the file exists and cannot be read or is too
  /// large: it then counts as empty and Save fails, because saving would lose its content.
  [[nodiscard]] bool Load();

  /// The leading blanks, sign and decimal digits of the value as a number that wraps around at 32 bits; 0 for a value
  /// without such digits. The default is returned for a missing key and for an empty value.
  [[nodiscard]] std::int32_t ReadInteger(std::string_view section, std::string_view key, std::int32_t fallback) const;

  /// The value without surrounding blanks and at most kLongestValue characters long; bytes that are invalid in code
  /// page 932 become U+30FB. A missing key gives the default, uncut. Quotes are part of the value.
  [[nodiscard]] std::string ReadString(std::string_view section, std::string_view key, std::string_view fallback) const;

  /// The same, with nullopt for a missing key and, for integers, for an empty value.
  [[nodiscard]] std::optional<std::int32_t> FindInteger(std::string_view section, std::string_view key) const;
  [[nodiscard]] std::optional<std::string> FindString(std::string_view section, std::string_view key) const;

  /// Changes or adds one line in memory: a new key at the end of its section, a new section at the end of the file. The
  /// value ends at its first line break or NUL. The first value or new section that code page 932 cannot represent
  /// converts the whole file to UTF-8 permanently; invalid bytes stay unchanged.
  void WriteString(std::string_view section, std::string_view key, std::string_view value);

  /// The sections in the file's order, each once, with its name as it is spelt first, and as a file of this section
  /// alone, which has no path.
  struct Section;
  [[nodiscard]] std::vector<Section> Sections() const;

  /// Changes the name on the section's first line and on those that continue it. The new name may be the same in
  /// another letter case, but not that of another section.
  void RenameSection(std::string_view section, std::string_view name);

  /// Removes every line from the section's first to that of the next section, wherever the section occurs.
  void RemoveSection(std::string_view section);

  /// Replaces the file's content with the lines, entirely or not at all. Returns false when that fails, when the file
  /// could not be loaded, or when the content exceeds kLargestFile.
  [[nodiscard]] bool Save() const;

 private:
  [[nodiscard]] std::optional<std::string> SectionStarting(const std::string& line) const;
  [[nodiscard]] std::optional<std::size_t> FindLine(std::string_view section, std::string_view key) const;
  [[nodiscard]] std::optional<std::string> FindWholeString(std::string_view section, std::string_view key) const;
  [[nodiscard]] std::string Decoded(std::string_view bytes) const;
  void MakeEncodable(std::string_view text);
  [[nodiscard]] std::string Encoded(std::string_view text) const;
  [[nodiscard]] std::string NewLineEnd() const;
  void InsertLine(std::size_t index, std::string_view text);
  std::size_t SectionEnd(std::string_view section);

  std::string path_;
  std::vector<std::string> lines_;  ///< with their ends, in the file's encoding
  bool utf8_ = false;
  bool unreadable_ = false;
};

struct IniFile::Section {
  std::string name;
  IniFile content;
};

}  // namespace quillon
