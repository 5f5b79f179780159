#pragma once

#include <string>
#include <string_view>

namespace quillon {

/// Unicode's normal forms for one and the same text: letters and their marks composed (as most systems write names), or
/// decomposed (as some do). Published in Unicode Standard Annex #15.
enum class NormalForm { kComposed, kDecomposed };

/// The text in this form. Bytes that are not valid UTF-8 stay as they are.
[[nodiscard]] std::string Normalized(std::string_view text, NormalForm form);

}  // namespace quillon
