#include "settings/basINIControl.h"

#include <algorithm>
#include <unordered_map>

#include "base/Text.h"
#include "platform/Ansi.h"
#include "platform/WholeFile.h"
#include "settings/IniLine.h"

namespace quillon {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::int32_t WrappingNumber(std::string_view text) {
  const std::size_t start = std::min(text.find_first_not_of(" \t"), text.size());
  text.remove_prefix(start);
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  std::uint32_t value = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') break;
    value = value * 10 + static_cast<std::uint32_t>(c - '0');
  }
  return static_cast<std::int32_t>(negative ? 0 - value : value);
}

}  // namespace

bool IniFile::Load() {
  const Result<std::string, ReadFailure> read = ReadWholeFile(path_, kLargestFile);
  unreadable_ = !read && read.Failure() != ReadFailure::kAbsent;
  std::string_view content = read ? std::string_view(*read) : std::string_view();
  utf8_ = content.starts_with(kByteOrderMark);
  if (utf8_) content.remove_prefix(kByteOrderMark.size());
  lines_ = SplitIniLines(content);
  return !unreadable_;
}

std::int32_t IniFile::ReadInteger(std::string_view section, std::string_view key, std::int32_t fallback) const {
  return FindInteger(section, key).value_or(fallback);
}

std::string IniFile::ReadString(std::string_view section, std::string_view key, std::string_view fallback) const {
  return FindString(section, key).value_or(std::string(fallback));
}

std::optional<std::int32_t> IniFile::FindInteger(std::string_view section, std::string_view key) const {
  const std::optional<std::string> text = FindWholeString(section, key);
  if (!text || text->empty()) return std::nullopt;
  return WrappingNumber(*text);
}

std::optional<std::string> IniFile::FindString(std::string_view section, std::string_view key) const {
  std::optional<std::string> text = FindWholeString(section, key);
  if (text) text->resize(ByteOffset(*text, kLongestValue));
  return text;
}

void IniFile::WriteString(std::string_view section, std::string_view key, std::string_view value) {
  value = value.substr(0, value.find_first_of(std::string_view("\r\n\0", 3)));
  if (FindWholeString(section, key) == value) return;  // keep the line as it is: it may be hand-written
  MakeEncodable(section);
  MakeEncodable(value);
  const std::string encoded = Encoded(value);
  if (const std::optional<std::size_t> line = FindLine(section, key)) {
    std::string& text = lines_[*line];
    const std::string end(IniLineEnd(text));
    text.resize(text.find('=') + 1);
    text += encoded + end;
    return;
  }
  InsertLine(SectionEnd(section), std::string(key) + "=" + encoded);
}

std::vector<IniFile::Section> IniFile::Sections() const {
  std::vector<Section> sections;
  std::unordered_map<std::string, std::size_t> places;
  std::optional<std::size_t> current;
  for (const std::string& line : lines_) {
    if (const std::optional<std::string> name = SectionStarting(line)) {
      current = places.try_emplace(ToLower(*name), sections.size()).first->second;
      if (*current == sections.size()) {
        sections.push_back({*name, IniFile(std::string())});
        sections.back().content.utf8_ = utf8_;
      }
    }
    if (current) sections[*current].content.lines_.push_back(line);
  }
  return sections;
}

void IniFile::RenameSection(std::string_view section, std::string_view name) {
  MakeEncodable(name);
  for (std::string& line : lines_) {
    const std::optional<std::string> present = SectionStarting(line);
    if (!present || !EqualIgnoringCase(*present, section)) continue;
    line = "[" + Encoded(name) + "]" + std::string(IniLineEnd(line));
  }
}

void IniFile::RemoveSection(std::string_view section) {
  bool inside = false;
  std::erase_if(lines_, [&](const std::string& line) {
    if (const std::optional<std::string> name = SectionStarting(line)) inside = EqualIgnoringCase(*name, section);
    return inside;
  });
}

bool IniFile::Save() const {
  if (unreadable_) return false;
  std::string content(utf8_ ? kByteOrderMark : std::string_view());
  for (const std::string& line : lines_) content += line;
  return content.size() <= kLargestFile && !ReplaceWholeFile(path_, content);
}

/// As IniSectionName, decoded.
std::optional<std::string> IniFile::SectionStarting(const std::string& line) const {
  if (line.find('[') == std::string::npos) return std::nullopt;  // most lines
  const std::string decoded = Decoded(line);
  const std::optional<std::string_view> name = IniSectionName(decoded);
  return name ? std::optional(std::string(*name)) : std::nullopt;
}

std::optional<std::size_t> IniFile::FindLine(std::string_view section, std::string_view key) const {
  bool inside = false;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    if (const std::optional<std::string> name = SectionStarting(lines_[i])) {
      inside = EqualIgnoringCase(*name, section);
    } else if (inside) {
      const std::optional<IniEntry> entry = ParseIniEntry(lines_[i]);
      if (entry && EqualIgnoringCase(entry->key, key)) return i;
    }
  }
  return std::nullopt;
}

std::optional<std::string> IniFile::FindWholeString(std::string_view section, std::string_view key) const {
  const std::optional<std::size_t> line = FindLine(section, key);
  if (!line) return std::nullopt;
  return Decoded(ParseIniEntry(lines_[*line])->value);
}

std::string IniFile::Decoded(std::string_view bytes) const {
  return utf8_ ? std::string(bytes) : AnsiToUtf8(bytes);
}

/// Converts the file to UTF-8 when code page 932 cannot represent the text.
void IniFile::MakeEncodable(std::string_view text) {
  if (utf8_ || Utf8ToAnsi(text)) return;
  utf8_ = true;
  for (std::string& line : lines_) line = AnsiToUtf8KeepingBytes(line);
}

/// Precondition: the text can be encoded.
std::string IniFile::Encoded(std::string_view text) const {
  return utf8_ ? std::string(text) : Utf8ToAnsi(text).value_or(std::string());
}

/// The line end that the file already uses.
std::string IniFile::NewLineEnd() const {
  const std::string_view first = lines_.empty() ? std::string_view() : IniLineEnd(lines_.front());
  return std::string(first.empty() ? "\r\n" : first);
}

void IniFile::InsertLine(std::size_t index, std::string_view text) {
  const std::string end = NewLineEnd();
  if (index > 0 && IniLineEnd(lines_[index - 1]).empty()) lines_[index - 1] += end;
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(index), std::string(text) + end);
}

/// Where a new line of this section is inserted: behind its last line that is not blank. Adds a missing section.
std::size_t IniFile::SectionEnd(std::string_view section) {
  std::optional<std::size_t> end;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const std::optional<std::string> name = SectionStarting(lines_[i]);
    if (name && end) break;
    const bool starts = name && EqualIgnoringCase(*name, section);
    const bool belongs = end && !IsBlankIniLine(lines_[i]);
    if (starts || belongs) end = i + 1;
  }
  if (end) return *end;
  InsertLine(lines_.size(), "[" + Encoded(section) + "]");
  return lines_.size();
}

}  // namespace quillon
