#include "media/basHTMLFile.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "base/ByteSearch.h"
#include "base/Text.h"
#include "media/TextLimit.h"
#include "media/WindowReader.h"
#include "platform/Ansi.h"
#include "platform/FileSystem.h"

namespace quillon {
namespace {

// Larger files are not read.
constexpr std::uint64_t kLargestPage = std::uint64_t{1} << 28u;

// Must be lower case; the page's upper-case letters match, too.
constexpr char kStartTag[] = "<title>";
constexpr char kEndTag[] = "</title>";
constexpr std::size_t kStartTagLength = sizeof(kStartTag) - 1;
constexpr std::size_t kEndTagLength = sizeof(kEndTag) - 1;

using Place = std::optional<std::uint64_t>;

/// Like StandsAt, but ignores letter case.
template <std::size_t kCount>
unsigned TagStandsAt(const char* place, const char (&tag)[kCount]) {
  constexpr auto caseBit = [](char c) { return static_cast<unsigned char>(c >= 'a' && c <= 'z' ? 0x20 : 0); };
  return [&]<std::size_t... kIndex>(std::index_sequence<kIndex...>) {
    return (... & static_cast<unsigned>(static_cast<char>(place[kIndex] | caseBit(tag[kIndex])) == tag[kIndex]));
  }
  (std::make_index_sequence<kCount - 1>());
}

template <std::size_t kCount>
std::size_t FindTag(std::string_view text, std::size_t from, const char (&tag)[kCount]) {
  return FindWhere<kCount - 1>(text, from, tag[0], [&](const char* place) { return TagStandsAt(place, tag) != 0; });
}

/// The offset of the first tag of either kind; a start tag only counts with a byte in front of it. Searching for their
/// common end ("title>") takes little longer than searching for one tag.
std::size_t FindEitherTag(std::string_view text) {
  const std::size_t at = FindWhere<kEndTagLength>(text, 0, [](const char* place) {
    const unsigned opens = StandsAt(place + 1, "<") | StandsAt(place, "</");
    return (opens & TagStandsAt(place + 2, "title>")) != 0;
  });
  return at == std::string_view::npos || text[at + 1] == '/' ? at : at + 1;
}

constexpr bool IsLineBreak(char c) {
  return c == '\r' || c == '\n';
}

/// Decodes before removing the line breaks, so that half a character at a line's end does not combine with the next
/// line's first byte.
std::string JoinedLines(std::string_view bytes) {
  std::string text = AnsiToUtf8(bytes);
  std::erase_if(text, IsLineBreak);
  return text;
}

/// The bytes of a page without its line breaks, one part at a time. Tags can be searched for in the undecoded bytes: a
/// tag's "<", "/" and ">" are never the second byte of a character, and its letters do not follow a lead byte. Each
/// part begins with the last bytes of the one before, so that every tag lies entirely in one part. The first part
/// begins with an additional zero byte.
class JoinedBytes {
 public:
  explicit JoinedBytes(ByteSource& file) : window_(file, 0) { bytes_[0] = '\0'; }

  /// Advances to the next part; false at the end of the file, or where reading fails.
  bool Next() {
    KeepEnd();
    if (!window_.Next()) return false;
    const std::string_view window = window_.Bytes();
    const std::size_t firstBreak = std::min(window.size(), FindLineBreak(window));
    char* into = std::copy_n(window.data(), firstBreak, bytes_.data() + kept_);
    for (const char c : window.substr(firstBreak)) {
      *into = c;
      into += kKept[static_cast<unsigned char>(c)];
    }
    length_ = static_cast<std::size_t>(into - bytes_.data());
    return true;
  }

  /// Reads the rest only to check that it is readable. Returns the offset where reading ended.
  std::uint64_t ReadToEnd() {
    while (window_.Next()) {
    }
    return window_.End();
  }

  [[nodiscard]] std::string_view Bytes() const { return {bytes_.data(), length_}; }

  /// The file offset of the byte with index `at` in Bytes().
  [[nodiscard]] std::uint64_t FileOffset(std::size_t at) const {
    if (at < kept_) return keptAt_.at(at);
    const std::string_view window = window_.Bytes();
    std::size_t left = at - kept_;
    std::size_t i = 0;
    while (IsLineBreak(window[i]) || left-- > 0) ++i;
    return window_.Offset() + i;
  }

 private:
  static constexpr std::size_t kOverlap = kEndTagLength - 1;

