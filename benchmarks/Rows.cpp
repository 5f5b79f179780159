#include <benchmark/benchmark.h>

#include <functional>
#include <string>

#include "Program.h"
#include "filelist/FindRows.h"
#include "filelist/TypeAhead.h"
#include "platform/desktop/JapaneseCollation.h"
#include "rename/ModifyRenameNames.h"
#include "rename/RestoreNames.h"
#include "rename/TitleRename.h"

namespace quillon::benchmarks {
namespace {

using benchmark::State;

constexpr int kStep = 7919;  // rows are not in the order of their numbers

FileItem ItemNumber(int number) {
  const std::string digits = std::to_string(1000000 + number).substr(1);
  FileItem item;
  item.renameName = "song " + digits;
  item.title = number % 2 == 0 ? "日本のうた " + digits : "Song number " + std::to_string(number);
  item.artist = number % 3 == 0 ? "---" : "Artist " + std::to_string(number % 1000);
  item.type = "MIDI";
  item.location = "/music/folder " + std::to_string(number / 1000) + "/" + item.renameName + ".mid";
  item.size = static_cast<std::uint64_t>(number) * 13;
  item.checked = number % 2 == 0;
  return item;
}

void Fill(FileList& list, int count) {
  list.BeginChanges();
  list.Reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) list.Add(ItemNumber(static_cast<int>(std::int64_t{i} * kStep % count)));
  list.EndChanges();
}

using Use = std::function<void(Program&)>;

void Nothing(Program& /*program*/) {}

/// Measures a command over a list of rows that have no files; `before` is not measured.
void Rows(State& state, const Use& before, const Use& command) {
  const auto count = static_cast<int>(state.range(0));
  for ([[maybe_unused]] auto _ : state) {
    state.PauseTiming();
    {
      Program program;
      Fill(program.list, count);
      before(program);
      state.ResumeTiming();
      command(program);
      state.PauseTiming();
    }
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * count);
}

void Step(FileList& list, const std::function<void()>& edit) {
  list.Edits().Begin(EditHistory::Merging::kNever);
  edit();
  list.Edits().End();
}

void Titles(Program& program) {
  Step(program.list, [&] {
    RenameToTitles(program.list, quillon::Rows::kAll, {.skipUntitled = true}, program.noRegex, {}, program.unwatched);
  });
}

void Modify(Program& program) {
  OptionValues::Modify rules;
  rules.rules = {{{1, "song", "Song"}, {1, "0", "０"}, {1, " ", "_"}, {1, "1", "一"}, {1, "missing", "found"}}};
  Step(program.list, [&] {
    ModifyRenameNames(program.list, quillon::Rows::kAll, rules, Repetition::kPerRow, program.noRegex, {},
                      program.unwatched);
  });
}

/// Every change succeeds.
class NoDisk final : public FileChanges {
 public:
  using FileChanges::Move;
  FileOutcome Rename(const std::string&, const std::string&) override { return std::nullopt; }
  MoveOutcome Move(const std::string&, const std::string&, Progress*) override { return NotKept(); }
  void RemoveLeftovers(const std::string&) override {}
  FileOutcome Remove(const std::string&) override { return std::nullopt; }
  int Recycle(const std::string&, std::uintptr_t) override { return 0; }
};

void Apply(Program& program) {
  NoDisk disk;
  RenameEngine engine(program.list, program.mode, disk, program.player);
  (void)engine.Apply(quillon::Rows::kAll, program.unwatched, [](const RowOutcome&) { return true; });
}

void SortBy(Program& program, Column column) {
  program.list.Sort(column, *MakeJapaneseCollation());
}

void Find(Program& program) {
  FindRows rows(program.list);
  rows.SetText("うた 0");
  benchmark::DoNotOptimize(rows.Count());
}

void Add(State& state) {
  for ([[maybe_unused]] auto _ : state) {
    Program program;
    Fill(program.list, static_cast<int>(state.range(0)));
    state.PauseTiming();
    program.list.Clear();
    state.ResumeTiming();
  }
}

void Million(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(1000000)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
}

// NOLINTBEGIN(bugprone-macro-parentheses): names of functions
#define QUILLON_ROWS(name, before, command) BENCHMARK_CAPTURE(Rows, name, before, command)->Apply(Million)
// NOLINTEND(bugprone-macro-parentheses)

QUILLON_ROWS(check_all, Nothing, [](Program& p) { p.list.CheckAll(); });
QUILLON_ROWS(uncheck_all, Nothing, [](Program& p) { p.list.UncheckAll(); });
QUILLON_ROWS(invert_checks, Nothing, [](Program& p) { p.list.InvertChecks(); });
QUILLON_ROWS(select_all, Nothing, [](Program& p) { p.list.SelectAll(); });
QUILLON_ROWS(
    select_one_of_all, [](Program& p) { p.list.SelectAll(); }, [](Program& p) { p.list.SelectOnly(p.list.Count()); });
QUILLON_ROWS(sort_names, Nothing, [](Program& p) { SortBy(p, Column::kRenameName); });
QUILLON_ROWS(
    sort_names_back, [](Program& p) { SortBy(p, Column::kRenameName); },
    [](Program& p) { SortBy(p, Column::kRenameName); });
QUILLON_ROWS(sort_titles, Nothing, [](Program& p) { SortBy(p, Column::kTitle); });
QUILLON_ROWS(sort_artists, Nothing, [](Program& p) { SortBy(p, Column::kArtist); });
QUILLON_ROWS(sort_types, Nothing, [](Program& p) { SortBy(p, Column::kType); });
QUILLON_ROWS(sort_sizes, Nothing, [](Program& p) { SortBy(p, Column::kSize); });
QUILLON_ROWS(sort_locations, Nothing, [](Program& p) { SortBy(p, Column::kLocation); });
QUILLON_ROWS(remove_unchecked, Nothing,
             [](Program& p) { p.list.RemoveWhere([](int, const FileRow& row) { return !row.checked; }); });
QUILLON_ROWS(titles_to_names, Nothing, Titles);
QUILLON_ROWS(modify_by_five_rules, Nothing, Modify);
QUILLON_ROWS(restore_names, Titles,
             [](Program& p) { Step(p.list, [&] { RestoreNames(p.list, quillon::Rows::kAll); }); });
QUILLON_ROWS(undo, Titles, [](Program& p) { (void)p.list.UndoEdits(); });
QUILLON_ROWS(
    redo,
    [](Program& p) {
      Titles(p);
      (void)p.list.UndoEdits();
    },
    [](Program& p) { (void)p.list.RedoEdits(); });
QUILLON_ROWS(apply_without_a_disk, Titles, Apply);
BENCHMARK_CAPTURE(Rows, apply_few, Titles, Apply)->Arg(100000)->Unit(benchmark::kMillisecond);
QUILLON_ROWS(find, Nothing, Find);
QUILLON_ROWS(
    next_pending, [](Program& p) { p.list.SetRenameName(p.list.Count(), "new"); },
    [](Program& p) { benchmark::DoNotOptimize(p.list.NextPending(0)); });
QUILLON_ROWS(index_of_last, Nothing,
             [](Program& p) { benchmark::DoNotOptimize(p.list.IndexOf(p.list.Row(p.list.Count()).Location())); });
QUILLON_ROWS(clear, Nothing, [](Program& p) { p.list.Clear(); });
BENCHMARK(Add)->Name("Rows/add")->Apply(Million);

}  // namespace
}  // namespace quillon::benchmarks
