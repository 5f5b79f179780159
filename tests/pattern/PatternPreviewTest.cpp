#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "pattern/PatternPreview.h"
#include "support/MemoryFileSystem.h"
#include "support/Rows.h"

namespace quillon {
namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

struct Fixture {
  test::MemoryFileSystem files;
  FileList list;
  ApplyMode mode;
  int reads = 0;

  static std::string At(const std::string& name) {
    return (SystemPathStyle() == PathStyle::kWindows ? "C:\\m\\" : "/m/") + name;
  }

  void Add(const std::string& name, const std::string& title) {
    files.AddFile(At(name), name);
    FileItem row = test::RowFor(At(name));
    row.title = title;
    list.Add(row);
  }

  BeginReading Read() {
    return KeptFacts([this]() -> ReadFacts {
      return [this](const FileRow&) {
        ++reads;
        FileFacts facts;
        facts.song.album = "Spring";
        return facts;
      };
    });
  }
};

PatternRules Rules(std::string_view pattern) {
  return {.pattern = *NamePattern::Parse(pattern)};
}

struct Whole : PatternPreview {
  Whole(Fixture& f, const PatternRules& rules, Rows rows = Rows::kAll)
      : PatternPreview(f.list, rows, f.files, f.mode, f.Read()) {
    Restart(rules);
    while (Work(1h)) {
    }
  }

