#include "pattern/NamePattern.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "pattern/PatternFields.h"
#include "pattern/PatternParser.h"
#include "platform/LocalTime.h"

namespace quillon {
namespace {

constexpr std::size_t kLongestName = 32767;  // characters
constexpr std::size_t kLongestCharacter = 4;
constexpr const char* kUsualDate = "YYYY-MM-DD";

bool IsControl(char32_t c) {
  return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x2028 || c == 0x2029;
}

// On one line, without blanks around it. Bytes that are no UTF-8 stay.
std::string Cleaned(std::string_view text) {
  std::string line;
  line.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const Character character = CharacterAt(text, i);
    const bool isBreak = text.substr(i).starts_with("\r\n");
    if (character.valid && IsControl(character.codePoint)) {
      line += ' ';
    } else {
      line += text.substr(i, character.length);
    }
    i += isBreak ? 2 : character.length;
  }
  return std::string(Trim(line));
}

// Rows without a title show dashes.
std::string SongText(std::string_view text) {
  std::string cleaned = Cleaned(text);
  return cleaned == "---" ? std::string() : cleaned;
}

std::string WithDigits(std::int64_t number, int digits) {
  std::string text = std::to_string(number);
  const std::size_t sign = number < 0 ? 1 : 0;
  const auto wanted = static_cast<std::size_t>(std::max(digits, 1)) + sign;
  if (text.size() < wanted) text.insert(sign, wanted - text.size(), '0');
  return text;
}

std::string NumberText(std::int64_t number, int digits) {
  return number == 0 ? std::string() : WithDigits(number, digits);
}

std::string PartText(const std::tm& time, DatePart::Kind part) {
  constexpr int kFirstYear = 1900;
  using enum DatePart::Kind;
  switch (part) {
    case kYear: return WithDigits(time.tm_year + kFirstYear, 4);
    case kShortYear: return WithDigits((time.tm_year + kFirstYear) % 100, 2);
    case kMonth: return WithDigits(time.tm_mon + 1, 2);
    case kDay: return WithDigits(time.tm_mday, 2);
    case kHour: return WithDigits(time.tm_hour, 2);
    case kMinute: return WithDigits(time.tm_min, 2);
    case kSecond: return WithDigits(time.tm_sec, 2);
    case kText: break;
  }
  return {};
}

std::string DateText(std::int64_t modified, std::string_view form) {
  const std::optional<std::tm> time = modified == 0 ? std::nullopt : LocalTime(modified);
  if (!time) return {};
  std::string text;
  for (std::size_t i = 0; i < form.size();) {
    const DatePart part = DatePartAt(form.substr(i));
    text += part.kind == DatePart::Kind::kText ? std::string(1, form[i]) : PartText(*time, part.kind);
    i += part.length;
  }
  return text;
}

std::string ValueOf(const PatternPiece& piece, const PatternValues& values) {
  using enum PatternField;
  switch (*piece.field) {
    case kTitle: return SongText(values.song.title);
    case kArtist: return SongText(values.song.artist);
    case kAlbum: return SongText(values.song.album);
    case kGenre: return SongText(values.song.genre);
    case kTrack: return NumberText(values.song.track, piece.digits);
    case kYear: return NumberText(values.song.year, piece.digits);
    case kName: return Cleaned(values.name);
    case kFolder: return Cleaned(values.folder);
    case kType: return Cleaned(values.type);
    case kDate: return DateText(values.modified, piece.dateForm.empty() ? kUsualDate : piece.dateForm);
    case kSize: return WithDigits(static_cast<std::int64_t>(values.size), piece.digits);
    case kNumber: return WithDigits(values.number, piece.digits > 0 ? piece.digits : values.numberDigits);
  }
  return {};
}

void Append(std::string& name, const std::vector<PatternPiece>& pieces, const PatternValues& values) {
  for (const PatternPiece& piece : pieces) {
    if (name.size() > kLongestName * kLongestCharacter) return;  // the rest would be cut off anyway
    if (!piece.field) {
      name += piece.text;
      continue;
    }
    const std::string value = ValueOf(piece, values);
    if (!piece.isCondition) name += value;
    if (value.empty() != piece.isCondition) Append(name, piece.inner, values);
  }
}

bool NeedFile(const std::vector<PatternPiece>& pieces) {
  return std::any_of(pieces.begin(), pieces.end(), [](const PatternPiece& piece) {
    return piece.field && (EntryOf(*piece.field).needsFile || NeedFile(piece.inner));
  });
}

}  // namespace

NamePattern::NamePattern(std::vector<PatternPiece> pieces) : pieces_(std::move(pieces)) {}

Result<NamePattern, PatternError> NamePattern::Parse(std::string_view pattern) {
  Result<std::vector<PatternPiece>, PatternError> pieces = ParsePattern(pattern);
  if (!pieces) return pieces.Failure();
  return NamePattern(std::move(*pieces));
}

std::string NamePattern::Text(const PatternValues& values) const {
  std::string name;
  Append(name, pieces_, values);
  return std::string(TrimRight(FirstCharacters(Trim(name), kLongestName)));
}

bool NamePattern::NeedsFile() const {
  return NeedFile(pieces_);
}

}  // namespace quillon
