#include <sys/resource.h>
#include <time.h>

#include <cstdio>
#include <string_view>

#include "Program.h"

/// Loads a folder as the programs do, with or without reading ahead, and prints the number of files, the milliseconds
/// that passed and those of processor time, and the peak of its memory in KiB.
namespace quillon::benchmarks {
namespace {

double Milliseconds(clockid_t clock) {
  timespec now{};
  clock_gettime(clock, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

int Run(const char* folder, bool readAhead) {
  const double started = Milliseconds(CLOCK_MONOTONIC);
  const double worked = Milliseconds(CLOCK_PROCESS_CPUTIME_ID);
  Program program({.readAhead = readAhead});
  program.Load(folder);
  const double elapsed = Milliseconds(CLOCK_MONOTONIC) - started;
  const double work = Milliseconds(CLOCK_PROCESS_CPUTIME_ID) - worked;
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  std::printf("{\"files\": %d, \"elapsed\": %.1f, \"work\": %.1f, \"peak\": %ld}\n", program.list.Count(), elapsed,
              work, usage.ru_maxrss);
  return program.list.Count() > 0 ? 0 : 1;
}

}  // namespace
}  // namespace quillon::benchmarks

int main(int argc, char** argv) {
  const std::string_view way = argc == 3 ? argv[2] : "";
  if (way != "ahead" && way != "in-turn") {
    static_cast<void>(std::fputs("usage: quillon-load-folder FOLDER ahead|in-turn\n", stderr));
    return 2;
  }
  return quillon::benchmarks::Run(argv[1], way == "ahead");
}
