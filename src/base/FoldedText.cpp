#include "base/FoldedText.h"

#include <utf8proc.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/NormalForm.h"
#include "base/Text.h"

namespace quillon {
namespace {

constexpr std::size_t kCodes = 0x10000;  // the Basic Multilingual Plane; the tables go no further
constexpr std::size_t kMostBytes = 3;    // a folded text is at most this many times as long as the text

bool BreaksLine(char32_t c) {
  return (c >= '\t' && c <= '\r') || c == 0x85 || c == 0x2028 || c == 0x2029;
}

const utf8proc_property_t& PropertiesOf(char32_t c) {
  return *utf8proc_get_property(static_cast<utf8proc_int32_t>(c));
}

/// The usual form of a character of another width.
char32_t UsualWidth(char32_t c) {
  const auto kind = PropertiesOf(c).decomp_type;
  if (kind != UTF8PROC_DECOMP_TYPE_WIDE && kind != UTF8PROC_DECOMP_TYPE_NARROW) return c;
  const auto code = static_cast<utf8proc_int32_t>(c);
  utf8proc_int32_t usual = code;
  int boundary = 0;
  const auto options = static_cast<utf8proc_option_t>(UTF8PROC_DECOMPOSE | UTF8PROC_COMPAT);
  return utf8proc_decompose_char(code, &usual, 1, options, &boundary) == 1 ? static_cast<char32_t>(usual) : c;
}

std::string Utf8(char32_t c) {
  std::string text;
  AppendUtf8(text, c);
  return text;
}

/// A letter and a mark, and the one letter that they make.
struct Pair {
  char32_t letter = 0;
  char32_t mark = 0;
  char32_t joined = 0;
};

/// The pair that makes this letter; its mark is 0 when there is none.
Pair PairOf(char32_t joined) {
  const std::string parts = Normalized(Utf8(joined), NormalForm::kDecomposed);
  const std::string_view mark = LastCharacters(parts, 1);
  const std::string letter =
      Normalized(std::string_view(parts).substr(0, parts.size() - mark.size()), NormalForm::kComposed);
  if (CharacterCount(letter) != 1 || Normalized(letter + std::string(mark), NormalForm::kComposed) != Utf8(joined)) {
    return {};
  }
  return {CharacterAt(letter, 0).codePoint, CharacterAt(mark, 0).codePoint, joined};
}

class Tables {
 public:
  static const Tables& Get() {
    static const Tables tables;
    return tables;
  }

  [[nodiscard]] char32_t Fold(char32_t c) const { return c < kCodes ? folded_[c] : LowerCharacter(c); }

  /// The one letter that a letter and what follows it make; 0 when they do not.
  [[nodiscard]] char32_t Joined(char32_t letter, char32_t mark) const {
    if (letter >= kCodes || mark >= kCodes || !marks_[mark]) return 0;
    for (std::size_t i = firstPair_[letter]; i < pairs_.size() && pairs_[i].letter == letter; ++i) {
      if (pairs_[i].mark == mark) return pairs_[i].joined;
    }
    return 0;
  }

 private:
  Tables() : folded_(kCodes), marks_(kCodes), firstPair_(kCodes) {
    for (char32_t c = 0; c < kCodes; ++c) {
      folded_[c] = BreaksLine(c) ? U' ' : LowerCharacter(UsualWidth(c));
      const utf8proc_property_t& properties = PropertiesOf(c);
      marks_[c] = properties.combining_class != 0 ? 1 : 0;
      constexpr std::uint16_t kNone = 0xFFFF;
      if (properties.decomp_seqindex == kNone || properties.decomp_type != 0) continue;
      if (const Pair pair = PairOf(c); pair.mark != 0) pairs_.push_back(pair);
    }
    std::stable_sort(pairs_.begin(), pairs_.end(),
                     [](const Pair& left, const Pair& right) { return left.letter < right.letter; });
    for (std::size_t i = pairs_.size(); i-- > 0;) firstPair_[pairs_[i].letter] = static_cast<std::uint16_t>(i);
  }

  std::vector<char32_t> folded_;
  std::vector<std::uint8_t> marks_;
  std::vector<Pair> pairs_;               // sorted by letter
  std::vector<std::uint16_t> firstPair_;  // where the letter's pairs begin, if it has any
};

constexpr bool Continues(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0u) == 0x80u;
}

/// The same as CharacterAt, inline for nearly all Japanese characters, because whole lists are looked through between
/// two keys.
Character NextCharacter(std::string_view text, std::size_t offset) {
  const auto lead = static_cast<unsigned char>(text[offset]);
  const bool ofThree = lead > 0xE0 && lead != 0xED && lead < 0xF0 && offset + 2 < text.size() &&
                       Continues(text[offset + 1]) && Continues(text[offset + 2]);
  if (!ofThree) return CharacterAt(text, offset);
  const auto rest = [&](std::size_t i) { return static_cast<unsigned char>(text[offset + i]) & 0x3Fu; };
  return {(lead & 0x0Fu) << 12u | rest(1) << 6u | rest(2), 3, true};
}

}  // namespace

void AppendFolded(std::string& folded, std::string_view text) {
  const Tables& tables = Tables::Get();
  const std::size_t start = folded.size();
  folded.resize(start + kMostBytes * text.size());
  char* out = folded.data() + start;
  char* last = out;  // where the last character begins
  char32_t before = 0;
  std::string changed;
  for (std::size_t i = 0; i < text.size();) {
    const char byte = text[i];
    if (static_cast<unsigned char>(byte) < 0x80) {
      last = out;
      before = tables.Fold(static_cast<unsigned char>(byte));
      *out++ = static_cast<char>(before);
      ++i;
      continue;
    }
    const Character c = NextCharacter(text, i);
    const char32_t usual = tables.Fold(c.codePoint);
    const char32_t joined = tables.Joined(before, usual);
    if (joined != 0) out = last;
    last = out;
    before = joined != 0 ? joined : usual;
    if (before == c.codePoint && c.valid) {
      out = std::copy_n(text.data() + i, c.length, out);
    } else {
      changed.clear();
      AppendUtf8(changed, before);
      out = std::copy(changed.begin(), changed.end(), out);
    }
    i += c.length;
  }
  folded.resize(static_cast<std::size_t>(out - folded.data()));
}

std::string Folded(std::string_view text) {
  std::string folded;
  AppendFolded(folded, text);
  return folded;
}

}  // namespace quillon
