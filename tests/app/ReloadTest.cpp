#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/CommandFixture.h"
#include "app/LoadCommands.h"
#include "support/ByteOrder.h"
#include "support/MediaBuilders.h"
#include "support/MemoryFileSystem.h"
#include "support/Recorders.h"
#include "support/Rows.h"
#include "support/SongBuilders.h"

namespace quillon {
namespace {

using test::ByteOrder;
using test::Locations;
using Indices = std::vector<int>;
using Texts = std::vector<std::string>;

const char* const kQuestion =
    "box [再読み込み] 再読み込みを行うと現在の編集内容はすべて失われます。実行しますか (question, ok/cancel)";
const char* const kAutoOn = "box [設定] 自動適応モードが有効になりました (information, ok)";

struct Fixture : test::CommandFixture {
  LoadCommands loader{
      session, files, {ports.search, ports.progress, ports.folders}, screen, std::chrono::milliseconds(0)};

  explicit Fixture(const Texts& names) {
    options.find.filterByExtension = false;
    options.system.suppressConfirmations = true;
    for (const std::string& name : names) files.AddFile("/m/" + name, "12345");
    if (!names.empty()) loader.LoadFolder("/m/");
    ports.log.Clear();
  }
};

TEST(mnuReload, ReadsTheTagsThatTheOptionsAskForLikeEveryLoad) {
  Fixture f({"a.txt"});
  const std::string song = test::FlacFile({{"TITLE", "歌"}});
  for (const char* path : {"/n/a.flac", "/n/b.flac", "/o/c.flac"}) f.files.AddFile(path, song);
  f.loader.LoadPath("/n/a.flac");
  EXPECT_EQ(f.list.Row(2).title, "---");
  f.options.extra.readMoreTags = true;
  f.loader.LoadPath("/n/b.flac");
  f.loader.LoadFolder("/o/");
  EXPECT_EQ(f.list.Row(3).title, "歌");
  EXPECT_EQ(f.list.Row(4).title, "歌");
  EXPECT_EQ(f.list.Row(2).title, "---");
  f.loader.mnuReload();
  EXPECT_EQ(f.list.Row(2).title, "歌");
}

TEST(mnuReload, AsksAndStopsOnCancel) {
  Fixture f({"a.txt"});
  f.options.system.suppressConfirmations = false;
  f.options.update.automatic = true;
  f.list.SetRenameName(1, "edited");
  f.ports.boxes.Answer(false);
  f.loader.mnuReload();
  EXPECT_EQ(f.ports.log.Events(), Texts({kQuestion}));
  EXPECT_EQ(f.list.Row(1).renameName, "edited");
  EXPECT_FALSE(f.mode.automatic);
}

TEST(mnuReload, EndsAtTheNextRowWhenTheWindowCloses) {
  Fixture f({"a.txt", "b.txt", "c.txt"});
  f.options.update.automatic = true;
  for (int row = 1; row <= 3; ++row) f.list.SetRenameName(row, "edited");
  f.ports.pending.At(2, [&] { f.loader.Cancel(); });
  f.loader.mnuReload();
  EXPECT_EQ(f.list.Count(), 3);
  EXPECT_EQ(f.list.Row(3).renameName, "edited");
  EXPECT_TRUE(f.ports.log.StartingWith("box").empty());
}

TEST(mnuReload, AsksNothingWhenConfirmationsAreOff) {
  Fixture f({"a.txt"});
  f.options.system.suppressConfirmations = true;
  f.list.SetRenameName(1, "edited");
  f.loader.mnuReload();
  EXPECT_EQ(f.ports.log.StartingWith("box"), Texts());
  EXPECT_EQ(f.list.Row(1).renameName, "a");
}

TEST(mnuReload, ShowsEveryStepInItsOrder) {
  Fixture f({"a.txt", "b.txt", "c.txt"});
  f.options.system.suppressConfirmations = false;
  f.list.SelectOnly(3);
  f.ports.boxes.Answer(true);
  const std::size_t before = f.ports.pending.Count();
  f.loader.mnuReload();
  EXPECT_EQ(f.ports.log.Events(),
            Texts({kQuestion, "player stop", "file panel reset", "panel player: プレイヤー待機中...",
                   "progress begin: 登録されたファイルの再読み込み中... | 対象フォルダ : /m/",
                   "progress: 33% 完了しました | ", "progress: 66% 完了しました | ", "progress: 100% 完了しました | ",
                   "progress end", "file panel row 1", "panel mode: 手動適応モード"}));
  EXPECT_EQ(f.list.SelectedIndex(), 1);
  EXPECT_EQ(f.list.SelectedCount(), 1);
  EXPECT_EQ(f.ports.pending.Count() - before, 3u);
}

TEST(mnuReload, LosesEditedRenameNamesAndReadsFilesAgain) {
  Fixture f({"a.mid", "b.txt"});
  f.list.SetRenameName(1, "edited");
  f.list.SetRenameName(2, "edited too");
  f.files.AddFile("/m/a.mid", test::SimpleMidiFile("New title", ""));
  f.loader.mnuReload();
  EXPECT_EQ(test::RenameNames(f.list), Texts({"a", "b"}));
  EXPECT_EQ(f.list.Row(1).title, "New title");
  EXPECT_EQ(f.list.Row(1).size, f.files.BytesOf("/m/a.mid").size());
}

TEST(mnuReload, ChecksRowsAsALoadDoes) {
  Fixture f({"a", "b"});
  f.list.UncheckAll();
  f.loader.mnuReload();
  EXPECT_EQ(test::CheckedRows(f.list), Indices({1, 2}));
  f.options.list.checkLoadedRows = false;
  f.loader.mnuReload();
  EXPECT_EQ(test::CheckedRows(f.list), Indices());
}

TEST(mnuReload, KeepsTheOrderOfTheRows) {
  Fixture f({"a", "b", "c"});
  f.list.Sort(Column::kLocation, ByteOrder());
  f.loader.mnuReload();
  EXPECT_EQ(Locations(f.list), Texts({"/m/c", "/m/b", "/m/a"}));
}

TEST(mnuReload, RemovesTheRowsOfMissingFiles) {
  Fixture f({"a", "b", "c"});
  ASSERT_FALSE(f.files.Remove("/m/a"));
  ASSERT_FALSE(f.files.Remove("/m/c"));
  f.loader.mnuReload();
  EXPECT_EQ(Locations(f.list), Texts({"/m/b"}));
  EXPECT_EQ(f.list.SelectedIndex(), 1);
  EXPECT_TRUE(f.ports.log.Has("progress: 100% 完了しました | "));
  EXPECT_TRUE(f.ports.log.Has("file panel row 1"));
}

TEST(mnuReload, KeepsTheRowsOfInaccessibleFilesUnchanged) {
  Fixture f({"a", "b"});
  f.list.SetRenameName(1, "edited");
  f.files.Fail(test::FileCall::kStatus, "/m/a", {file_error::kAccess, "refused"});
  f.loader.mnuReload();
  EXPECT_EQ(Locations(f.list), Texts({"/m/a", "/m/b"}));
  EXPECT_EQ(f.list.Row(1).renameName, "edited");
}

TEST(mnuReload, ShowsNoRowWhenEveryFileIsGone) {
  Fixture f({"a"});
  ASSERT_FALSE(f.files.Remove("/m/a"));
  f.loader.mnuReload();
  EXPECT_EQ(f.list.Count(), 0);
  EXPECT_EQ(f.ports.log.StartingWith("file panel"), Texts({"file panel reset"}));
}

TEST(mnuReload, OfAnEmptyListShowsNoPercentage) {
  Fixture f({});
  f.loader.mnuReload();
  EXPECT_EQ(f.ports.log.StartingWith("progress: "), Texts());
  EXPECT_TRUE(f.ports.log.Has("progress end"));
}

TEST(mnuReload, TellsTheObserverOfAllRowsAtOnce) {
  Fixture f({"a", "b", "c"});
  test::EventLog log;
  test::ListRecorder recorder(log);
  f.list.SetObserver(&recorder);
  f.list.SelectOnly(1);
  log.Clear();
  f.loader.mnuReload();
  EXPECT_EQ(log.Events(), Texts({"row 1", "rows", "row 1"})) << "the selection goes, the rows, the new selection";
}

TEST(mnuReload, RereadsTheApplyMode) {
  struct Case {
    const char* name;
    bool setting;
    bool before;
    std::string panel;
    Texts boxes;
  };
  const std::vector<Case> cases = {
      {"on", true, false, "panel mode: 自動適応モード", {kAutoOn}},
      {"still on", true, true, "panel mode: 自動適応モード", {kAutoOn}},
      {"off", false, false, "panel mode: 手動適応モード", {}},
      {"switched off", false, true, "panel mode: 手動適応モード", {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Fixture f({"a"});
    f.options.update.automatic = c.setting;
    f.mode.automatic = c.before;
    f.loader.mnuReload();
    EXPECT_EQ(f.mode.automatic, c.setting);
    EXPECT_EQ(f.ports.log.StartingWith("box"), c.boxes);
    EXPECT_EQ(f.ports.log.Events().back(), c.panel);
  }
}

}  // namespace
}  // namespace quillon
