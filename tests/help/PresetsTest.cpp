#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "help/HelpFolder.h"
#include "rename/BuiltInPresets.h"
#include "rename/ModifyName.h"
#include "support/RecordedProgress.h"

/// The help shows every preset that comes with the program, in the menu's order, with a result that it gives.
namespace quillon::test {
namespace {

std::string CellOf(const Node& row, const std::string& kind) {
  const std::vector<Node> cells = row.Find("./td[@class='" + kind + "']");
  EXPECT_EQ(cells.size(), 1u) << row.Text();
  if (cells.empty()) return {};
  const std::vector<Node> code = cells.front().Find("./code");
  return code.empty() ? cells.front().Text() : code.front().Text();
}

TEST(HelpPresets, AreThoseOfTheProgramWithTheirResults) {
  RegexLibrary regex;
  ASSERT_TRUE(regex.Available());
  PendingRecorder pending;
  RecordedProgress progress(pending);
  const std::vector<Node> rows = PageOf("modify.html").Find("//table[@class='presets']//tr[td]");
  const std::vector<Preset>& presets = BuiltInPresets();
  ASSERT_EQ(rows.size(), presets.size());
  for (std::size_t i = 0; i < presets.size(); ++i) {
    EXPECT_EQ(CellOf(rows[i], "preset"), presets[i].name);
    const std::string before = CellOf(rows[i], "before");
    const std::string after = CellOf(rows[i], "after");
    EXPECT_NE(before, after) << presets[i].name;
    for (const std::size_t count : {1u, 2u, 50u}) {
      EXPECT_EQ(ModifyName(before, presets[i].rules, count, regex, progress).name, after) << presets[i].name;
    }
  }
}

}  // namespace
}  // namespace quillon::test
