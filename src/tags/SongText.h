#pragma once

#include <tag.h>

#include <string>
#include <string_view>

#include "tags/SongDetails.h"

namespace quillon {

/// A text as SongDetails has it: UTF-8 up to its first zero byte, without blanks around it; empty for "---".
[[nodiscard]] std::string SongText(std::string_view text);
[[nodiscard]] std::string TagText(const TagLib::String& text);

/// A text that TagLib has taken for Latin-1, decoded as StoredText::kUtf8OrAnsi.
[[nodiscard]] std::string StoredTitle(const TagLib::String& text);

/// A genre's name, also where the tag has its number of ID3v1: "17", "(17)" and "(17)Rock" are Rock.
[[nodiscard]] std::string GenreName(std::string_view genre);
/// Empty for numbers without a name.
[[nodiscard]] std::string GenreName(int number);

/// The number that the text starts with, "3/12" giving 3; 0 for none and for those that no song has.
[[nodiscard]] int SongNumber(std::string_view text);
[[nodiscard]] int SongNumber(std::int64_t number);

/// All that a tag of TagLib says.
[[nodiscard]] SongDetails DetailsOf(const TagLib::Tag& tag);

}  // namespace quillon
