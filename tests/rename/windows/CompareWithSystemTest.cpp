#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>

#include "SystemConversion.h"
#include "base/Text.h"
#include "rename/WidthConversion.h"

namespace quillon::test {
namespace {

std::string One(char32_t c) {
  std::string text;
  AppendUtf8(text, c);
  return text;
}

/// Our results where they differ from the system's on purpose.
using Differences = std::map<std::string, std::string>;

void Compare(const std::string& text, const std::function<std::string(const std::string&)>& ours,
             SystemConversion conversion, const Differences& differences) {
  const std::string system = Convert(conversion, text);
  const auto meant = differences.find(text);
  const std::string expected = meant == differences.end() ? system : meant->second;
  EXPECT_EQ(ours(text), expected) << std::hex << static_cast<unsigned>(CharacterAt(text, 0).codePoint) << " system "
                                  << static_cast<unsigned>(CharacterAt(system, 0).codePoint);
  EXPECT_TRUE(meant == differences.end() || system != expected) << "no difference any more: " << text;
}

template <class Ours>
void CompareBasicPlane(Ours ours, SystemConversion conversion, const Differences& differences) {
  for (char32_t c = 1; c < 0x10000; ++c) {
    if (c < 0xD800 || c >= 0xE000) Compare(One(c), ours, conversion, differences);
  }
}

// WidthConversion.h gives the reasons.
TEST(CompareWithSystem, NarrowForms) {
  CompareBasicPlane(ToHalfWidth, SystemConversion::kHalfWidth,
                    {{"＼", "\\"}, {"ヸ", "ヸ"}, {"ヹ", "ヹ"}, {"ヾ", "ヾ"}});
}

TEST(CompareWithSystem, WideForms) {
  CompareBasicPlane(ToFullWidth, SystemConversion::kFullWidth,
                    {{"\\", "＼"}, {"ﾞ", "゛"}, {"ﾟ", "゜"}, {"゛", "゛"}, {"゜", "゜"}});
}

TEST(CompareWithSystem, VoicedPairs) {
  for (char32_t kana = 0xFF61; kana < 0xFF9E; ++kana) {
    for (const std::string mark : {"ﾞ", "ﾟ"}) {
      const std::string text = One(kana) + mark;
      const std::string system = Convert(SystemConversion::kFullWidth, text);
      const std::string joined = CharacterCount(system) == 1 ? system : ToFullWidth(One(kana)) + ToFullWidth(mark);
      EXPECT_EQ(ToFullWidth(text), joined) << text;
      EXPECT_EQ(ToHalfWidth(ToFullWidth(text)), text);
    }
  }
}

// The system only maps a letter when the mapping can be reversed. Unicode's simple mappings, which all text here
// follows, also map the other forms of a letter: signs that are letters by another name, variant shapes, the title case
// of digraphs, and "i" with and without its dot.
TEST(CompareWithSystem, LowerCase) {
  CompareBasicPlane(ToLower, SystemConversion::kLower,
                    {{"\u2126", "ω"},
                     {"\u212A", "k"},
                     {"\u212B", "å"},
                     {"\u03F4", "θ"},  // ohm, kelvin, ångström, theta
                     {"\u1E9E", "ß"},  // capital sharp s
                     {"ǅ", "ǆ"},
                     {"ǈ", "ǉ"},
                     {"ǋ", "ǌ"},
                     {"ǲ", "ǳ"},  // digraphs
                     {"\u0130", "i"}});
}

TEST(CompareWithSystem, UpperCase) {
  CompareBasicPlane(
      ToUpper, SystemConversion::kUpper,
      {{"\u00B5", "\u039C"}, {"\u0345", "Ι"}, {"\u1FBE", "Ι"},  // micro sign, iota below and beside a letter
       {"\u017F", "S"},      {"\u1E9B", "Ṡ"},                   // long s
       {"ς", "Σ"},           {"ϐ", "Β"},      {"ϑ", "Θ"},      {"ϕ", "Φ"},      {"ϖ", "Π"},           {"ϰ", "Κ"},
       {"ϱ", "Ρ"},           {"ϵ", "Ε"},      {"\u1C80", "В"}, {"\u1C81", "Д"}, {"\u1C82", "О"},      {"\u1C83", "С"},
       {"\u1C84", "Т"},      {"\u1C85", "Т"}, {"\u1C86", "Ъ"}, {"\u1C87", "Ѣ"}, {"\u1C88", "\uA64A"}, {"ǅ", "Ǆ"},
       {"ǈ", "Ǉ"},           {"ǋ", "Ǌ"},      {"ǲ", "Ǳ"},  // digraphs
       {"\u0131", "I"}});
}

}  // namespace
}  // namespace quillon::test
