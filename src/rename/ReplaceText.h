#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

/// How texts are compared: byte for byte, or without regard to letter case, one character to one character (full-width
/// and half-width forms, and the two kana, stay different).
enum class CompareMode { kBinary = 0, kText = 1 };

inline constexpr std::ptrdiff_t kAllOccurrences = -1;

/// A part of a text, in bytes.
struct TextRange {
  std::size_t offset = 0;
  std::size_t length = 0;

  bool operator==(const TextRange&) const = default;
};

enum class Overlapping { kNo, kYes };

/// The occurrences of `find` in `text`, from left to right; none when `find` is empty. Without overlapping, these are
/// the occurrences that ReplaceText replaces.
[[nodiscard]] std::vector<TextRange> FindOccurrences(std::string_view text, std::string_view find,
                                                     CompareMode compareMode, Overlapping overlapping);

/// BASIC's Replace: the text from its 1-based character `start` on (what comes before is dropped; empty when the text
/// is shorter), with the first `count` occurrences of `find`, or all of them, replaced from left to right. An empty
/// `find` is never found.
[[nodiscard]] std::string ReplaceText(std::string_view text, std::string_view find, std::string_view replacement,
                                      std::size_t start, std::ptrdiff_t count, CompareMode compareMode);

}  // namespace quillon
