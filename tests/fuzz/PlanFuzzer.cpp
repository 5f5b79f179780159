#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/Require.h"
#include "plan/Json.h"
#include "plan/PlanLines.h"
#include "plan/RenameLog.h"

using quillon::test::Require;

namespace {

// A log that is read is written the same way, but for its further lines.
void RequireSameLog(const quillon::RenameLog& log) {
  std::string text;
  for (const quillon::LoggedRename& rename : log.renames) {
    text += quillon::RenameLine(rename.from, rename.to, rename.file);
    if (rename.copy) text += quillon::CopiedLine(rename.from, rename.to, *rename.copy);
    if (rename.failed) text += quillon::FailedLine(rename.from, rename.to, 1);
  }
  const auto again = quillon::ReadRenameLog(text);
  Require(again && !again->torn && again->renames == log.renames);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  const std::size_t lines = quillon::TextLines(text).size();
  if (const auto log = quillon::ReadRenameLog(text)) {
    RequireSameLog(*log);
  } else {
    Require(log.Failure() > 0 && log.Failure() <= size);
  }
  if (const auto plan = quillon::ReadPlanLines(text)) {
    Require(plan->size() <= lines);
    for (const quillon::PlanLine& line : *plan) {
      Require(line.number > 0 && line.number <= lines && !line.from.empty() && !line.to.empty());
    }
  } else {
    Require(plan.Failure() > 0 && plan.Failure() <= lines);
  }
  if (const auto names = quillon::ReadNameLines(text)) {
    const bool byPath = !names->empty() && names->front().path;
    // Blank lines at the end are no names.
    Require(byPath || (names->size() <= lines && (names->empty() || names->back().number == names->size())));
    for (const quillon::NameLine& name : *names) Require(name.path.has_value() == byPath && name.number <= lines);
  } else {
    Require(names.Failure() > 0 && names.Failure() <= lines);
  }
  return 0;
}
