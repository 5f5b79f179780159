#include "rename/ReplaceText.h"

#include "base/Text.h"

namespace quillon {
namespace {

/// A text's characters in the form in which they are compared, and their offsets in the text, with one more for its
/// end.
struct Folded {
  std::u32string characters;
  std::vector<std::size_t> offsets;
};

// Bytes that are not valid UTF-8 must equal only themselves.
constexpr char32_t kInvalidBytes = 0x110000;

Folded Fold(std::string_view text, CompareMode compareMode) {
  Folded folded;
  folded.characters.reserve(text.size());
  folded.offsets.reserve(text.size() + 1);
  for (std::size_t i = 0; i < text.size();) {
    const Character c = CharacterAt(text, i);
    if (!c.valid) {
      folded.characters.push_back(kInvalidBytes + static_cast<unsigned char>(text[i]));
    } else {
      folded.characters += compareMode == CompareMode::kText ? LowerCharacter(c.codePoint) : c.codePoint;
    }
    folded.offsets.push_back(i);
    i += c.length;
  }
  folded.offsets.push_back(text.size());
  return folded;
}

/// Calls `visit` with each occurrence until it answers false.
template <class Visit>
void ForEachOccurrence(std::string_view text, std::string_view find, CompareMode compareMode, Overlapping overlapping,
                       Visit visit) {
  if (find.empty()) return;
  const bool step = overlapping == Overlapping::kYes;
  // A byte search finds valid UTF-8 only at the start of a character; stray bytes could be found in the middle of one.
  if (compareMode == CompareMode::kBinary && IsValidUtf8(find)) {
    for (std::size_t at = text.find(find); at != std::string_view::npos;
         at = text.find(find, at + (step ? 1 : find.size()))) {
      if (!visit(TextRange{at, find.size()})) return;
    }
    return;
  }
  const Folded in = Fold(text, compareMode);
  const std::u32string wanted = Fold(find, compareMode).characters;
  for (std::size_t at = in.characters.find(wanted); at != std::u32string::npos;
       at = in.characters.find(wanted, at + (step ? 1 : wanted.size()))) {
    const std::size_t start = in.offsets[at];
    if (!visit(TextRange{start, in.offsets[at + wanted.size()] - start})) return;
  }
}

}  // namespace

std::vector<TextRange> FindOccurrences(std::string_view text, std::string_view find, CompareMode compareMode,
                                       Overlapping overlapping) {
  std::vector<TextRange> occurrences;
  ForEachOccurrence(text, find, compareMode, overlapping, [&](const TextRange& occurrence) {
    occurrences.push_back(occurrence);
    return true;
  });
  return occurrences;
}

std::string ReplaceText(std::string_view text, std::string_view find, std::string_view replacement, std::size_t start,
                        std::ptrdiff_t count, CompareMode compareMode) {
  text.remove_prefix(ByteOffset(text, start > 0 ? start - 1 : 0));
  std::string result;
  std::size_t done = 0;
  ForEachOccurrence(text, find, compareMode, Overlapping::kNo, [&](const TextRange& occurrence) {
    if (count == 0) return false;
    --count;
    result += text.substr(done, occurrence.offset - done);
    result += replacement;
    done = occurrence.offset + occurrence.length;
    return true;
  });
  result += text.substr(done);
  return result;
}

}  // namespace quillon
