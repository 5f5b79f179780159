#include "rename/RegexProblem.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "base/Text.h"

namespace quillon {
namespace {

/// Which character an error is about: PCRE2 says how many it had read when it noticed.
enum class Place { kNone, kLastRead, kNext };

struct Problem {
  int number;  ///< PCRE2's, from its page "pcre2api" and pcre2.h
  Place place;
  const char* text;
};

constexpr Problem kProblems[] = {
    {101, Place::kLastRead, "「\\」で終わっています"},
    {102, Place::kLastRead, "「\\c」の後に文字がありません"},
    {103, Place::kNext, "「\\」の後の文字が正しくありません"},
    {104, Place::kLastRead, "「{ }」の中の数の順序が逆です"},
    {105, Place::kLastRead, "「{ }」の中の数が大きすぎます"},
    {106, Place::kNone, "「[」に対する「]」がありません"},
    {107, Place::kLastRead, "「[ ]」の中では使えない書き方です"},
    {108, Place::kNext, "「[ ]」の中の範囲の順序が逆です"},
    {109, Place::kNext, "「*」「+」「?」「{ }」の前に、繰り返すものがありません"},
    {111, Place::kNext, "「(?」の後の文字が正しくありません"},
    {112, Place::kNext, "「[:名前:]」は「[ ]」の中に書きます"},
    {113, Place::kNext, "「[. .]」と「[= =]」は使えません"},
    {114, Place::kNone, "「(」に対する「)」がありません"},
    {115, Place::kNext, "ないグループを指しています"},
    {118, Place::kNone, "「(?#」に対する「)」がありません"},
    {119, Place::kNone, "かっこの重なりが深すぎます"},
    {120, Place::kNone, "正規表現が大きすぎます"},
    {122, Place::kNext, "「)」に対する「(」がありません"},
    {124, Place::kNone, "「(?(」の条件に対する「)」がありません"},
    {125, Place::kNone, "「(?<=」と「(?<!」の中は、長さが決まっていなければなりません"},
    {127, Place::kNone, "「(?(」の選択が三つ以上あります"},
    {128, Place::kNext, "「(?(」の条件が正しくありません"},
    {130, Place::kNext, "「[: :]」の中の名前が正しくありません"},
    {133, Place::kNone, "かっこの重なりが深すぎます"},
    {134, Place::kLastRead, "文字の番号が大きすぎます"},
    {135, Place::kNone, "「(?<=」と「(?<!」の中が複雑すぎます"},
    {137, Place::kLastRead, "検索する文字列では使えない書き方です"},
    {141, Place::kNext, "「(?P」の後の文字が正しくありません"},
    {142, Place::kNext, "グループの名前の書き方が正しくありません"},
    {143, Place::kLastRead, "同じ名前のグループがあります"},
    {144, Place::kNext, "グループの名前は、数字で始められません"},
    {146, Place::kLastRead, "「\\p」の書き方が正しくありません"},
    {147, Place::kLastRead, "「\\p」の後の名前が正しくありません"},
    {148, Place::kLastRead, "グループの名前が長すぎます"},
    {150, Place::kLastRead, "「[ ]」の中の範囲が正しくありません"},
    {155, Place::kLastRead, "「\\o」の後に「{」がありません"},
    {157, Place::kLastRead, "「\\g」の後が正しくありません"},
    {158, Place::kNone, "「(?R」に対する「)」がありません"},
    {160, Place::kLastRead, "「(*」の後の名前が正しくありません"},
    {161, Place::kLastRead, "グループの番号が大きすぎます"},
    {162, Place::kLastRead, "グループの名前がありません"},
    {164, Place::kNext, "「\\o{ }」の中が 8 進数ではないか、「}」がありません"},
    {167, Place::kNext, "「\\x{ }」の中が 16 進数ではないか、「}」がありません"},
    {168, Place::kNext, "「\\c」の後の文字が正しくありません"},
    {169, Place::kLastRead, "「\\k」の後が正しくありません"},
    {173, Place::kLastRead, "この番号の文字はありません"},
    {175, Place::kLastRead, "この指定は使えません"},
    {178, Place::kLastRead, "「{ }」の中に数がありません"},
    {183, Place::kLastRead, "「\\C」は使えません"},
    {184, Place::kNone, "かっこの重なりが深すぎます"},
    {186, Place::kNone, "正規表現が複雑すぎます"},
    {187, Place::kNone, "「(?<=」と「(?<!」の中が長すぎます"},
    {195, Place::kLastRead, "「(*」の後の名前が正しくありません"},
    {199, Place::kLastRead, "「\\K」は、「(?=」や「(?<=」の中では使えません"},
};

std::string WithPlace(const std::string& text, std::size_t place) {
  return text + "（" + std::to_string(place) + " 文字目）";
}

std::string PatternProblem(const RegexDefect& defect, std::size_t length) {
  const auto place = [&](std::size_t character) {
    return std::clamp<std::size_t>(character, 1, std::max<std::size_t>(length, 1));
  };
  const auto* const known = std::find_if(std::begin(kProblems), std::end(kProblems),
                                         [&](const Problem& problem) { return problem.number == defect.number; });
  if (known == std::end(kProblems)) {
    return WithPlace("正規表現が正しくありません。エラー " + std::to_string(defect.number), place(defect.offset));
  }
  switch (known->place) {
    case Place::kLastRead: return WithPlace(known->text, place(defect.offset));
    case Place::kNext: return WithPlace(known->text, place(defect.offset + 1));
    default: return known->text;
  }
}

/// A command is divided at the "/" without a "\" before them.
std::string CommandProblem(std::string_view pattern) {
  std::size_t character = 1;
  bool escaped = false;
  for (std::size_t i = 0; i < pattern.size(); i += CharacterAt(pattern, i).length, ++character) {
    if (pattern[i] == '/' && !escaped) return WithPlace("「/」は「\\/」と書きます", character);
    escaped = pattern[i] == '\\' && !escaped;
  }
  if (escaped) return WithPlace("「\\」で終わっています", character - 1);
  return "置換する文字列に「/」や「\\」は使えません";
}

}  // namespace

std::optional<std::string> RegexProblem(std::string_view pattern, std::string_view replacement, bool ignoreCase,
                                        RegexEngine& engine) {
  // A command means the same in both encodings.
  const std::optional<RegexDefect> defect = engine.Check(RegexCommand(pattern, replacement, ignoreCase ? "giu" : "gu"));
  if (!defect) return std::nullopt;
  switch (defect->number) {
    case kBregexpBadCommand: return CommandProblem(pattern);
    case kBregexpBadReplacement: return "置換する文字列の書き方が正しくありません";
    case kBregexpOutOfMemory: return "メモリが足りません";
    default: return PatternProblem(*defect, CharacterCount(pattern));
  }
}

}  // namespace quillon