  /// For each byte value: 0 for line breaks, 1 for others. A table, because a branch would be mispredicted too often.
  static constexpr std::array<unsigned char, 256> kKept = [] {
    std::array<unsigned char, 256> kept{};
    for (std::size_t byte = 0; byte < kept.size(); ++byte) kept.at(byte) = byte == '\r' || byte == '\n' ? 0 : 1;
    return kept;
  }();

  static std::size_t FindLineBreak(std::string_view bytes) {
    return FindWhere<1>(bytes, 0,
                        [](const char* place) { return (StandsAt(place, "\r") | StandsAt(place, "\n")) != 0; });
  }

  /// Moves the last bytes to the beginning and records their file offsets.
  void KeepEnd() {
    const std::size_t kept = std::min(length_, kOverlap);
    const std::string_view window = window_.Bytes();
    std::array<std::uint64_t, kOverlap> keptAt{};
    std::size_t inWindow = window.size();
    for (std::size_t i = kept; i-- > 0;) {
      const std::size_t at = length_ - kept + i;
      if (at >= kept_) {
        do {
          --inWindow;
        } while (IsLineBreak(window[inWindow]));
      }
      keptAt.at(i) = at >= kept_ ? window_.Offset() + inWindow : keptAt_.at(at);
    }
    std::copy(bytes_.data() + length_ - kept, bytes_.data() + length_, bytes_.data());
    keptAt_ = keptAt;
    kept_ = length_ = kept;
  }

  WindowReader window_;
  std::array<char, kOverlap + WindowReader::kLength> bytes_;
  std::size_t length_ = 1;
  std::array<std::uint64_t, kOverlap> keptAt_{};
  std::size_t kept_ = 1;
};

/// The file offsets of the tags.
struct Tags {
  Place text = std::nullopt;        ///< behind the first start tag
  Place end = std::nullopt;         ///< the text's end: the first end tag behind the start tag
  Place endInFront = std::nullopt;  ///< an end tag that no start tag precedes

  void LookAt(const JoinedBytes& part) {
    const std::string_view bytes = part.Bytes();
    const auto place = [&](std::size_t at) { return at == std::string_view::npos ? Place() : part.FileOffset(at); };
    std::size_t at = 0;
    if (!text) {
      if (!endInFront) {
        at = FindEitherTag(bytes);
        if (at != std::string_view::npos && bytes[at + 1] == '/') endInFront = part.FileOffset(at);
      }
      if (endInFront) at = FindTag(bytes, at, kStartTag);
      if (at == std::string_view::npos) return;
      text = part.FileOffset(at + kStartTagLength - 1) + 1;
    }
    end = place(FindTag(bytes, at, kEndTag));
  }
};

/// The text between two offsets of the file: at most the first `most` bytes, not counting line breaks.
std::string ReadText(ByteSource& file, std::uint64_t begin, std::uint64_t end, std::size_t most) {
  constexpr std::uint64_t kPiece = 4096;
  std::string bytes;
  while (begin < end && most > 0) {
    const std::string piece = file.Read(begin, std::min(end - begin, kPiece));
    if (piece.empty()) break;
    begin += piece.size();
    for (const char c : piece) {
      // Successive breaks are stored as one.
      const bool isBreak = IsLineBreak(c);
      if (most == 0 || (isBreak && bytes.ends_with('\n'))) continue;
      bytes += isBreak ? '\n' : c;
      most -= isBreak ? 0 : 1;
    }
  }
  return JoinedLines(bytes);
}

Result<std::string, HtmlTitleError> TextInFrontOf(ByteSource& file, std::uint64_t end) {
  constexpr std::size_t kSkipped = kStartTagLength - 1;
  const std::string text = ReadText(file, 0, end, kLongestText + 2 * kSkipped);
  if (CharacterCount(text) < kSkipped) return HtmlTitleError::kNegativeLength;
  return text.substr(ByteOffset(text, kSkipped));
}

}  // namespace

Result<std::string, HtmlTitleError> ReadHtmlTitle(ByteSource& file) {
  if (file.Size() > kLargestPage) return HtmlTitleError::kUnreadable;
  JoinedBytes page(file);
  Tags tags;
  while (!tags.end && page.Next()) tags.LookAt(page);
  if (page.ReadToEnd() < file.Size()) return HtmlTitleError::kUnreadable;
  if (tags.end) return ReadText(file, *tags.text, *tags.end, kLongestText);
  if (tags.text || !tags.endInFront) return std::string();
  return TextInFrontOf(file, *tags.endInFront);
}

Result<std::string, HtmlTitleError> ReadHtmlTitle(const std::string& path) {
  const auto file = OpenSystemFile(path);
  if (!file) return HtmlTitleError::kUnreadable;
  return ReadHtmlTitle(*file);
}

}  // namespace quillon
