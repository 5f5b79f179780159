#include <gtest/gtest.h>

#include <cstdint>
#include <ctime>
#include <random>
#include <string>
#include <vector>

#include "base/Text.h"
#include "pattern/NamePattern.h"
#include "pattern/PatternFields.h"
#include "pattern/PatternForm.h"

namespace quillon {
namespace {

std::int64_t LocalMoment(int year, int month, int day, int hour, int minute, int second) {
  std::tm time = {};
  time.tm_year = year - 1900;
  time.tm_mon = month - 1;
  time.tm_mday = day;
  time.tm_hour = hour;
  time.tm_min = minute;
  time.tm_sec = second;
  time.tm_isdst = -1;
  return std::mktime(&time);
}

PatternValues Song() {
  PatternValues values;
  values.song = {.title = "さくら",
                 .artist = "Taki",
                 .album = "Spring",
                 .genre = "Folk",
                 .track = 3,
                 .year = 1999,
                 .lengthMs = 1000};
  values.name = "01-sakura";
  values.folder = "Music";
  values.type = "MP3";
  values.size = 12345;
  values.modified = LocalMoment(2003, 4, 5, 6, 7, 9);
  values.number = 12;
  return values;
}

std::string TextOf(std::string_view pattern, const PatternValues& values) {
  const Result<NamePattern, PatternError> parsed = NamePattern::Parse(pattern);
  return parsed ? parsed->Text(values) : "error at " + std::to_string(parsed.Failure().position);
}

struct TextCase {
  const char* pattern;
  const char* text;
};

TEST(NamePattern, GivesEveryFieldItsValue) {
  for (const auto& [pattern, text] : std::vector<TextCase>{{"", ""},
                                                           {"just text", "just text"},
                                                           {"{title}", "さくら"},
                                                           {"{artist}", "Taki"},
                                                           {"{album}", "Spring"},
                                                           {"{track}", "3"},
                                                           {"{year}", "1999"},
                                                           {"{genre}", "Folk"},
                                                           {"{name}", "01-sakura"},
                                                           {"{folder}", "Music"},
                                                           {"{type}", "MP3"},
                                                           {"{size}", "12345"},
                                                           {"{n}", "12"},
                                                           {"{date}", "2003-04-05"},
                                                           {"{artist} - {title} ({year})", "Taki - さくら (1999)"}}) {
    EXPECT_EQ(TextOf(pattern, Song()), text) << pattern;
  }
}

TEST(NamePattern, FormatsNumbersAndDates) {
  for (const auto& [pattern, text] : std::vector<TextCase>{{"{n:03}", "012"},
                                                           {"{n:3}", "012"},
                                                           {"{n:1}", "12"},
                                                           {"{track:02}", "03"},
                                                           {"{year:6}", "001999"},
                                                           {"{size:8}", "00012345"},
                                                           {"{n:20}", "00000000000000000012"},
                                                           {"{date:YYYYMMDD}", "20030405"},
                                                           {"{date:YYMMDD}", "030405"},
                                                           {"{date:YYYY年MM月DD日}", "2003年04月05日"},
                                                           {"{date:hh.mm.ss}", "06.07.09"},
                                                           {"{date:YYYYYY}", "200303"},
                                                           {"{date:hh:mm}", "06:07"}}) {
    EXPECT_EQ(TextOf(pattern, Song()), text) << pattern;
  }
}

TEST(NamePattern, TheCountersDigitsAreThoseOfThePatternOrElseTheGivenOnes) {
  PatternValues values = Song();
  values.numberDigits = 4;
  EXPECT_EQ(TextOf("{n} {n:03}", values), "0012 012");
  values.number = -5;
  EXPECT_EQ(TextOf("{n} {n:1}", values), "-0005 -5");
}

TEST(NamePattern, PutsOtherTextsWhereAFieldIsOrIsNotThere) {
  const PatternValues song = Song();
  PatternValues bare;
  bare.name = "file";
  bare.number = 7;
  struct Case {
    const char* pattern;
    const char* there;
    const char* not_there;
  };
  for (const auto& [pattern, there, notThere] :
       std::vector<Case>{{"{artist|不明}", "Taki", "不明"},
                         {"{title|{name}}", "さくら", "file"},
                         {"{title|{artist|{n:02}}}", "さくら", "07"},
                         {"{artist}{artist? - }{title|{name}}", "Taki - さくら", "file"},
                         {"{track?{track:02} - }{name}", "03 - 01-sakura", "file"},
                         {"{track:02|00} {name}", "03 01-sakura", "00 file"},
                         {"{name}{year? ({year})}", "01-sakura (1999)", "file"},
                         {"{name}{date? [{date:MM}]}", "01-sakura [04]", "file"},
                         {"{name}{album? {genre?, }}!", "01-sakura , !", "file!"},
                         {"{year|{date:YYYY|----}}", "1999", "----"},
                         {"{type|none}", "MP3", "none"},
                         {"{folder|root}", "Music", "root"},
                         {"{size|x}{n|x}", "1234512", "07"}}) {
    EXPECT_EQ(TextOf(pattern, song), there) << pattern;
    EXPECT_EQ(TextOf(pattern, bare), notThere) << pattern;
  }
}

TEST(NamePattern, BlanksAndDashesAreNoTitle) {
  for (const char* title : {"", " ", "---", " --- ", "\r\n", "\t"}) {
    PatternValues values;
    values.song.title = values.song.artist = values.song.album = values.song.genre = title;
    EXPECT_EQ(TextOf("{title|1}{artist|2}{album|3}{genre|4}", values), "1234") << title;
  }
  PatternValues values;
  values.song.title = "--";
  EXPECT_EQ(TextOf("{title|1}", values), "--");
}

TEST(NamePattern, ReadsBracesThatAreNoFields) {
  for (const auto& [pattern, text] : std::vector<TextCase>{{"{{", "{"},
                                                           {"{{title}", "{title}"},
                                                           {"{{{n}}", "{12}"},
                                                           {"}a}", "}a}"},
                                                           {"{{{{", "{{"},
                                                           {"{album|x}}", "Spring}"},
                                                           {"{album?{{}", "{"},
                                                           {"a|b?c:d", "a|b?c:d"},
                                                           {"{album?a|b:c?d}", "a|b:c?d"}}) {
    EXPECT_EQ(TextOf(pattern, Song()), text) << pattern;
  }
}

TEST(NamePattern, PutsValuesOnOneLineAndCutsTheBlanksAroundThem) {
  PatternValues values;
  values.song.title =
      "  a\r\nb\nc\td\x01"
      "e\u0085f\u2028g  ";
  values.song.artist = "x\xFFy";  // a byte of no character stays
  EXPECT_EQ(TextOf("[{title}]", values), "[a b c d e f g]");
  EXPECT_EQ(TextOf("{artist}", values), "x\xFFy");
  EXPECT_EQ(TextOf("  {title} ", values), "a b c d e f g");
  EXPECT_EQ(TextOf("{album} / {title}", values), "/ a b c d e f g") << "separators are not the pattern's business";
}

TEST(NamePattern, NoNameIsLongerThanTheLongest) {
  PatternValues values;
  for (int i = 0; i < 20000; ++i) values.song.title += "あ";
  EXPECT_EQ(CharacterCount(TextOf("{title}{title}", values)), 32767u);
  std::string many;
  for (int i = 0; i < 5000; ++i) many += "{title}";
  EXPECT_EQ(CharacterCount(TextOf(many, values)), 32767u) << "and no more memory is used than for a few";
}

TEST(NamePattern, TellsWhereAPatternIsWrongAndWhy) {
  struct Case {
    const char* pattern;
    std::size_t position;
    const char* reason;
  };
  constexpr const char* kUnclosed = "この「{」を閉じる「}」がありません";
  constexpr const char* kDigits = "桁数は 1 から 20 の数で書きます";
  constexpr const char* kDate = "日付に使えるのは YYYY YY MM DD hh mm ss です";
  constexpr const char* kFormat = "このフィールドに「:」は使えません";
  constexpr const char* kBrace = "フィールドの中のここに「{」は書けません";
  for (const auto& [pattern, position, reason] :
       std::vector<Case>{{"{titel}", 2, "「titel」というフィールドはありません"},
                         {"曲名 {Title}", 5, "「Title」というフィールドはありません"},
                         {"{ title}", 2, "「 title」というフィールドはありません"},
                         {"{title|{nam}}", 9, "「nam」というフィールドはありません"},
                         {"{}", 2, "フィールドの名前がありません"},
                         {"{:02}", 2, "フィールドの名前がありません"},
                         {"{|x}", 2, "フィールドの名前がありません"},
                         {"{", 1, kUnclosed},
                         {"あ{title", 2, kUnclosed},
                         {"{title|", 1, kUnclosed},
                         {"{title|{name}", 1, kUnclosed},
                         {"{title|{name", 8, kUnclosed},
                         {"{n:03", 1, kUnclosed},
                         {"{n:03|x", 1, kUnclosed},
                         {"{{{title", 3, kUnclosed},
                         {"{title{name}}", 7, kBrace},
                         {"{n:0{n}}", 5, kBrace},
                         {"{title:02}", 7, kFormat},
                         {"{artist:}", 8, kFormat},
                         {"{name:YYYY|x}", 6, kFormat},
                         {"{n:}", 4, kDigits},
                         {"{n:0}", 4, kDigits},
                         {"{track:02? - }", 10, "「:」と「?」は一緒に使えません"},
                         {"{date:YYYY?x}", 11, "「:」と「?」は一緒に使えません"},
                         {"{n:21}", 4, kDigits},
                         {"{n:99999999999999999999}", 4, kDigits},
                         {"{n:x}", 4, kDigits},
                         {"{n:-3}", 4, kDigits},
                         {"{track: 2}", 8, kDigits},
                         {"{date:}", 7, "日付の書式がありません"},
                         {"{date:|x}", 7, "日付の書式がありません"},
                         {"{date:yyyy}", 7, kDate},
                         {"{date:YYYY-Mm}", 12, kDate},
                         {"{date:YYYYY}", 11, kDate},
                         {"{date:年HHmm}", 8, kDate}}) {
    const Result<NamePattern, PatternError> parsed = NamePattern::Parse(pattern);
    ASSERT_FALSE(parsed) << pattern;
    EXPECT_EQ(parsed.Failure().position, position) << pattern;
    EXPECT_EQ(ReasonOf(parsed.Failure()), reason) << pattern;
  }
}

std::string Nested(int levels) {
  std::string pattern = "x";
  for (int i = 0; i < levels; ++i) pattern.insert(0, "{album|").append("}");
  return pattern;
}

TEST(NamePattern, PatternsLieInOneAnotherSixteenTimesAtMost) {
  EXPECT_EQ(TextOf(Nested(16), {}), "x");
  EXPECT_EQ(TextOf(Nested(15) + Nested(16), {}), "xx") << "one beside another does not count";
  const Result<NamePattern, PatternError> deep = NamePattern::Parse(Nested(17));
  ASSERT_FALSE(deep);
  EXPECT_EQ(deep.Failure(), (PatternError{16 * 7 + 1, PatternMistake::kTooDeep}));
  EXPECT_FALSE(NamePattern::Parse(Nested(3000)));
}

TEST(NamePattern, KnowsWhetherTheFileMustBeRead) {
  for (const char* pattern : {"", "{title}{artist}{name}{folder}{type}{size}{n}", "album {{date}", "{title|{n}}"}) {
    EXPECT_FALSE(NamePattern::Parse(pattern)->NeedsFile()) << pattern;
  }
  for (const char* pattern : {"{album}", "{track}", "{year}", "{genre}", "{date}", "{title|{album}}", "{n?{n}{year}}",
                              "x{title|{artist|{name?{genre}}}}"}) {
    EXPECT_TRUE(NamePattern::Parse(pattern)->NeedsFile()) << pattern;
  }
}

TEST(NamePattern, WhatTheButtonsInsertArePatterns) {
  for (const PatternFieldEntry& entry : PatternFieldEntries()) {
    EXPECT_FALSE(TextOf(entry.text, Song()).empty()) << entry.text;
    EXPECT_EQ(EntryOf(entry.field).name, entry.name);
    EXPECT_EQ(FieldNamed(entry.name), entry.field);
  }
}

TEST(NamePattern, AnyTextIsEitherAPatternOrHasAnErrorAtOneOfItsCharacters) {
  const std::vector<std::string> pieces = {"{",  "}",    "{{", "|",  "?", ":",    "title", "track",   "date",  "n",
                                           "02", "YYYY", "MM", "あ", " ", "\xFF", "x",     "{title}", "{n:03}"};
  std::mt19937 random(20240401);  // NOLINT(cert-msc51-cpp): every run tries the same texts
  int good = 0;
  for (int run = 0; run < 20000; ++run) {
    std::string pattern;
    for (std::size_t left = random() % 12; left > 0; --left) pattern += pieces[random() % pieces.size()];
    const Result<NamePattern, PatternError> parsed = NamePattern::Parse(pattern);
    if (parsed) {
      ++good;
      EXPECT_LE(parsed->Text(Song()).size(), 32767u * 4) << pattern;
    } else {
      EXPECT_GE(parsed.Failure().position, 1u) << pattern;
      EXPECT_LE(parsed.Failure().position, CharacterCount(pattern)) << pattern;
    }
  }
  EXPECT_GT(good, 1000);
}

}  // namespace
}  // namespace quillon
