#include "settings/Presets.h"

#include <algorithm>

#include "base/Text.h"
#include "platform/FileSystem.h"
#include "settings/Settings.h"

namespace quillon {
namespace {

constexpr std::string_view kPrefix = "Preset ";
constexpr std::string_view kModify = "Modify";
constexpr std::string_view kWideBlank = "\u3000";

/// A preset's section. Blanks between its words may differ from those that are written.
struct Entry {
  std::string name;
  std::string section;
  IniFile content;
};

std::vector<Entry> EntriesOf(const IniFile& file) {
  std::vector<Entry> entries;
  for (IniFile::Section& section : file.Sections()) {
    const std::string_view whole = section.name;
    if (!EqualIgnoringCase(whole.substr(0, kPrefix.size()), kPrefix)) continue;
    std::string name(Trim(whole.substr(kPrefix.size())));
    entries.push_back({std::move(name), section.name, std::move(section.content)});
  }
  return entries;
}

const Entry* Find(const std::vector<Entry>& entries, std::string_view name) {
  const auto found =
      std::ranges::find_if(entries, [&](const Entry& entry) { return EqualIgnoringCase(entry.name, name); });
  return found == entries.end() ? nullptr : &*found;
}

std::string SectionFor(std::string_view name) {
  return std::string(kPrefix) + std::string(name);
}

PresetError Damaged(const SettingsError& error) {
  return {PresetProblem::kDamaged, "[" + error.section + "] " + error.key + "=" + error.text};
}

Result<OptionValues::Modify, PresetError> RulesOf(const Entry& entry) {
  const Result<OptionValues::Modify, SettingsError> rules = ReadRules(entry.content, entry.section);
  if (!rules) return Damaged(rules.Failure());
  return *rules;
}

bool Holds(const Entry& entry, const OptionValues::Modify& rules) {
  const Result<OptionValues::Modify, PresetError> present = RulesOf(entry);
  return present && *present == rules;
}

bool IsControl(char32_t c) {
  const bool breaksLine = c == 0x2028 || c == 0x2029;
  return c < 0x20 || (c >= 0x7F && c < 0xA0) || breaksLine;
}

bool CanBeInName(const Character& c) {
  return c.valid && c.codePoint != U']' && !IsControl(c.codePoint);
}

void Put(IniFile& file, const std::vector<Entry>& entries, const Preset& preset) {
  const Entry* const present = Find(entries, preset.name);
  WriteRules(file, present != nullptr ? present->section : SectionFor(preset.name), preset.rules);
}

std::optional<PresetError> Saved(const IniFile& file) {
  if (file.Save()) return std::nullopt;
  return PresetError{PresetProblem::kNotWritten};
}

/// The preset under the name that it gets in the file; nullopt when the file has its rules under that name already.
std::optional<Preset> Placed(const std::vector<Entry>& entries, const Preset& preset, SameName sameName) {
  Preset placed = preset;
  const Entry* present = Find(entries, placed.name);
  for (int number = 2; present != nullptr && !Holds(*present, preset.rules); ++number) {
    if (sameName == SameName::kReplace) return placed;
    placed.name = NumberedPresetName(preset.name, number);
    present = Find(entries, placed.name);
  }
  return present == nullptr ? std::optional(std::move(placed)) : std::nullopt;
}

}  // namespace

std::string PresetNameFrom(std::string_view typed) {
  for (bool trimmed = true; trimmed;) {
    const std::size_t before = typed.size();
    typed = Trim(typed);
    if (typed.starts_with(kWideBlank)) typed.remove_prefix(kWideBlank.size());
    if (typed.ends_with(kWideBlank)) typed.remove_suffix(kWideBlank.size());
    trimmed = typed.size() < before;
  }
  return std::string(typed);
}

std::optional<std::string> PresetNameRefusal(std::string_view name) {
  if (name.empty()) return "プリセットの名前を入力してください";
  if (CharacterCount(name) > kLongestPresetName) {
    static_assert(kLongestPresetName == 60);
    return "プリセットの名前は 60 文字までにしてください";
  }
  for (std::size_t i = 0; i < name.size();) {
    const Character c = CharacterAt(name, i);
    if (!CanBeInName(c)) return "プリセットの名前に「]」や改行、タブは使えません";
    i += c.length;
  }
  return std::nullopt;
}

std::string NumberedPresetName(std::string_view name, int number) {
  const std::string end = " (" + std::to_string(number) + ")";
  return PresetNameFrom(FirstCharacters(name, kLongestPresetName - end.size())) + end;
}

std::vector<std::string> Presets::Names() const {
  IniFile file(path_);
  if (!file.Load()) return {};
  std::vector<std::string> names;
  for (Entry& entry : EntriesOf(file)) names.push_back(std::move(entry.name));
  return names;
}

Result<OptionValues::Modify, PresetError> Presets::Load(std::string_view name) const {
  IniFile file(path_);
  if (!file.Load()) return PresetError{PresetProblem::kUnreadable};
  const std::vector<Entry> entries = EntriesOf(file);
  const Entry* const entry = Find(entries, name);
  if (entry == nullptr) return PresetError{PresetProblem::kAbsent};
  return RulesOf(*entry);
}

std::optional<PresetError> Presets::Save(const Preset& preset) const {
  IniFile file(path_);
  if (!file.Load()) return PresetError{PresetProblem::kUnreadable};
  const std::vector<Entry> entries = EntriesOf(file);
  if (Find(entries, preset.name) == nullptr && entries.size() >= kMostPresets) {
    return PresetError{PresetProblem::kTooMany};
  }
  Put(file, entries, preset);
  return Saved(file);
}

std::optional<PresetError> Presets::Rename(std::string_view name, std::string_view newName) const {
  IniFile file(path_);
  if (!file.Load()) return PresetError{PresetProblem::kUnreadable};
  const std::vector<Entry> entries = EntriesOf(file);
  const Entry* const entry = Find(entries, name);
  if (entry == nullptr) return PresetError{PresetProblem::kAbsent};
  const Entry* const other = Find(entries, newName);
  if (other != nullptr && other != entry) return PresetError{PresetProblem::kNameTaken};
  file.RenameSection(entry->section, SectionFor(newName));
  return Saved(file);
}

std::optional<PresetError> Presets::Remove(std::string_view name) const {
  IniFile file(path_);
  if (!file.Load()) return PresetError{PresetProblem::kUnreadable};
  const std::vector<Entry> entries = EntriesOf(file);
  const Entry* const entry = Find(entries, name);
  if (entry == nullptr) return PresetError{PresetProblem::kAbsent};
  file.RemoveSection(entry->section);
  return Saved(file);
}

std::vector<std::string> Presets::Taken(const std::vector<Preset>& presets) const {
  IniFile file(path_);
  if (!file.Load()) return {};
  const std::vector<Entry> entries = EntriesOf(file);
  std::vector<std::string> taken;
  for (const Preset& preset : presets) {
    const Entry* const present = Find(entries, preset.name);
    if (present != nullptr && !Holds(*present, preset.rules)) taken.push_back(preset.name);
  }
  return taken;
}

Result<std::size_t, PresetError> Presets::Add(const std::vector<Preset>& presets, SameName sameName) const {
  IniFile file(path_);
  if (!file.Load()) return PresetError{PresetProblem::kUnreadable};
  std::size_t written = 0;
  for (const Preset& preset : presets) {
    const std::vector<Entry> entries = EntriesOf(file);
    const std::optional<Preset> placed = Placed(entries, preset, sameName);
    if (!placed) continue;
    Put(file, entries, *placed);
    ++written;
  }
  if (written == 0) return written;
  if (EntriesOf(file).size() > kMostPresets) return PresetError{PresetProblem::kTooMany};
  if (std::optional<PresetError> error = Saved(file)) return *std::move(error);
  return written;
}

Result<std::vector<Preset>, PresetError> ReadPresetFile(const std::string& path, std::string_view otherwise) {
  IniFile file(path);
  if (!MakeFileReads()->IsFile(path) || !file.Load()) return PresetError{PresetProblem::kUnreadable};
  std::vector<Entry> entries = EntriesOf(file);
  if (entries.empty()) {
    for (IniFile::Section& section : file.Sections()) {
      if (!EqualIgnoringCase(section.name, kModify)) continue;
      entries.push_back({std::string(otherwise), section.name, std::move(section.content)});
    }
  }
  if (entries.empty()) return PresetError{PresetProblem::kEmpty};
  if (entries.size() > kMostPresets) return PresetError{PresetProblem::kTooMany};
  std::vector<Preset> presets;
  for (const Entry& entry : entries) {
    if (PresetNameRefusal(entry.name)) return PresetError{PresetProblem::kDamaged, "[" + entry.section + "]"};
    const Result<OptionValues::Modify, PresetError> rules = RulesOf(entry);
    if (!rules) return rules.Failure();
    presets.push_back({entry.name, *rules});
  }
  return presets;
}

std::optional<PresetError> WritePresetFile(const std::string& path, const Preset& preset) {
  IniFile file(path);
  WriteRules(file, SectionFor(preset.name), preset.rules);
  WriteRules(file, kModify, preset.rules);
  return Saved(file);
}

}  // namespace quillon
