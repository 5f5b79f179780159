#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bregexp/Command.h"

namespace quillon::bregexp {

/// One piece of a replacement text.
struct ReplacementPart {
  enum class Kind {
    kLiteral,    ///< `text`
    kGroup,      ///< what group `group` matched; group 0 is the whole match
    kBefore,     ///< the target before the match
    kAfter,      ///< the target after the match
    kUpper,      ///< \U: upper case from here
    kLower,      ///< \L: lower case from here
    kUpperNext,  ///< \u: the next character in upper case
    kLowerNext,  ///< \l: the next character in lower case
    kEndCase,    ///< \E
  };
  Kind kind = Kind::kLiteral;
  std::string text;
  std::size_t group = 0;

  bool operator==(const ReplacementPart&) const = default;
};

/// Returns nullopt when the text names a character that the encoding cannot represent, or has an unclosed \x{.
[[nodiscard]] std::optional<std::vector<ReplacementPart>> ParseReplacement(std::string_view text, Encoding encoding);

/// Appends text to a string in the current letter case. Use one object per replacement: it keeps the case state.
class CaseWriter {
 public:
  CaseWriter(std::string& into, Encoding encoding) : into_(into), encoding_(encoding) {}

  /// Precondition: `kind` is one of those that change letter case.
  void Change(ReplacementPart::Kind kind);
  void Append(std::string_view text);

 private:
  enum class Case { kAsIs, kUpper, kLower };

  void AppendConverted(std::string_view text, Case letterCase);

  std::string& into_;
  Encoding encoding_;
  Case rest_ = Case::kAsIs;
  Case next_ = Case::kAsIs;
};

}  // namespace quillon::bregexp
