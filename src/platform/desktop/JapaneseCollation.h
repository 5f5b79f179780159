#pragma once

#include <memory>

#include "platform/Collation.h"

namespace quillon {

/// The system's own order of Japanese texts: digits one by one, Latin letters, kana by their sounds, kanji by JIS X
/// 0208. Hiragana and katakana are the same, and so are full and half width; small kana stand before large ones where
/// nothing else differs. Small Latin letters are not the same as large ones, but stand beside them. Undecodable bytes
/// count as U+FFFD.
[[nodiscard]] std::unique_ptr<Collation> MakeJapaneseCollation();

}  // namespace quillon
