#pragma once

#include <string>
#include <vector>

namespace quillon::test {

/// A line of a string literal in the program's source.
struct SourceText {
  std::string file;  ///< relative to src/
  std::string line;  ///< without blanks around it
};

/// The lines of all string literals below src/, comments left out.
[[nodiscard]] const std::vector<SourceText>& SourceTexts();

/// True when it holds Japanese.
[[nodiscard]] bool IsJapanese(const std::string& text);

}  // namespace quillon::test
