#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/frame.h>

#include <string>
#include <vector>

#include "base/Text.h"
#include "controls/WrappedToFit.h"
#include "controls/WxText.h"

namespace quillon {
namespace {

using testing::ElementsAre;
using Texts = std::vector<std::string>;

class WrappedText : public testing::Test {
 protected:
  ~WrappedText() override { frame->Destroy(); }

  [[nodiscard]] int WidthOf(const std::string& text) const { return frame->GetTextExtent(ToWx(text)).x; }

  /// The lines of the text when it is wrapped to the width of `line`.
  [[nodiscard]] Texts Lines(const std::string& text, const std::string& line) const {
    const std::string wrapped = FromWx(WrappedToFit(*frame, text, WidthOf(line)));
    Texts lines;
    for (const std::string_view one : Split(wrapped, '\n')) lines.emplace_back(one);
    return lines;
  }

  wxFrame* frame = new wxFrame(nullptr, wxID_ANY, "text");
};

TEST_F(WrappedText, BreaksJapaneseAnywhereAndKeepsToTheWidth) {
  EXPECT_THAT(Lines("あいうえおかき", "あああ"), ElementsAre("あいう", "えおか", "き"));
  EXPECT_THAT(Lines("あいうえおかき", "あああああああ"), ElementsAre("あいうえおかき"));
}

TEST_F(WrappedText, KeepsTheBreaksThatAreThere) {
  EXPECT_THAT(Lines("あい\nうえお", "ああ"), ElementsAre("あい", "うえ", "お"));
}

TEST_F(WrappedText, NoLineBeginsWithAClosingMarkOrEndsWithAnOpeningOne) {
  EXPECT_THAT(Lines("あいう、えお", "あああ"), ElementsAre("あい", "う、え", "お"));
  EXPECT_THAT(Lines("あい「うえ」お", "あああ"), ElementsAre("あい", "「う", "え」お"));
}

TEST_F(WrappedText, WordsStayWhole) {
  EXPECT_THAT(Lines("one two", "one t"), ElementsAre("one ", "two"));
  EXPECT_THAT(Lines("longestword", "long"), ElementsAre("longestword")) << "wider than the line by itself";
}

TEST_F(WrappedText, AnEmptyTextStaysEmpty) {
  EXPECT_EQ(WrappedToFit(*frame, "", 100), "");
}

}  // namespace
}  // namespace quillon
