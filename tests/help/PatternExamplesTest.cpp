#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ctime>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "help/HelpFolder.h"
#include "pattern/NamePattern.h"
#include "pattern/PatternFields.h"
#include "pattern/PatternForm.h"

/// The names and the errors that the page of patterns shows are those of the patterns.
namespace quillon::test {
namespace {

using testing::HasSubstr;

std::int64_t Noon(const std::string& date) {
  std::tm time = {};
  time.tm_year = std::stoi(date.substr(0, 4)) - 1900;
  time.tm_mon = std::stoi(date.substr(5, 2)) - 1;
  time.tm_mday = std::stoi(date.substr(8, 2));
  time.tm_hour = 12;
  time.tm_isdst = -1;
  return std::mktime(&time);
}

void SetValue(PatternValues& values, const std::string& field, const std::string& text) {
  const int number = text.empty() || text[0] < '0' || text[0] > '9' ? 0 : std::stoi(text);
  const std::map<std::string, std::function<void()>> kSetters = {{"title", [&] { values.song.title = text; }},
                                                                 {"artist", [&] { values.song.artist = text; }},
                                                                 {"album", [&] { values.song.album = text; }},
                                                                 {"genre", [&] { values.song.genre = text; }},
                                                                 {"track", [&] { values.song.track = number; }},
                                                                 {"year", [&] { values.song.year = number; }},
                                                                 {"name", [&] { values.name = text; }},
                                                                 {"folder", [&] { values.folder = text; }},
                                                                 {"type", [&] { values.type = text; }},
                                                                 {"date", [&] { values.modified = Noon(text); }},
                                                                 {"size", [&] { values.size = std::stoul(text); }},
                                                                 {"n", [&] { values.number = number; }}};
  kSetters.at(field)();
}

/// One for each column behind the first.
std::vector<PatternValues> Samples() {
  std::vector<PatternValues> samples(2);
  std::size_t fields = 0;
  for (const Node& row : PageOf("pattern.html").Find("//table[@class='samples']//tr[td]")) {
    const std::vector<Node> cells = row.Find("./td");
    for (std::size_t i = 0; i < samples.size(); ++i) SetValue(samples[i], cells.at(0).Text(), cells.at(i + 1).Text());
    ++fields;
  }
  EXPECT_EQ(fields, PatternFieldEntries().size());
  return samples;
}

TEST(HelpPatterns, GiveTheNamesThatTheyShow) {
  const std::vector<PatternValues> samples = Samples();
  const std::vector<Node> rows = PageOf("pattern.html").Find("//table[@class='patterns']//tr[td]");
  EXPECT_GE(rows.size(), 10u);
  for (const Node& row : rows) {
    const std::vector<Node> cells = row.Find("./td");
    const std::string pattern = cells.at(0).Text();
    const Result<NamePattern, PatternError> parsed = NamePattern::Parse(pattern);
    ASSERT_TRUE(parsed) << pattern;
    for (std::size_t i = 0; i < samples.size(); ++i) {
      EXPECT_EQ(parsed->Text(samples[i]), cells.at(i + 1).Text()) << pattern;
    }
  }
}

TEST(HelpPatterns, HaveTheErrorsThatTheyShow) {
  const std::vector<Node> rows = PageOf("pattern.html").Find("//table[@class='errors']//tr[td]");
  EXPECT_GE(rows.size(), 8u);
  for (const Node& row : rows) {
    const std::vector<Node> cells = row.Find("./td");
    const Result<NamePattern, PatternError> parsed = NamePattern::Parse(cells.at(0).Text());
    ASSERT_FALSE(parsed) << cells.at(0).Text();
    EXPECT_EQ(ErrorText(parsed.Failure()), cells.at(1).Text());
  }
}

TEST(HelpPatterns, ArePatternsWhereverThePageShowsOne) {
  std::size_t count = 0;
  for (const Node& code :
       PageOf("pattern.html")
           .Find("//code[not(ancestor::table[@class='errors']) and not(ancestor::table[@class='patterns'])]")) {
    if (code.Text().find('{') == std::string::npos) continue;
    EXPECT_TRUE(NamePattern::Parse(code.Text())) << code.Text();
    ++count;
  }
  EXPECT_GE(count, 20u);
}

TEST(HelpPatterns, NameEveryFieldAndItsButton) {
  for (const PatternFieldEntry& entry : PatternFieldEntries()) {
    const std::string row = "//tr[td[1]/code='{" + std::string(entry.name) + "}'][td[2]='" + entry.caption + "']";
    EXPECT_EQ(PageOf("pattern.html").Find(row).size(), 1u) << entry.name;
  }
}

}  // namespace
}  // namespace quillon::test
