#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string_view>

#include "settings/TextConversion.h"

namespace quillon {
namespace {

TEST(IntegerFromText, ReadsNumbersLikeBasic) {
  const struct {
    const char* name;
    std::string_view text;
    std::optional<std::int16_t> expected;
  } rows[] = {
      {"plain", "1", 1},
      {"blanks around", " 1 ", 1},
      {"minus", "-1", -1},
      {"plus", "+1", 1},
      {"leading zeros", "0001", 1},
      {"fraction below a half", "1.4", 1},
      {"half to the even neighbour, down", "2.5", 2},
      {"half to the even neighbour, up", "1.5", 2},
      {"half of nothing", "0.5", 0},
      {"negative half, down", "-1.5", -2},
      {"negative half, up", "-2.5", -2},
      {"above a half", "2.51", 3},
      {"no digit before the point", ".6", 1},
      {"no digit behind the point", "7.", 7},
      {"exponent", "1.2e2", 120},
      {"largest", "32767", 32767},
      {"rounded down to the largest", "32767.4", 32767},
      {"rounded up out of range", "32767.5", std::nullopt},
      {"one too large", "32768", std::nullopt},
      {"smallest", "-32768", -32768},
      {"one too small", "-32769", std::nullopt},
      {"far too large", "1e999", std::nullopt},
      {"the word for true", "True", -1},
      {"the word for false", "False", 0},
      {"words in any case", "TRUE", -1},
      {"empty", "", std::nullopt},
      {"blanks only", "  ", std::nullopt},
      {"a word", "yes", std::nullopt},
      {"a number and more", "1x", std::nullopt},
      {"two numbers", "1 2", std::nullopt},
      {"only a sign", "-", std::nullopt},
      {"two signs", "+-1", std::nullopt},
      {"only a point", ".", std::nullopt},
      {"hexadecimal", "0x1", std::nullopt},
      {"infinity", "inf", std::nullopt},
      {"negative infinity", "-inf", std::nullopt},
      {"not a number", "nan", std::nullopt},
      {"full-width digit", "１", std::nullopt},
      {"the word and more", "Truely", std::nullopt},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(IntegerFromText(row.text), row.expected);
  }
}

TEST(BooleanFromText, AcceptsWordsAndNumbers) {
  const struct {
    const char* name;
    std::string_view text;
    std::optional<bool> expected;
  } rows[] = {
      {"true", "True", true},
      {"false", "False", false},
      {"lower case", "false", false},
      {"upper case", "TRUE", true},
      {"blanks around", " True ", true},
      {"0", "0", false},
      {"1", "1", true},
      {"-1", "-1", true},
      {"beyond 16 bits", "70000", true},
      {"less than a half is not 0", "0.1", true},
      {"zero with a fraction", "0.0", false},
      {"empty", "", std::nullopt},
      {"a word", "on", std::nullopt},
      {"in quotes", "\"True\"", std::nullopt},
      {"a letter too many", "Falsee", std::nullopt},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(BooleanFromText(row.text), row.expected);
  }
}

}  // namespace
}  // namespace quillon
