#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "plan/PlanLines.h"

namespace quillon::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<PlanLine> Plan(const std::string& text) {
  const auto plan = ReadPlanLines(text);
  EXPECT_TRUE(plan.Ok());
  return plan ? *plan : std::vector<PlanLine>();
}

std::vector<NameLine> NamesIn(const std::string& text) {
  const auto names = ReadNameLines(text);
  EXPECT_TRUE(names.Ok());
  return names ? *names : std::vector<NameLine>();
}

TEST(PlanLines, ObjectsAreReadWithEveryLineEnd) {
  const PlanLine first = {1, "/a", "b"};
  PlanLine second = {2, "/b", "\xFF"};
  const std::string one = R"({"old":"/a","new":"b"})";
  const std::string two = R"({"new":"?","new_bytes":"ff","old":"/b","code":3})";
  EXPECT_THAT(Plan(one + "\n" + two + "\n"), ElementsAre(first, second));
  second.number = 4;
  EXPECT_THAT(Plan("\xEF\xBB\xBF" + one + "\r\n\r\n \t\n" + two), ElementsAre(first, second));
  EXPECT_THAT(Plan(""), IsEmpty());
}

TEST(PlanLines, ADamagedLineIsToldWithItsNumber) {
  for (const char* const line :
       {"x", "[]", "{}", R"({"old":"/a"})", R"({"old":"/a","new":""})", R"({"old":"/a","new":1})",
        R"({"old":"/a","new":"b","new_bytes":"f"})", R"({"old":"/a","new":"b","new_bytes":"fG"})"}) {
    const auto plan = ReadPlanLines(std::string(R"({"old":"/a","new":"b"})") + "\n\n" + line + "\n");
    ASSERT_FALSE(plan.Ok()) << line;
    EXPECT_EQ(plan.Failure(), 3U);
  }
}

TEST(NameLines, OneNamePerLine) {
  const std::vector<NameLine> expected = {{1, std::nullopt, "一"}, {2, std::nullopt, " {two} "}};
  EXPECT_EQ(NamesIn("一\n {two} \n"), expected);
  EXPECT_EQ(NamesIn("\xEF\xBB\xBF一\r\n {two} "), expected);
  EXPECT_EQ(NamesIn("一\n {two} \n\n \r\n"), expected) << "blank lines at the end";
  EXPECT_THAT(NamesIn(""), IsEmpty());
}

TEST(NameLines, OrObjectsThatSayWhichFile) {
  EXPECT_THAT(NamesIn("{\"path\":\"/a.mid\",\"name\":\"一\"}\r\n\r\n { \"name\":\"two\",\"path\":\"b\"}\n"),
              ElementsAre(NameLine{1, "/a.mid", "一"}, NameLine{3, "b", "two"}));
}

TEST(NameLines, ABlankNameAndOneThatIsNotUtf8AreToldWithTheirNumber) {
  for (const char* const line : {"", " ", "\t ", "\x82\xA0"}) {
    const auto names = ReadNameLines(std::string("一\n") + line + "\n二\n");
    ASSERT_FALSE(names.Ok()) << line;
    EXPECT_EQ(names.Failure(), 2U);
  }
}

TEST(NameLines, BlankLinesMayStandBeforeObjects) {
  EXPECT_THAT(NamesIn("\n \r\n{\"path\":\"b\",\"name\":\"two\"}\n"), ElementsAre(NameLine{3, "b", "two"}));
}

TEST(NameLines, ADamagedObjectIsToldWithItsNumber) {
  for (const char* const line :
       {R"({"path":"/a","name":" "})", "x", "{}", R"({"path":"","name":"x"})", R"({"path":"/a"})", R"({"name":"x"})"}) {
    const auto names = ReadNameLines(std::string("{\"path\":\"/a\",\"name\":\"x\"}\n") + line);
    ASSERT_FALSE(names.Ok()) << line;
    EXPECT_EQ(names.Failure(), 2U);
  }
}

TEST(NameLines, ANameMayBeginWithABrace) {
  EXPECT_EQ(NamesIn("{live}\n").size(), 1U);
  EXPECT_EQ(NamesIn("{\n").front().name, "{");
}

}  // namespace
}  // namespace quillon::test
