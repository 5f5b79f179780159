#include "bregexp/Replacement.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "bregexp/WorkingText.h"

namespace quillon::bregexp {
namespace {

using Kind = ReplacementPart::Kind;

constexpr std::size_t kGreatestGroup = 0xFFFF;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// The value of a decimal or hexadecimal digit; 16 for anything else.
unsigned DigitValue(char c) {
  if (IsDigit(c)) return static_cast<unsigned>(c - '0');
  if (c >= 'a' && c <= 'f') return static_cast<unsigned>(c - 'a') + 10;
  if (c >= 'A' && c <= 'F') return static_cast<unsigned>(c - 'A') + 10;
  return 16;
}

class Parser {
 public:
  Parser(std::string_view rest, Encoding encoding) : rest_(rest), encoding_(encoding) {}

  std::optional<std::vector<ReplacementPart>> Parse() {
    while (!rest_.empty()) {
      const char c = Take();
      if (c == '$') {
        ReadVariable();
      } else if (c == '\\' && !rest_.empty()) {
        if (!ReadEscape()) return std::nullopt;
      } else {
        literal_ += c;
      }
    }
    EndLiteral();
    return std::move(parts_);
  }

 private:
  char Take() {
    const char c = rest_.front();
    rest_.remove_prefix(1);
    return c;
  }

  void Add(Kind kind, std::size_t group = 0) {
    EndLiteral();
    parts_.push_back({kind, {}, group});
  }

  void EndLiteral() {
    if (literal_.empty()) return;
    parts_.push_back({Kind::kLiteral, std::exchange(literal_, {}), 0});
  }

  /// Consumes at most `most` digits of base 8, 10 or 16. The value saturates at a number larger than any group or
  /// character.
  std::size_t TakeNumber(unsigned base, std::size_t most) {
    constexpr std::size_t kEnough = 0x1000000;
    std::size_t value = 0;
    for (; most > 0 && !rest_.empty() && DigitValue(rest_.front()) < base; --most) {
      value = std::min(value * base + DigitValue(Take()), kEnough);
    }
    return value;
  }

  void AddGroup(std::size_t number) { Add(Kind::kGroup, std::min(number, kGreatestGroup)); }

  void ReadVariable() {
    const char c = rest_.empty() ? '\0' : rest_.front();
    if (IsDigit(c)) {
      AddGroup(TakeNumber(10, rest_.size()));
    } else if (c == '{') {
      ReadBracedGroup();
    } else if (c == '&' || c == '`' || c == '\'') {
      Take();
      Add(c == '&' ? Kind::kGroup : c == '`' ? Kind::kBefore : Kind::kAfter);
    } else {
      literal_ += '$';
    }
  }

  void ReadBracedGroup() {
    const std::string_view braced = rest_;
    Take();
    const std::size_t digits = rest_.size();
    const std::size_t number = TakeNumber(10, digits);
    if (rest_.size() < digits && rest_.starts_with('}')) {
      Take();
      AddGroup(number);
    } else {
      rest_ = braced;
      literal_ += '$';
    }
  }

  [[nodiscard]] bool ReadEscape() {
    const char c = rest_.front();
    if (IsDigit(c)) return ReadNumberEscape();
    Take();
    if (c == 'x') return ReadHexEscape();
    if (ReadCaseEscape(c)) return true;
    constexpr std::string_view kNames = "tnrfaeb";
    constexpr std::string_view kCharacters = "\t\n\r\f\a\x1B\b";
    const std::size_t known = kNames.find(c);
    literal_ += known == std::string_view::npos ? c : kCharacters[known];
    return true;
  }

  /// A single digit other than 0 names a group; 0 and longer numbers are a character's octal code, up to the first
  /// non-octal digit.
  [[nodiscard]] bool ReadNumberEscape() {
    if (rest_.front() != '0' && (rest_.size() == 1 || !IsDigit(rest_[1]))) {
      AddGroup(TakeNumber(10, 1));
      return true;
    }
    if (DigitValue(rest_.front()) >= 8) {
      literal_ += Take();
      return true;
    }
    return AddCharacter(TakeNumber(8, 3));
  }

