#include <benchmark/benchmark.h>
#include <malloc.h>
#include <taglib/fileref.h>
#include <taglib/tag.h>

#include <string>
#include <vector>

#include "Files.h"
#include "Program.h"
#include "platform/desktop/JapaneseCollation.h"
#include "rename/ModifyName.h"
#include "rename/TitleRename.h"
#include "tags/SongReader.h"

namespace quillon::benchmarks {
namespace {

using benchmark::DoNotOptimize;
using benchmark::State;

int CountOf(const State& state) {
  return static_cast<int>(state.range(0));
}

void PerFile(State& state) {
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void Require(State& state, bool condition, const char* what) {
  if (!condition) state.SkipWithError(what);
}

void LoadFloor(State& state, Files::Kind kind) {
  const Files& files = SharedFiles(kind, CountOf(state));
  for ([[maybe_unused]] auto _ : state) {
    Require(state, ReadWithSystemCalls(files.Folder()) == files.Count(), "not every file was read");
  }
  PerFile(state);
}

void Load(State& state, Files::Kind kind, FileReadsOptions reads = {}) {
  const Files& files = SharedFiles(kind, CountOf(state));
  for ([[maybe_unused]] auto _ : state) {
    Program program(reads);
    program.Load(files.Folder());
    Require(state, program.list.Count() == files.Count(), "not every file was loaded");
    state.PauseTiming();
    program.list.Clear();
    state.ResumeTiming();
  }
  PerFile(state);
}

/// The two texts of each row, with all tags.
void Songs(State& state, Files::Kind kind) {
  const Files& files = SharedFiles(kind, CountOf(state));
  for ([[maybe_unused]] auto _ : state) {
    for (const std::string& path : files.Paths()) {
      Require(state, !ReadRowTexts(path, TagSources::kAll).title.empty(), "a file has no title");
    }
  }
  PerFile(state);
}

void LoadTagLib(State& state, Files::Kind kind) {
  const Files& files = SharedFiles(kind, CountOf(state));
  for ([[maybe_unused]] auto _ : state) {
    for (const std::string& path : files.Paths()) {
      const TagLib::FileRef file(path.c_str(), false);
      if (file.isNull()) state.SkipWithError("a file was not read");
      DoNotOptimize(file.tag()->title());
      DoNotOptimize(file.tag()->artist());
    }
  }
  PerFile(state);
}

std::vector<std::string> Renamed(const std::vector<std::string>& paths) {
  std::vector<std::string> renamed;
  renamed.reserve(paths.size());
  for (const std::string& path : paths)
    renamed.push_back(path.substr(0, path.size() - 4) + "x" + path.substr(path.size() - 4));
  return renamed;
}

void ApplyFloor(State& state) {
  const Files& files = SharedFiles(Files::Kind::kMixed, CountOf(state));
  const std::vector<std::string> renamed = Renamed(files.Paths());
  for ([[maybe_unused]] auto _ : state) {
    // Restores the same state of the files and caches as before `Apply`.
    state.PauseTiming();
    Program program;
    program.Load(files.Folder());
    state.ResumeTiming();
    Require(state, RenameWithSystemCalls(files.Paths(), renamed) == files.Count(), "a rename failed");
    state.PauseTiming();
    Require(state, RenameWithSystemCalls(renamed, files.Paths()) == files.Count(), "a rename back failed");
    program.list.Clear();
    state.ResumeTiming();
  }
  PerFile(state);
}

void Apply(State& state) {
  const Files& files = SharedFiles(Files::Kind::kMixed, CountOf(state));
  const std::vector<std::string> renamed = Renamed(files.Paths());
  for ([[maybe_unused]] auto _ : state) {
    state.PauseTiming();
    Program program;
    program.Load(files.Folder());
    for (int index = 1; index <= program.list.Count(); ++index) {
      program.list.SetRenameName(index, std::string(program.list.Row(index).renameName) + "x");
    }
    state.ResumeTiming();
    Require(state, program.Apply().applied == files.Count(), "a rename failed");
    state.PauseTiming();
    Require(state, RenameWithSystemCalls(renamed, files.Paths()) == files.Count(), "a rename back failed");
    program.list.Clear();
    state.ResumeTiming();
  }
  PerFile(state);
}

void TitlesToNames(State& state) {
  const Files& files = SharedFiles(Files::Kind::kMixed, CountOf(state));
  for ([[maybe_unused]] auto _ : state) {
    Program program;
    program.Load(files.Folder());
    RenameToTitles(program.list, Rows::kAll, {.skipUntitled = true}, program.noRegex, {}, program.unwatched);
    const BatchOutcome outcome = program.Apply();
    state.PauseTiming();
    Require(state, outcome.applied == files.Count(), "a rename failed");
    std::vector<std::string> renamed;
    for (int index = 1; index <= program.list.Count(); ++index) renamed.push_back(program.list.Row(index).Location());
    Require(state, RenameWithSystemCalls(renamed, files.Paths()) == files.Count(), "a rename back failed");
    program.list.Clear();
    state.ResumeTiming();
  }
  PerFile(state);
}

void ModifyNames(State& state) {
  OptionValues::Modify rules;
  rules.rules = {{{1, "number", "No."}, {1, "Song", "曲"}, {1, " ", "_"}, {1, "0", "０"}, {1, "missing", "found"}}};
  NoRegex noRegex;
  Unwatched unwatched;
  std::vector<std::string> names;
  names.reserve(static_cast<std::size_t>(CountOf(state)));
  for (int i = 0; i < CountOf(state); ++i) names.push_back("Song number " + std::to_string(i));
  for ([[maybe_unused]] auto _ : state) {
    for (const std::string& name : names) DoNotOptimize(ModifyName(name, rules, names.size(), noRegex, unwatched));
  }
  PerFile(state);
}

void Sort(State& state) {
  for ([[maybe_unused]] auto _ : state) {
    state.PauseTiming();
    Program program;
    constexpr int kStep = 7919;  // so that the rows are unsorted
    for (int i = 0; i < CountOf(state); ++i) {
      FileItem row;
      row.renameName = "曲" + std::to_string(i * kStep % CountOf(state)) + " 日本のうた ライブ・バージョン";
      row.location = "/" + row.renameName;
      program.list.Add(row);
    }
    state.ResumeTiming();
    program.list.Sort(Column::kRenameName, *MakeJapaneseCollation());
    state.PauseTiming();
    program.list.Clear();
    state.ResumeTiming();
  }
  PerFile(state);
}

/// With the large blocks, which are mapped and counted apart.
std::size_t UsedMemory() {
  const struct mallinfo2 memory = mallinfo2();
  return memory.uordblks + memory.hblkhd;
}

void MemoryPerRow(State& state) {
  const Files& files = SharedFiles(Files::Kind::kMixed, CountOf(state));
  for ([[maybe_unused]] auto _ : state) {
    Program program;
    const std::size_t before = UsedMemory();
    program.Load(files.Folder());
    state.counters["bytes_per_row"] = static_cast<double>(UsedMemory() - before) / files.Count();
  }
}

constexpr int kFew = 5000;
constexpr int kMany = 100000;

void Sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(kFew)->Arg(kMany)->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK_CAPTURE(LoadFloor, mixed, Files::Kind::kMixed)->Apply(Sizes);
BENCHMARK_CAPTURE(Load, mixed, Files::Kind::kMixed)->Apply(Sizes);
BENCHMARK_CAPTURE(Load, mixed_in_turn, Files::Kind::kMixed, {.readAhead = false})->Apply(Sizes);
BENCHMARK_CAPTURE(Load, mp3, Files::Kind::kMp3)->Arg(kFew)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(LoadTagLib, mp3, Files::Kind::kMp3)->Arg(kFew)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(LoadTagLib, newer, Files::Kind::kNewerMp3)->Arg(kFew)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(LoadTagLib, flac, Files::Kind::kFlac)->Arg(kFew)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(LoadTagLib, m4a, Files::Kind::kM4a)->Arg(kFew)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(LoadTagLib, ogg, Files::Kind::kOgg)->Arg(kFew)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(Songs, newer, Files::Kind::kNewerMp3)->Arg(kFew)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(Songs, flac, Files::Kind::kFlac)->Arg(kFew)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(Songs, m4a, Files::Kind::kM4a)->Arg(kFew)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(Songs, ogg, Files::Kind::kOgg)->Arg(kFew)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ApplyFloor)->Apply(Sizes);
BENCHMARK(Apply)->Apply(Sizes);
BENCHMARK(TitlesToNames)->Apply(Sizes);
BENCHMARK(ModifyNames)->Apply(Sizes);
BENCHMARK(Sort)->Apply(Sizes);
BENCHMARK(MemoryPerRow)->Arg(kMany)->Iterations(1);

}  // namespace
}  // namespace quillon::benchmarks

BENCHMARK_MAIN();
