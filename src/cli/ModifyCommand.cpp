#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/Messages.h"
#include "cli/Output.h"
#include "cli/Reasons.h"
#include "platform/PathStyle.h"
#include "platform/Program.h"
#include "rename/ModifyName.h"
#include "rename/RegexReplace.h"

namespace quillon::cli {
namespace {

std::vector<std::string_view> Lines(std::string_view text) {
  if (text.empty()) return {};
  if (text.back() == '\n') text.remove_suffix(1);
  std::vector<std::string_view> lines = Split(text, '\n');
  if (SystemPathStyle() == PathStyle::kWindows) {
    for (std::string_view& line : lines) {
      if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    }
  }
  return lines;
}

}  // namespace

int RunModify(const ModifyArguments& arguments) {
  std::optional<OptionValues> options = LoadSettings(arguments.settings);
  if (!options) return kBadUsage;
  if (arguments.preset && !UsePreset(*arguments.preset, arguments.settings, *options)) return kBadUsage;
  const std::string input = ReadStandardInput();
  const std::vector<std::string_view> names = Lines(input);
  const Repetition repetition = arguments.once ? Repetition::kOnce : RepetitionOf(*options);
  const std::size_t applications = Applications(repetition, arguments.listCount.value_or(names.size()));
  RegexLibrary regex;
  UntilInterrupted progress;
  Output output;
  int leftAlone = 0;
  for (const std::string_view name : names) {
    const ModifyResult result = ModifyName(name, options->modify, applications, regex, progress);
    if (result.leftAlone) ++leftAlone;
    output.Line(result.name);
    if (output.Closed()) break;
  }
  if (leftAlone > 0) Complain(Counting(messages::kLeftAlone, leftAlone));
  return output.Flush() ? kDone : kSomeFailed;
}

}  // namespace quillon::cli