  [[nodiscard]] Texts Lines() const {
    Texts lines;
    for (std::size_t row = 0; row < Count(); ++row) {
      lines.push_back(OldName(row) + " -> " + NewName(row) + (Problem(row).empty() ? "" : ": " + Problem(row)));
    }
    return lines;
  }
};

TEST(PatternPreview, ShowsOldAndNewNames) {
  Fixture f;
  f.Add("a.MID", "one");
  f.Add("b.mid", "two");
  f.Add("c.mid", "three");
  f.list.SetChecked(1, true);
  f.list.SetChecked(3, true);
  const Whole preview(f, Rules("{n:02} {title}"), Rows::kChecked);
  EXPECT_EQ(preview.Lines(), Texts({"a.MID -> 01 one.mid", "c.mid -> 02 three.mid"}));
  EXPECT_EQ(preview.Summary(), "2 個の名前が変わります");
  EXPECT_EQ(f.files.NamesIn(Fixture::At("")), Texts({"a.MID", "b.mid", "c.mid"})) << "nothing is renamed";
  EXPECT_EQ(test::RenameNames(f.list), Texts({"a", "b", "c"}));
}

TEST(PatternPreview, TellsEveryProblem) {
  Fixture f;
  f.Add("1.mid", "");
  f.Add("2.mid", "a?b");
  f.Add("3.mid", std::string(252, 'x'));
  f.Add("4.mid", "same");
  f.Add("5.mid", "same");
  f.Add("6.mid", "taken");
  f.Add("7.mid", "7");
  f.Add("8.mid", "7");
  f.Add("9.mid", "fine");
  f.files.AddFile(Fixture::At("taken.mid"));
  const Whole preview(f, Rules("{title}"));
  EXPECT_EQ(preview.Problem(0), "名前になる文字がありません");
  EXPECT_EQ(preview.Problem(1), "2 文字目の文字は、ファイル名に使えません");
  EXPECT_EQ(preview.Problem(2), "名前が長すぎます");
  EXPECT_EQ(preview.Problem(3), "");
  EXPECT_EQ(preview.Problem(4), "4 行目と同じ名前になります");
  EXPECT_EQ(preview.Problem(5), "同じ名前のファイルがあります");
  EXPECT_EQ(preview.Problem(6), "") << "an unchanged name";
  EXPECT_EQ(preview.Problem(7), "7 行目と同じ名前になります") << "also of a row that keeps it";
  EXPECT_EQ(preview.Problem(8), "");
  EXPECT_EQ(preview.NewName(1), "a?b.mid");
  EXPECT_EQ(preview.Summary(), "7 個の名前が変わります、6 個に問題があります");
}

TEST(PatternPreview, TellsThatARowIsSkipped) {
  Fixture f;
  f.Add("1.mid", "---");
  PatternRules rules = Rules("{title}");
  rules.skipUnnamed = true;
  EXPECT_EQ(Whole(f, rules).Problem(0), "名前になる文字がないため、変更しません");
}

TEST(PatternPreview, TellsOfFilesThatAreGone) {
  Fixture f;
  f.Add("1.mid", "one");
  f.files.Remove(Fixture::At("1.mid"));
  EXPECT_EQ(Whole(f, Rules("{title}")).Problem(0), "ファイルがないか、使えない名前です");
}

TEST(PatternPreview, NamesAreMeasuredAsTheVolumeDoes) {
  Fixture f;
  std::string wide;
  for (int i = 0; i < 100; ++i) wide += "あ";
  f.Add("1.mid", wide);
  f.files.nameUnit = NameUnit::kByte;
  EXPECT_EQ(Whole(f, Rules("{title}")).Problem(0), "名前が長すぎます");
  f.files.nameUnit = NameUnit::kUtf16;
  EXPECT_EQ(Whole(f, Rules("{title}")).Problem(0), "");
  EXPECT_EQ(Whole(f, Rules("{title}{title}{title}")).Problem(0), "名前が長すぎます");
}

TEST(PatternPreview, PlansInTheListsOrder) {
  Fixture f;
  f.Add("1.mid", "2");
  f.Add("2.mid", "3");
  EXPECT_EQ(Whole(f, Rules("{title}")).Lines(),
            Texts({"1.mid -> 2.mid: 同じ名前のファイルがあります", "2.mid -> 3.mid"}));
  Fixture g;
  g.Add("2.mid", "3");
  g.Add("1.mid", "2");
  EXPECT_EQ(Whole(g, Rules("{title}")).Lines(), Texts({"2.mid -> 3.mid", "1.mid -> 2.mid"})) << "the name became free";
}

TEST(PatternPreview, InAutoApplyModeCharactersThatTheFileHasAlreadyMayStay) {
  if (SystemPathStyle() == PathStyle::kWindows) GTEST_SKIP() << "no file has such a character";
  Fixture f;
  f.Add("a?.mid", "b?");
  EXPECT_EQ(Whole(f, Rules("{title}")).Problem(0), "2 文字目の文字は、ファイル名に使えません");
  f.mode.automatic = true;
  EXPECT_EQ(Whole(f, Rules("{title}")).Problem(0), "");
}

TEST(PatternPreview, WorksInSlicesAndStartsAnew) {
  Fixture f;
  for (int i = 1; i <= 50; ++i) f.Add(std::to_string(i) + ".mid", "t" + std::to_string(i));
  PatternPreview preview(f.list, Rows::kAll, f.files, f.mode, f.Read());
  EXPECT_FALSE(preview.Work(1h));
  EXPECT_EQ(preview.Summary(), "");
  preview.Restart(Rules("{title}"));
  EXPECT_TRUE(preview.Work(0s));
  EXPECT_EQ(preview.Done(), 1u);
  EXPECT_EQ(preview.NewName(0), "t1.mid");
  EXPECT_EQ(preview.NewName(1), "");
  EXPECT_EQ(preview.Summary(), "名前を調べています...  1 / 50");
  preview.Restart(Rules("{n}x"));
  EXPECT_EQ(preview.NewName(0), "");
  EXPECT_FALSE(preview.Work(1h));
  EXPECT_EQ(preview.NewName(49), "50x.mid");
  EXPECT_EQ(preview.Summary(), "50 個の名前が変わります");
  preview.Restart({});
  EXPECT_EQ(preview.OldName(49), "50.mid");
  EXPECT_EQ(preview.NewName(49), "");
}

TEST(PatternPreview, ReadsFilesOnlyWhenThePatternNeedsThemAndOnlyOnce) {
  Fixture f;
  f.Add("1.mid", "one");
  PatternPreview preview(f.list, Rows::kAll, f.files, f.mode, f.Read());
  preview.Restart(Rules("{title}"));
  preview.Work(1h);
  EXPECT_EQ(f.reads, 0);
  for (int run = 0; run < 2; ++run) {
    preview.Restart(Rules("{album} {title}"));
    preview.Work(1h);
    EXPECT_EQ(preview.NewName(0), "Spring one.mid");
  }
  EXPECT_EQ(f.reads, 1);
}

}  // namespace
}  // namespace quillon
