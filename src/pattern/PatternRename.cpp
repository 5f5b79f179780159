#include "pattern/PatternRename.h"

#include <utility>

#include "base/Text.h"
#include "paths/WideTwins.h"
#include "paths/basFileControl.h"

namespace quillon {
namespace {

constexpr std::size_t kLongestName = 32767;  // characters

std::string WithInvalidReplaced(std::string_view name, std::string_view replacement) {
  std::string replaced;
  for (const char c : name) {
    if (IsInvalidInName(c)) {
      replaced += replacement;
    } else {
      replaced += c;
    }
  }
  return replaced;
}

std::string Settled(const std::string& name, const PatternRules& rules) {
  switch (rules.invalid) {
    case PatternInvalid::kKept: return name;
    case PatternInvalid::kRemoved: return WithInvalidReplaced(name, {});
    case PatternInvalid::kReplaced: return WithInvalidReplaced(name, rules.replacement);
    case PatternInvalid::kWide: return WithWideTwins(name);
  }
  return name;
}

std::string_view FolderName(std::string_view folder, PathStyle style) {
  if (!folder.empty()) folder.remove_suffix(1);
  return FileName(folder, style);
}

}  // namespace

PatternNames::PatternNames(const PatternRules& rules, ReadFacts read, PathStyle style)
    : rules_(rules),
      read_(std::move(read)),
      style_(style),
      needsFile_(rules.pattern.NeedsFile()),
      number_(rules.start) {}

PatternValues PatternNames::ValuesOf(const FileRow& row) const {
  PatternValues values;
  if (needsFile_) {
    FileFacts facts = read_(row);
    values.song = std::move(facts.song);
    values.modified = facts.modified;
  }
  values.song.title = row.title;
  values.song.artist = row.artist;
  values.name = row.NameWithoutExtension();
  values.folder = FolderName(row.folder, style_);
  values.type = row.type.Text();
  values.size = row.size;
  values.number = number_;
  values.numberDigits = rules_.digits;
  return values;
}

std::string PatternNames::NextFor(const FileRow& row) {
  const std::string settled = Settled(rules_.pattern.Text(ValuesOf(row)), rules_);
  std::string name(TrimRight(FirstCharacters(Trim(settled), kLongestName)));
  if (!name.empty()) number_ += rules_.step;
  return name;
}

PatternOutcome RenameByPattern(FileList& list, Rows rows, const PatternRules& rules, const ReadFacts& read,
                               const ApplyRow& apply, Progress& progress, PathStyle style) {
  PatternOutcome outcome;
  PatternNames names(rules, read, style);
  outcome.end = RunOverRows(list, rows, progress, [&](int index) {
    std::string name = names.NextFor(list.Row(index));
    if (rules.skipUnnamed && name.empty()) {
      outcome.unnamed.push_back(index);
      return RunEnd::kComplete;
    }
    const std::string before(list.Row(index).renameName);
    list.SetRenameName(index, name);
    if (rules.findInvalid && InvalidCharacterPosition(list.Row(index).renameName) != 0) {
      outcome.invalid.push_back(index);
    }
    return ApplyOrRestore(list, index, before, apply, outcome);
  });
  return outcome;
}

}  // namespace quillon
