#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "rename/CaseConversion.h"

namespace quillon {
namespace {

TEST(ToProper, BeginsEveryWordWithACapital) {
  const std::pair<std::string, std::string> rows[] = {
      {"", ""},
      {"a", "A"},
      {"hello WORLD", "Hello World"},
      {"HELLO", "Hello"},
      {"  two  blanks ", "  Two  Blanks "},
      {"one　two", "One　Two"},
      {"tab\tline\nfeed\rreturn\vvertical\fform", "Tab\tLine\nFeed\rReturn\vVertical\fForm"},
      {std::string("nul\0nul", 7), std::string("Nul\0Nul", 7)},
      {"ｆｕｌｌ　ＷＩＤＴＨ", "Ｆｕｌｌ　Ｗｉｄｔｈ"},
      {"αβγ ДЕЖ", "Αβγ Деж"},
      {"日本 abc", "日本 Abc"},
      {"éCOLE", "École"},
  };
  for (const auto& [text, expected] : rows) EXPECT_EQ(ToProper(text), expected);
}

TEST(ToProper, OnlyBlanksAndControlsSeparateWords) {
  const std::pair<std::string, std::string> rows[] = {
      {"o'neil", "O'neil"},
      {"jean-paul", "Jean-paul"},
      {"a.b.c", "A.b.c"},
      {"(live)", "(live)"},
      {"01track", "01track"},
      {"under_score", "Under_score"},
      {"日本abc", "日本abc"},
      {"no\u00A0break", "No\u00A0break"},
      {"esc\x1B"
       "ape",
       "Esc\x1B"
       "ape"},
      {"comma,word", "Comma,word"},
  };
  for (const auto& [text, expected] : rows) EXPECT_EQ(ToProper(text), expected);
}

TEST(ToProper, KeepsBytesThatAreNotUtf8) {
  EXPECT_EQ(ToProper("\xFF"
                     "ab c\xE3\x81"),
            "\xFF"
            "ab C\xE3\x81");
}

}  // namespace
}  // namespace quillon
