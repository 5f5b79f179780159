#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/CommandFixture.h"
#include "app/NameCommands.h"
#include "support/Growth.h"
#include "support/MemoryFileSystem.h"
#include "support/Recorders.h"
#include "support/Rows.h"

namespace quillon {
namespace {

/// A disk on which everything succeeds at once.
struct WillingDisk final : FileChanges {
  FileOutcome Rename(const std::string&, const std::string&) override { return std::nullopt; }
  MoveOutcome Move(const std::string&, const std::string&, Progress*) override { return NotKept(); }
  void RemoveLeftovers(const std::string&) override {}
  FileOutcome Remove(const std::string&) override { return std::nullopt; }
  int Recycle(const std::string&, std::uintptr_t) override { return 0; }
};

struct NoRegex final : RegexEngine {
  std::optional<std::string> Replace(std::string_view, std::string_view) override { return std::nullopt; }
};

struct LongList : test::CommandFixture {
  WillingDisk disk;
  NoRegex regex;
  RenameEngine engine{list, mode, disk, ports.player, style};
  ApplyCommands applying{session, engine, files, screen};
  NameCommands names{session, applying, regex, ports.progress, screen};

  explicit LongList(int count) {
    for (int i = 1; i <= count; ++i) {
      FileItem row = test::RowFor("/m/" + std::to_string(i) + ".mid", PathStyle::kLinux);
      row.title = "title " + std::to_string(i);
      row.checked = true;
      list.Add(row);
    }
    list.SelectOnly(count);
  }
};

struct Command {
  const char* name;
  std::function<void(LongList&)> run;
};

TEST(RenameScale, NoBatchIsQuadratic) {
  const std::vector<Command> commands = {
      {"apply",
       [](LongList& all) {
         for (int i = 1; i <= all.list.Count(); ++i) all.list.SetRenameName(i, "n" + std::to_string(i));
         EXPECT_EQ(all.applying.ApplyRenameBatch(Rows::kChecked).applied, all.list.Count());
       }},
      {"apply with failures",
       [](LongList& all) {
         for (int i = 1; i <= all.list.Count(); ++i) all.list.SetRenameName(i, "");
         EXPECT_EQ(all.applying.ApplyRenameBatch(Rows::kAll).skipped, all.list.Count());
       }},
      {"titles",
       [](LongList& all) {
         all.options.rename.applyRules = true;
         all.options.modify.rules[0] = {true, "title", "song"};
         all.names.RenameToTitles(Rows::kAll);
         EXPECT_EQ(all.list.Row(1).renameName, "song 1");
       }},
      {"modify and apply",
       [](LongList& all) {
         all.mode.automatic = true;
         all.options.modify.rules[0] = {true, "1", "one"};
         EXPECT_EQ(all.names.ModifyRows(Rows::kAll, all.options.modify).end, RunEnd::kComplete);
         EXPECT_EQ(all.list.Row(1).Location(), "/m/one.mid");
       }},
  };
  for (const Command& command : commands) {
    const auto work = [&](int count) {
      LongList all(count);
      return test::Seconds([&] { command.run(all); });
    };
    EXPECT_FALSE(test::GrowsQuadratically(work)) << command.name;
  }
}

}  // namespace
}  // namespace quillon
