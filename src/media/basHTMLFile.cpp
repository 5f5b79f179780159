#include "media/basHTMLFile.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "base/Text.h"
#include "platform/Ansi.h"
#include "platform/FileSystem.h"

namespace quillon {
namespace {

// No page is as long; what is, is no page, and is not read into memory.
constexpr std::uint64_t kLargestPage = std::uint64_t{1} << 28u;

constexpr std::string_view kStartTag = "<title>";
constexpr std::string_view kEndTag = "</title>";

/// Like find; `tag` is given in lower case, letters A to Z of the text match too.
std::size_t FindTag(std::string_view text, std::string_view tag, std::size_t from) {
  const auto matches = [](char in, char wanted) {
    return in == wanted || (in >= 'A' && in <= 'Z' && in - 'A' + 'a' == wanted);
  };
  for (std::size_t at = text.find('<', from); at != std::string_view::npos; at = text.find('<', at + 1)) {
    const std::string_view candidate = text.substr(at, tag.size());
    if (std::equal(candidate.begin(), candidate.end(), tag.begin(), tag.end(), matches)) return at;
  }
  return std::string_view::npos;
}

/// Decoded before the line breaks go, so that half a character at a line's end does not join the next line's first.
std::string JoinedLines(std::string_view bytes) {
  std::string text = AnsiToUtf8(bytes);
  std::erase_if(text, [](char c) { return c == '\r' || c == '\n'; });
  return text;
}

}  // namespace

Result<std::string, HtmlTitleError> ReadHtmlTitle(ByteSource& file) {
  if (file.Size() > kLargestPage) return HtmlTitleError::kUnreadable;
  const std::string bytes = file.Read(0, file.Size());
  if (bytes.size() < file.Size()) return HtmlTitleError::kUnreadable;
  const std::string text = JoinedLines(bytes);
  const std::size_t start = FindTag(text, kStartTag, 0);
  const bool started = start != std::string_view::npos;
  const std::size_t end = FindTag(text, kEndTag, started ? start + 1 : 0);
  if (end == std::string_view::npos) return std::string();

  const std::size_t skipped = kStartTag.size() - 1;
  if (!started && CharacterCount(text.substr(0, end)) < skipped) return HtmlTitleError::kNegativeLength;
  const std::size_t first = started ? start + kStartTag.size() : ByteOffset(text, skipped);
  return text.substr(first, end - first);
}

Result<std::string, HtmlTitleError> ReadHtmlTitle(const std::string& path) {
  const auto file = OpenSystemFile(path);
  if (!file) return HtmlTitleError::kUnreadable;
  return ReadHtmlTitle(*file);
}

}  // namespace quillon
