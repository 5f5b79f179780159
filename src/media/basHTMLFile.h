#pragma once

#include <string>

#include "base/ByteSource.h"
#include "base/Result.h"

namespace quillon {

enum class HtmlTitleError {
  kUnreadable,      ///< the file cannot be opened or not be read to its end, or is longer than 256 MiB
  kNegativeLength,  ///< an end tag among the first six characters, and no start tag
};

/// The text between the first "<title>" and the next "</title>", whatever their letter case, exactly as it stands but
/// without line breaks, which are passed over inside the tags, too. UTF-8, decoded from code page 932; of a text longer
/// than kLongestText without its line breaks, the beginning. Empty without an end tag.
///
/// With an end tag but no start tag the text begins at the page's seventh character: that is where the text would stand
/// behind a start tag just in front of the page.
[[nodiscard]] Result<std::string, HtmlTitleError> ReadHtmlTitle(ByteSource& file);
[[nodiscard]] Result<std::string, HtmlTitleError> ReadHtmlTitle(const std::string& path);

}  // namespace quillon
