#include "pattern/PatternParser.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/Text.h"
#include "pattern/PatternFields.h"

namespace quillon {
namespace {

constexpr int kMostDigits = 20;

bool IsLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// Reads a pattern from left to right. Every reader returns false after the first error.
class Parser {
 public:
  explicit Parser(std::string_view text) : text_(text) {}

  bool ReadPieces(std::vector<PatternPiece>& into, int depth);
  [[nodiscard]] const PatternError& Error() const { return error_; }

 private:
  bool ReadField(std::vector<PatternPiece>& into, int depth);
  bool ReadName(PatternPiece& piece);
  bool ReadFormat(PatternPiece& piece, std::size_t open);
  bool ReadDigits(std::string_view format, PatternPiece& piece);
  bool ReadDateForm(std::string_view format, PatternPiece& piece);
  bool ReadInner(PatternPiece& piece, std::size_t open, int depth);
  bool Fail(std::size_t offset, PatternMistake mistake, std::string_view field = {});
  bool Unclosed(std::size_t open) { return Fail(open, PatternMistake::kUnclosed); }
  bool BraceWithin() { return Fail(at_, PatternMistake::kBraceWithin); }

  [[nodiscard]] bool AtEnd() const { return at_ == text_.size(); }
  /// What comes before one of these characters.
  std::string_view TakeUpTo(std::string_view ends) {
    const std::string_view taken = text_.substr(at_, std::min(text_.find_first_of(ends, at_), text_.size()) - at_);
    at_ += taken.size();
    return taken;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  PatternError error_;
};

bool Parser::Fail(std::size_t offset, PatternMistake mistake, std::string_view field) {
  error_ = {CharacterCount(text_.substr(0, offset)) + 1, mistake, std::string(field)};
  return false;
}

// Ends at the end of the text or, within a field, before its "}".
bool Parser::ReadPieces(std::vector<PatternPiece>& into, int depth) {
  while (!AtEnd() && !(depth > 0 && text_[at_] == '}')) {
    if (text_[at_] == '{' && !text_.substr(at_).starts_with("{{")) {
      if (!ReadField(into, depth)) return false;
      continue;
    }
    at_ += text_[at_] == '{' ? 1 : 0;
    if (into.empty() || into.back().field) into.emplace_back();
    into.back().text += text_[at_++];
  }
  return true;
}

bool Parser::ReadField(std::vector<PatternPiece>& into, int depth) {
  const std::size_t open = at_++;
  PatternPiece piece;
  if (!ReadName(piece)) return false;
  if (!AtEnd() && text_[at_] == ':' && !ReadFormat(piece, open)) return false;
  if (!AtEnd() && (text_[at_] == '|' || text_[at_] == '?') && !ReadInner(piece, open, depth)) return false;
  if (AtEnd()) return Unclosed(open);
  if (text_[at_] != '}') return BraceWithin();
  ++at_;
  into.push_back(std::move(piece));
  return true;
}

bool Parser::ReadName(PatternPiece& piece) {
  const std::size_t start = at_;
  const std::string_view name = TakeUpTo("{}:|?");
  if (AtEnd()) return Unclosed(start - 1);
  if (name.empty()) return Fail(start, PatternMistake::kNoField);
  piece.field = FieldNamed(name);
  return piece.field || Fail(start, PatternMistake::kUnknownField, name);
}

bool Parser::ReadFormat(PatternPiece& piece, std::size_t open) {
  const std::size_t colon = at_++;
  const std::string_view format = TakeUpTo("{}|?");
  if (AtEnd()) return Unclosed(open);
  if (text_[at_] == '{') return BraceWithin();
  switch (EntryOf(*piece.field).format) {
    case FieldFormat::kDigits: return ReadDigits(format, piece) || Fail(colon + 1, PatternMistake::kDigits);
    case FieldFormat::kDate: return ReadDateForm(format, piece);
    case FieldFormat::kNone: break;
  }
  return Fail(colon, PatternMistake::kNoFormatHere);
}

bool Parser::ReadDigits(std::string_view format, PatternPiece& piece) {
  for (const char c : format) {
    if (c < '0' || c > '9' || piece.digits > kMostDigits) return false;
    piece.digits = piece.digits * 10 + (c - '0');
  }
  return piece.digits >= 1 && piece.digits <= kMostDigits;
}

bool Parser::ReadDateForm(std::string_view format, PatternPiece& piece) {
  const std::size_t start = at_ - format.size();
  if (format.empty()) return Fail(start, PatternMistake::kNoDateForm);
  for (std::size_t i = 0; i < format.size();) {
    const DatePart part = DatePartAt(format.substr(i));
    if (part.kind == DatePart::Kind::kText && IsLetter(format[i])) {
      return Fail(start + i, PatternMistake::kUnknownDatePart);
    }
    i += part.length;
  }
  piece.dateForm = format;
  return true;
}

bool Parser::ReadInner(PatternPiece& piece, std::size_t open, int depth) {
  piece.isCondition = text_[at_] == '?';
  const bool hasFormat = piece.digits > 0 || !piece.dateForm.empty();
  if (piece.isCondition && hasFormat) return Fail(at_, PatternMistake::kFormatWithChoice);
  ++at_;
  if (depth == kDeepestPattern) return Fail(open, PatternMistake::kTooDeep);
  return ReadPieces(piece.inner, depth + 1);
}

}  // namespace

Result<std::vector<PatternPiece>, PatternError> ParsePattern(std::string_view pattern) {
  Parser parser(pattern);
  std::vector<PatternPiece> pieces;
  if (!parser.ReadPieces(pieces, 0)) return parser.Error();
  return pieces;
}

}  // namespace quillon
