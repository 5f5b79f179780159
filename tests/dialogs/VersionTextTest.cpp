#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/Text.h"
#include "dialogs/VersionText.h"

namespace quillon {
namespace {

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  for (const std::string_view line : Split(text, '\n')) lines.emplace_back(line);
  return lines;
}

TEST(VersionText, NamesTheVersion) {
  EXPECT_EQ(VersionText(), "Ver 1.01");
}

TEST(InformationText, SaysWhatTheProgramIsForAndTheStateItIsIn) {
  EXPECT_EQ(Lines(InformationText(true)),
            (std::vector<std::string>{
                "このプログラムは､大量にあるファイルに適切なファイル名をつけ､整理するためのプログラムです",
                "特にマルチメディアファイル（MP3、MIDIなど）に関しては、タイトルやアーティスト情報などを取得し",
                "ファイル名に付け替えることや､リストに登録されたファイルを連続再生することも可能です",
                "[プログラムの状態]", "BREGEXP.DLL : TRUE"}));
}

TEST(InformationText, EndsWithFalseWithoutTheLibraryForRegularExpressions) {
  const std::vector<std::string> without = Lines(InformationText(false));
  EXPECT_EQ(without.back(), "BREGEXP.DLL : FALSE");
  std::vector<std::string> with = Lines(InformationText(true));
  with.back() = without.back();
  EXPECT_EQ(without, with) << "nothing else depends on it";
}

TEST(InformationText, HasNoLineBreakAtItsEnd) {
  EXPECT_TRUE(InformationText(true).ends_with("TRUE"));
  EXPECT_TRUE(InformationText(false).ends_with("FALSE"));
}

}  // namespace
}  // namespace quillon
