#pragma once

#include <memory>

#include "platform/Collation.h"

namespace quillon {

/// The system's collation for Japanese: digits (compared one by one), Latin letters, kana by sound, kanji by JIS X
/// 0208. Hiragana equals katakana, and full width equals half width; small kana come before large ones if nothing else
/// differs. Lower-case and upper-case Latin letters are adjacent but not equal. Undecodable bytes count as U+FFFD.
[[nodiscard]] std::unique_ptr<Collation> MakeJapaneseCollation();

}  // namespace quillon