  [[nodiscard]] bool ReadHexEscape() {
    if (!rest_.starts_with('{')) return AddCharacter(TakeNumber(16, 2));
    Take();
    const std::size_t number = TakeNumber(16, rest_.size());
    if (!rest_.starts_with('}')) return false;
    Take();
    return AddCharacter(number);
  }

  [[nodiscard]] bool AddCharacter(std::size_t number) {
    if (encoding_ == Encoding::kBytes) {
      literal_ += static_cast<char>(static_cast<unsigned char>(number & 0xFFu));
      return number <= 0xFF;
    }
    const auto character = static_cast<char32_t>(number);
    if (IsRawCode(character) || (character >= 0xD800 && character <= 0xDFFF)) return false;
    AppendUtf8(literal_, character);
    return true;
  }

  /// As in Perl, \u and \l inside a \U or \L only have an effect at its very start, and only the first of several
  /// counts.
  [[nodiscard]] bool ReadCaseEscape(char c) {
    static constexpr std::pair<char, Kind> kNames[] = {{'U', Kind::kUpper},
                                                       {'L', Kind::kLower},
                                                       {'u', Kind::kUpperNext},
                                                       {'l', Kind::kLowerNext},
                                                       {'E', Kind::kEndCase}};
    const auto* const known =
        std::find_if(std::begin(kNames), std::end(kNames), [&](const auto& name) { return name.first == c; });
    if (known == std::end(kNames)) return false;
    const Kind kind = known->second;
    const bool next = kind == Kind::kUpperNext || kind == Kind::kLowerNext;
    if (next && insideCase_ && !AtStartOfCase()) return true;
    Add(kind);
    if (!next) insideCase_ = kind != Kind::kEndCase;
    return true;
  }

  [[nodiscard]] bool AtStartOfCase() const {
    return literal_.empty() && !parts_.empty() &&
           (parts_.back().kind == Kind::kUpper || parts_.back().kind == Kind::kLower);
  }

  std::string_view rest_;
  Encoding encoding_;
  std::vector<ReplacementPart> parts_;
  std::string literal_;
  bool insideCase_ = false;
};

}  // namespace

std::optional<std::vector<ReplacementPart>> ParseReplacement(std::string_view text, Encoding encoding) {
  return Parser(text, encoding).Parse();
}

void CaseWriter::Change(ReplacementPart::Kind kind) {
  switch (kind) {
    case Kind::kUpper: rest_ = Case::kUpper; break;
    case Kind::kLower: rest_ = Case::kLower; break;
    case Kind::kUpperNext:
      if (next_ == Case::kAsIs) next_ = Case::kUpper;
      break;
    case Kind::kLowerNext:
      if (next_ == Case::kAsIs) next_ = Case::kLower;
      break;
    default: rest_ = next_ = Case::kAsIs; break;
  }
}

void CaseWriter::Append(std::string_view text) {
  if (next_ != Case::kAsIs && !text.empty()) {
    const std::size_t length = encoding_ == Encoding::kBytes ? 1 : CharacterAt(text, 0).length;
    AppendConverted(text.substr(0, length), std::exchange(next_, Case::kAsIs));
    text.remove_prefix(length);
  }
  AppendConverted(text, rest_);
}

void CaseWriter::AppendConverted(std::string_view text, Case letterCase) {
  if (letterCase == Case::kAsIs) {
    into_ += text;
  } else if (encoding_ == Encoding::kBytes) {
    // In byte mode only ASCII letters have a case, because the encoding of the other bytes is unknown.
    for (const char byte : text) {
      const std::string_view one(&byte, 1);
      into_ += letterCase == Case::kUpper ? ToUpper(one) : ToLower(one);
    }
  } else {
    into_ += letterCase == Case::kUpper ? ToUpper(text) : ToLower(text);
  }
}

}  // namespace quillon::bregexp
