#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "rename/ModifyRenameNames.h"
#include "rename/TitleRename.h"
#include "rename/basQuillon.h"
#include "support/Growth.h"
#include "support/MemoryFileSystem.h"
#include "support/Recorders.h"
#include "support/Rows.h"

namespace quillon {
namespace {

/// A disk on which everything succeeds at once.
struct WillingDisk final : FileChanges {
  FileOutcome Rename(const std::string&, const std::string&) override { return std::nullopt; }
  MoveOutcome Move(const std::string&, const std::string&, CopyProgress*) override { return NotKept(); }
  void RemoveLeftovers(const std::string&) override {}
  FileOutcome Remove(const std::string&) override { return std::nullopt; }
  int Recycle(const std::string&, std::uintptr_t) override { return 0; }
};

struct NoRegex final : RegexEngine {
  std::optional<std::string> Replace(std::string_view, std::string_view) override { return std::nullopt; }
};

struct LongList {
  test::MemoryFileSystem files;
  WillingDisk disk;
  NoRegex regex;
  test::Recorders ports;
  FileList list{PathStyle::kLinux};
  OptionValues options;
  ApplyMode mode;
  RenameEngine engine{
      list, options, mode, {files, disk, ports.boxes, ports.filePanel, ports.window, ports.player}, PathStyle::kLinux};

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
         EXPECT_EQ(all.engine.ApplyRenameBatch(false).applied, all.list.Count());
       }},
      {"apply with failures",
       [](LongList& all) {
         for (int i = 1; i <= all.list.Count(); ++i) all.list.SetRenameName(i, "");
         EXPECT_EQ(all.engine.ApplyRenameBatch(true).skipped, all.list.Count());
       }},
      {"titles",
       [](LongList& all) {
         all.options.rename.applyRules = true;
         all.options.modify.rules[0] = {true, "title", "song"};
         TitleRename titles(all.list, all.options, all.mode, all.engine,
                            {all.regex, all.ports.pending, all.ports.progress, all.ports.window, all.ports.boxes});
         titles.RenameToTitles(true);
         EXPECT_EQ(all.list.Row(1).renameName, "song 1");
       }},
      {"modify and apply",
       [](LongList& all) {
         all.mode.automatic = true;
         all.options.modify.rules[0] = {true, "1", "one"};
         const ModifyOutcome outcome = ModifyRenameNames(
             all.list, all.options, all.mode, all.engine,
             {all.regex, all.ports.pending, all.ports.progress, all.ports.window, all.ports.boxes}, true);
         EXPECT_FALSE(outcome.stopped);
         EXPECT_EQ(all.list.Row(1).location, "/m/one.mid");
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
