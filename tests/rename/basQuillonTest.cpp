#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "rename/basQuillon.h"
#include "support/MemoryFileSystem.h"
#include "support/RecordedProgress.h"
#include "support/Rows.h"

namespace quillon {
namespace {

using Texts = std::vector<std::string>;

constexpr PathStyle kWin = PathStyle::kWindows;
constexpr PathStyle kLin = PathStyle::kLinux;

struct PathCase {
  const char* name;
  PathStyle style;
  std::string location;
  std::string renameName;
  std::string expected;
};

TEST(AppliedPath, IsTheFolderTheNameAndTheOldExtensionInLowerCase) {
  const std::vector<PathCase> cases = {
      {"plain", kLin, "/m/a.mid", "Song", "/m/Song.mid"},
      {"extension in capitals", kLin, "/m/Song.MP3", "Song", "/m/Song.mp3"},
      {"name that looks like one with extension", kLin, "/m/a.mp3", "song.mp3", "/m/song.mp3.mp3"},
      {"leading blank stays, trailing one goes", kLin, "/m/x.mid", " a ", "/m/ a.mid"},
      {"several trailing blanks", kLin, "/m/x.mid", "a   ", "/m/a.mid"},
      {"wide blank stays", kLin, "/m/x.mid", "a\u3000", "/m/a\u3000.mid"},
      {"trailing dots stay in front of an extension", kLin, "/m/x.mid", "a..", "/m/a...mid"},
      {"only the last extension counts", kLin, "/m/a.tar.GZ", "b", "/m/b.gz"},
      {"no extension: no dot", kLin, "/m/readme", "notes", "/m/notes"},
      {"no extension: no dots and blanks at the end", kLin, "/m/readme", "notes. . ", "/m/notes"},
      {"no extension: a dot inside stays", kLin, "/m/readme", "v1.2", "/m/v1.2"},
      {"no extension, nothing left", kLin, "/m/readme", " .. .", "/m/"},
      {"name that ends in a dot", kLin, "/m/readme.", "notes", "/m/notes"},
      {"only an extension", kLin, "/m/.Profile", "x", "/m/x.profile"},
      {"Windows", kWin, "C:\\曲\\a.MID", "表", "C:\\曲\\表.mid"},
      {"Windows, no extension", kWin, "C:\\m.v\\readme", "notes.", "C:\\m.v\\notes"},
      {"Windows, top of a drive", kWin, "C:\\a.MID", "b", "C:\\b.mid"},
      {"extension beyond ASCII", kLin, "/m/a.É", "b", "/m/b.é"},
  };
  for (const PathCase& c : cases) {
    FileItem row = test::RowFor(c.location, c.style);
    row.renameName = c.renameName;
    EXPECT_EQ(AppliedPath(c.location, row.renameName, c.style), c.expected) << c.name;
  }
}

/// Files in "/m/", a row for each, and the engine.
struct Fixture {
  test::MemoryFileSystem files{{kLin, false}};
  FileList list{kLin};
  ApplyMode mode;
  PlayerControl player;
  RenameEngine engine{list, mode, files, player, kLin};

  explicit Fixture(const Texts& names) {
    for (const std::string& name : names) {
      files.AddFile("/m/" + name, name);
      list.Add(test::RowFor("/m/" + name, kLin));
    }
  }

  void SetNames(const Texts& names) {
    for (std::size_t i = 0; i < names.size(); ++i) list.SetRenameName(static_cast<int>(i) + 1, names[i]);
  }
};

/// Ends a batch after this many rows.
struct UpTo final : Progress {
  explicit UpTo(std::size_t rows) : limit(rows) {}
  bool Continue(std::size_t done, std::size_t total, const std::string& item) override {
    asked.push_back(std::to_string(done) + "/" + std::to_string(total) + " " + item);
    return done < limit;
  }
  bool Continue() override { return true; }
  std::size_t limit;
  Texts asked;
};

TEST(RenameEngine, ReportsEachFilesOldAndNewPlace) {
  Fixture f({"a.mid", "b.mid", "c.mid", "d.mid"});
  f.SetNames({"x", "", "z", "w"});
  f.list.CheckAll();
  f.list.SetChecked(4, false);
  UpTo progress(1000);
  Texts told;
  const BatchOutcome outcome = f.engine.Apply(Rows::kChecked, progress, [&](const RowOutcome& row) {
    told.push_back(std::to_string(row.index) + " " + std::to_string(static_cast<int>(row.code)) + ": " + row.from +
                   " -> " + f.list.Row(row.index).Location());
    return true;
  });
  EXPECT_EQ(told, Texts({"1 0: /m/a.mid -> /m/x.mid", "2 1: /m/b.mid -> /m/b.mid", "3 0: /m/c.mid -> /m/z.mid"}));
  EXPECT_EQ(progress.asked, Texts({"0/3 ", "1/3 /m/a.mid", "2/3 /m/b.mid", "3/3 /m/c.mid"}));
  EXPECT_EQ(outcome.applied, 2);
  EXPECT_EQ(outcome.skipped, 1);
  EXPECT_FALSE(outcome.stopped);
}

TEST(RenameEngine, ProgressEndsABatchAsIfTheListEnded) {
  Fixture f({"a.mid", "b.mid", "c.mid"});
  f.SetNames({"x", "y", "z"});
  UpTo progress(2);
  const BatchOutcome outcome = f.engine.Apply(Rows::kAll, progress, [](const RowOutcome&) { return true; });
  EXPECT_EQ(f.files.NamesIn("/m/"), Texts({"c.mid", "x.mid", "y.mid"}));
  EXPECT_EQ(outcome.applied, 2);
  EXPECT_FALSE(outcome.stopped);
}

TEST(RenameEngine, RowDoneCanStopABatch) {
  Fixture f({"a.mid", "b.mid", "c.mid"});
  f.SetNames({"x", "y", "z"});
  UpTo progress(1000);
  const BatchOutcome outcome =
      f.engine.Apply(Rows::kAll, progress, [](const RowOutcome& row) { return row.index < 2; });
  EXPECT_EQ(f.files.NamesIn("/m/"), Texts({"c.mid", "x.mid", "y.mid"}));
  EXPECT_EQ(outcome.applied, 2);
  EXPECT_TRUE(outcome.stopped);
}

}  // namespace
}  // namespace quillon
