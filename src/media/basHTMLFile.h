#pragma once

#include <string>

#include "base/ByteSource.h"
#include "base/Result.h"

namespace quillon {

enum class HtmlTitleError {
  kUnreadable,      ///< the file cannot be opened or cannot be read to its end, or is longer than 256 MiB
  kNegativeLength,  ///< an end tag among the first six characters, and no start tag
};

/// The text between the first "<title>" and the next "</title>", in any letter case. Line breaks are removed, also
/// inside the tags; nothing else is changed. UTF-8, decoded from code page 932. A text longer than kLongestText, line
/// breaks not counted, is cut. Empty without an end tag.
///
/// With an end tag but no start tag the text begins at the page's seventh character, as if a start tag ended there.
[[nodiscard]] Result<std::string, HtmlTitleError> ReadHtmlTitle(ByteSource& file);
[[nodiscard]] Result<std::string, HtmlTitleError> ReadHtmlTitle(const std::string& path);

}  // namespace quillon
