#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Result.h"
#include "pattern/PatternValues.h"

namespace quillon {

enum class PatternField {
  kTitle,
  kArtist,
  kAlbum,
  kTrack,
  kYear,
  kGenre,
  kName,
  kFolder,
  kType,
  kDate,
  kSize,
  kNumber,
};

enum class PatternMistake {
  kUnclosed,          ///< a "{" without its "}"
  kBraceWithin,       ///< a "{" where a field's name or format stands
  kNoField,           ///< no name behind "{"
  kUnknownField,      ///< see PatternError::field
  kNoFormatHere,      ///< ":" behind a field that has no formats
  kDigits,            ///< not a number from 1 to 20
  kNoDateForm,        ///< nothing behind ":"
  kUnknownDatePart,   ///< another letter than YYYY YY MM DD hh mm ss
  kFormatWithChoice,  ///< ":" and "?" in one field
  kTooDeep,           ///< more fields in one another than kDeepestPattern
};

/// Why a text is no pattern.
struct PatternError {
  std::size_t position = 0;  ///< 1-based, in characters
  PatternMistake mistake = PatternMistake::kUnclosed;
  std::string field = {};  ///< the unknown name

  bool operator==(const PatternError&) const = default;
};

/// A part of a pattern: a text that stands for itself, or a field.
struct PatternPiece {
  std::string text;                   ///< where there is no field
  std::optional<PatternField> field;  ///< {title}
  int digits = 0;                     ///< {track:02}: at least so many; 0 where the pattern does not say
  std::string dateForm;               ///< {date:YYMMDD}
  bool isCondition = false;           ///< {title?...}: the inner text where the field is there; else nothing
  std::vector<PatternPiece> inner;    ///< {title|...}: where the field is not there
};

/// A form for file names with fields in braces:
///   {title} {artist} {album} {track} {year} {genre} {name} {folder} {type} {date} {size} {n}
///   {n:03} {track:02}    numbers with at least so many digits
///   {date:YYYYMMDD}      YYYY YY MM DD hh mm ss; YYYY-MM-DD when it does not say
///   {title|text}         the text where the field is not there
///   {track?text}         the text where the field is there, nothing where it is not: {track?{track:02} - }
///   {{                   a brace
/// A format may stand before "|". These texts are patterns themselves. A "}" outside a field stands for itself.
///
/// Not there are empty and blank texts and "---", the track and the year 0, and an unknown date.
class NamePattern {
 public:
  static Result<NamePattern, PatternError> Parse(std::string_view pattern);

  /// The name for these values, without blanks around it and at most 32,767 characters long. Control characters of the
  /// values are blanks in it; characters that a file name may not hold stay.
  [[nodiscard]] std::string Text(const PatternValues& values) const;

  /// True when a field says what a list row does not: album, track, year, genre or date.
  [[nodiscard]] bool NeedsFile() const;

 private:
  explicit NamePattern(std::vector<PatternPiece> pieces);

  std::vector<PatternPiece> pieces_;
};

}  // namespace quillon
