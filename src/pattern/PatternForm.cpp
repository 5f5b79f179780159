#include "pattern/PatternForm.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "paths/basFileControl.h"

namespace quillon {

PatternForm ShownPatternForm(const OptionValues::Extra& stored) {
  return {.pattern = stored.patterns.front().empty() ? "{title}" : stored.patterns.front(),
          .start = std::clamp(stored.patternStart, -kLargestCount, kLargestCount),
          .step = std::clamp(stored.patternStep, -kLargestCount, kLargestCount),
          .digits = std::clamp(stored.patternWidth, 1, kMostCountDigits),
          .invalid = stored.patternInvalid,
          .replacement = stored.patternReplacement};
}

void StorePatternForm(const PatternForm& form, OptionValues::Extra& stored) {
  auto& patterns = stored.patterns;
  // The form's pattern takes the place of itself further down, or of the oldest.
  const auto place = std::find(patterns.begin(), patterns.end() - 1, form.pattern);
  std::move_backward(patterns.begin(), place, place + 1);
  patterns.front() = form.pattern;
  stored.patternStart = form.start;
  stored.patternStep = form.step;
  stored.patternWidth = form.digits;
  stored.patternInvalid = form.invalid;
  stored.patternReplacement = form.replacement;
}

std::string ReasonOf(const PatternError& error) {
  switch (error.mistake) {
    case PatternMistake::kUnclosed: return "この「{」を閉じる「}」がありません";
    case PatternMistake::kBraceWithin: return "フィールドの中のここに「{」は書けません";
    case PatternMistake::kNoField: return "フィールドの名前がありません";
    case PatternMistake::kUnknownField: return "「" + error.field + "」というフィールドはありません";
    case PatternMistake::kNoFormatHere: return "このフィールドに「:」は使えません";
    case PatternMistake::kDigits: return "桁数は 1 から 20 の数で書きます";
    case PatternMistake::kNoDateForm: return "日付の書式がありません";
    case PatternMistake::kUnknownDatePart: return "日付に使えるのは YYYY YY MM DD hh mm ss です";
    case PatternMistake::kFormatWithChoice: return "「:」と「?」は一緒に使えません";
    case PatternMistake::kTooDeep: return "フィールドの重なりが深すぎます。16 段まで使えます";
  }
  return {};
}

std::string ErrorText(const PatternError& error) {
  return std::to_string(error.position) + " 文字目： " + ReasonOf(error);
}

Result<PatternRules, PatternRefusal> RulesOf(const PatternForm& form, const OptionValues::Rename& options,
                                             bool automatic) {
  if (Trim(form.pattern).empty()) return PatternRefusal{PatternBox::kPattern, 0, "書式を入力してください"};
  Result<NamePattern, PatternError> pattern = NamePattern::Parse(form.pattern);
  if (!pattern) {
    return PatternRefusal{PatternBox::kPattern, pattern.Failure().position - 1, ErrorText(pattern.Failure())};
  }
  const int position = InvalidCharacterPosition(form.replacement);
  if (form.invalid == PatternInvalid::kReplaced && position != 0) {
    return PatternRefusal{PatternBox::kReplacement, static_cast<std::size_t>(position - 1),
                          "置き換える文字列に、ファイル名に使えない文字があります"};
  }
  return PatternRules{.pattern = std::move(*pattern),
                      .start = form.start,
                      .step = form.step,
                      .digits = form.digits,
                      .invalid = form.invalid,
                      .replacement = form.replacement,
                      .skipUnnamed = options.skipUntitledRows && !automatic,
                      .findInvalid = options.checkInvalidNames && !automatic};
}

}  // namespace quillon
