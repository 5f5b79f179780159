#include "rename/WidthConversion.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "base/Text.h"

namespace quillon {
namespace {

constexpr char32_t kVoiced = 0xFF9E;
constexpr char32_t kSemiVoiced = 0xFF9F;

constexpr char32_t kFirstAscii = 0x21;
constexpr char32_t kLastAscii = 0x7E;
constexpr char32_t kWideAscii = 0xFF01;  // the full-width form of "!"; the others follow in the same order

// The full-width forms of U+FF61 to U+FF9F.
constexpr char32_t kFirstKana = 0xFF61;
constexpr std::u32string_view kKana =
    U"。「」、・ヲァィゥェォャュョッーアイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホマミムメモヤユヨラリ"
    U"ルレロワン゛゜";

// The compatibility letters for U+FFA0 to U+FFDC; the half-width block leaves gaps where rows of six begin.
constexpr char32_t kFirstHangul = 0xFFA0;
constexpr char32_t kLastHangul = 0xFFDC;
constexpr std::array<char32_t, kLastHangul - kFirstHangul + 1> kHangul = {
    0x3164, 0x3131, 0x3132, 0x3133, 0x3134, 0x3135, 0x3136, 0x3137, 0x3138, 0x3139, 0x313A, 0x313B, 0x313C,
    0x313D, 0x313E, 0x313F, 0x3140, 0x3141, 0x3142, 0x3143, 0x3144, 0x3145, 0x3146, 0x3147, 0x3148, 0x3149,
    0x314A, 0x314B, 0x314C, 0x314D, 0x314E, 0,      0,      0,      0x314F, 0x3150, 0x3151, 0x3152, 0x3153,
    0x3154, 0,      0,      0x3155, 0x3156, 0x3157, 0x3158, 0x3159, 0x315A, 0,      0,      0x315B, 0x315C,
    0x315D, 0x315E, 0x315F, 0x3160, 0,      0,      0x3161, 0x3162, 0x3163};

struct Pair {
  char32_t narrow;
  char32_t wide;
};

constexpr Pair kPairs[] = {
    {0x0020, 0x3000}, {0x00A2, 0xFFE0}, {0x00A3, 0xFFE1}, {0x00A5, 0xFFE5}, {0x00A6, 0xFFE4}, {0x00AC, 0xFFE2},
    {0x00AF, 0xFFE3}, {0x20A9, 0xFFE6}, {0x2985, 0xFF5F}, {0x2986, 0xFF60}, {0xFFE8, 0x2502}, {0xFFE9, 0x2190},
    {0xFFEA, 0x2191}, {0xFFEB, 0x2192}, {0xFFEC, 0x2193}, {0xFFED, 0x25A0}, {0xFFEE, 0x25CB},
};

// Characters whose half-width form does not convert back to them: the typographic quotation marks and the combining
// voice marks.
constexpr Pair kNarrowOnly[] = {{0x0027, 0x2018}, {0x0027, 0x2019},  {0x0022, 0x201C},
                                {0x0022, 0x201D}, {kVoiced, 0x3099}, {kSemiVoiced, 0x309A}};

constexpr Pair kVoicedKana[] = {{U'ｦ', U'ヺ'}, {U'ｳ', U'ヴ'}, {U'ｶ', U'ガ'}, {U'ｷ', U'ギ'}, {U'ｸ', U'グ'},
                                {U'ｹ', U'ゲ'}, {U'ｺ', U'ゴ'}, {U'ｻ', U'ザ'}, {U'ｼ', U'ジ'}, {U'ｽ', U'ズ'},
                                {U'ｾ', U'ゼ'}, {U'ｿ', U'ゾ'}, {U'ﾀ', U'ダ'}, {U'ﾁ', U'ヂ'}, {U'ﾂ', U'ヅ'},
                                {U'ﾃ', U'デ'}, {U'ﾄ', U'ド'}, {U'ﾊ', U'バ'}, {U'ﾋ', U'ビ'}, {U'ﾌ', U'ブ'},
                                {U'ﾍ', U'ベ'}, {U'ﾎ', U'ボ'}, {U'ﾜ', U'ヷ'}};
constexpr Pair kSemiVoicedKana[] = {{U'ﾊ', U'パ'}, {U'ﾋ', U'ピ'}, {U'ﾌ', U'プ'}, {U'ﾍ', U'ペ'}, {U'ﾎ', U'ポ'}};

/// A character's half-width form, followed by a mark when it is a voiced kana. `character` is 0 when there is none.
struct Narrow {
  char32_t character = 0;
  char32_t mark = 0;
};

constexpr std::size_t kCodes = 0x10000;

std::vector<Narrow> MakeNarrowTable() {
  std::vector<Narrow> table(kCodes);
  for (char32_t c = kFirstAscii; c <= kLastAscii; ++c) table[kWideAscii + (c - kFirstAscii)] = {c, 0};
  for (std::size_t i = 0; i < kKana.size(); ++i) table[kKana[i]] = {kFirstKana + static_cast<char32_t>(i), 0};
  for (std::size_t i = 0; i < kHangul.size(); ++i) {
    if (kHangul[i] != 0) table[kHangul[i]] = {kFirstHangul + static_cast<char32_t>(i), 0};
  }
  for (const Pair& pair : kPairs) table[pair.wide] = {pair.narrow, 0};
  for (const Pair& pair : kNarrowOnly) table[pair.wide] = {pair.narrow, 0};
  for (const Pair& pair : kVoicedKana) table[pair.wide] = {pair.narrow, kVoiced};
  for (const Pair& pair : kSemiVoicedKana) table[pair.wide] = {pair.narrow, kSemiVoiced};
  return table;
}

Narrow NarrowForm(char32_t c) {
  static const std::vector<Narrow> table = MakeNarrowTable();
  return c < kCodes ? table[c] : Narrow();
}

template <std::size_t count>
char32_t WideInPairs(const Pair (&pairs)[count], char32_t narrow) {
  const auto* const found =
      std::find_if(std::begin(pairs), std::end(pairs), [&](const Pair& pair) { return pair.narrow == narrow; });
  return found == std::end(pairs) ? 0 : found->wide;
}

/// 0 for a character that has no full-width form.
char32_t WideForm(char32_t c) {
  if (c >= kFirstAscii && c <= kLastAscii) return kWideAscii + (c - kFirstAscii);
  if (c >= kFirstKana && c < kFirstKana + kKana.size()) return kKana[c - kFirstKana];
  if (c >= kFirstHangul && c <= kLastHangul) return kHangul[c - kFirstHangul];
  return WideInPairs(kPairs, c);
}

/// The one character that a half-width kana and a voice mark make together; 0 when they do not.
char32_t Joined(char32_t kana, char32_t mark) {
  if (mark == kVoiced) return WideInPairs(kVoicedKana, kana);
  return mark == kSemiVoiced ? WideInPairs(kSemiVoicedKana, kana) : 0;
}

}  // namespace

std::string ToHalfWidth(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const Character c = CharacterAt(text, i);
    const Narrow narrow = c.valid ? NarrowForm(c.codePoint) : Narrow();
    if (narrow.character == 0) {
      result += text.substr(i, c.length);
    } else {
      AppendUtf8(result, narrow.character);
      if (narrow.mark != 0) AppendUtf8(result, narrow.mark);
    }
    i += c.length;
  }
  return result;
}

std::string ToFullWidth(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const Character c = CharacterAt(text, i);
    const std::size_t next = i + c.length;
    const Character mark = next < text.size() ? CharacterAt(text, next) : Character();
    const char32_t joined = c.valid && mark.valid ? Joined(c.codePoint, mark.codePoint) : 0;
    const char32_t wide = joined != 0 ? joined : c.valid ? WideForm(c.codePoint) : 0;
    if (wide == 0) {
      result += text.substr(i, c.length);
    } else {
      AppendUtf8(result, wide);
    }
    i = joined != 0 ? next + mark.length : next;
  }
  return result;
}

}  // namespace quillon
