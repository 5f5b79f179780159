#include <gtest/gtest.h>

#include <string>

#include "app/CommandFixture.h"
#include "app/ListCommands.h"
#include "app/LoadCommands.h"
#include "support/Growth.h"
#include "support/Rows.h"

namespace quillon {
namespace {

TEST(LoadScale, AFolderLoadIsNotQuadratic) {
  const auto work = [](int count) {
    test::CommandFixture f;
    for (int i = 1; i <= count; ++i) f.files.AddFile("/m/" + std::to_string(i) + ".txt");
    f.options.find.filterByExtension = false;
    LoadCommands loader(f.session, f.files, {f.ports.search, f.ports.progress, f.ports.folders}, f.screen);
    const double seconds = test::Seconds([&] { loader.LoadFolder("/m/"); });
    EXPECT_EQ(f.list.Count(), count);
    return seconds;
  };
  EXPECT_FALSE(test::GrowsQuadratically(work));
}

TEST(LoadScale, RemovingUncheckedRowsIsNotQuadratic) {
  const auto work = [](int count) {
    test::CommandFixture f;
    ListCommands commands(f.session, f.screen);
    for (int i = 1; i <= count; ++i) {
      f.list.Add(test::RowFor("/m/" + std::to_string(i) + ".txt", f.style));
      if (i % 2 == 1) f.list.SetChecked(i, true);
    }
    const double seconds = test::Seconds([&] { commands.mnuUnChkListRem(); });
    EXPECT_EQ(f.list.Count(), (count + 1) / 2);
    return seconds;
  };
  EXPECT_FALSE(test::GrowsQuadratically(work));
}

}  // namespace
}  // namespace quillon
