#include "cli/Session.h"

#include <utility>

#include "cli/Messages.h"
#include "cli/Output.h"
#include "cli/Reasons.h"
#include "cli/Table.h"
#include "filelist/FolderSearch.h"
#include "filelist/Registration.h"
#include "paths/basFileControl.h"
#include "platform/Program.h"
#include "rename/BuiltInPresets.h"
#include "settings/Presets.h"
#include "settings/Settings.h"

namespace quillon::cli {
namespace {

// A message's lines, joined into one.
std::string WithoutLineBreaks(std::string text) {
  for (std::size_t at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n")) text.replace(at, 2, " ");
  return text;
}

// The window's options have no part in it.
std::string FilterOf(const Selection& selection) {
  OptionValues::Find find;
  find.filterByExtension = !selection.all;
  if (selection.ownExtensions) find.media.extensions = selection.extensions;
  return SearchFilter(find);
}

}  // namespace

void Complain(const std::string& caption, const std::string& text, const std::string& subject) {
  const bool named = subject.empty() || text.find(subject) != std::string::npos;
  Complain(caption + ": " + WithoutLineBreaks(text) + (named ? "" : ": " + subject));
}

bool UntilInterrupted::Continue(std::size_t /*done*/, std::size_t /*total*/, const std::string& /*item*/) {
  return Continue();
}

bool UntilInterrupted::Continue() {
  return !Interrupted();
}

Session::Session(OptionValues initial) : options(std::move(initial)) {}

bool Session::Load(const Selection& selection) {
  bool complete = true;
  for (const std::string& path : selection.paths) complete = LoadPath(FullPath(path), selection) && complete;
  return complete;
}

std::vector<std::string> Session::Locations() const {
  std::vector<std::string> locations;
  for (int index = 1; index <= list.Count(); ++index) locations.push_back(list.Row(index).Location());
  return locations;
}

// True when the path's rows were loaded, or its folder or file was listed already.
bool Session::LoadPath(const std::string& path, const Selection& selection) {
  UntilInterrupted progress;
  if (path.empty()) return false;  // it would be loaded as the root folder
  if (!files->IsFile(path)) return LoadFolder(path, selection, progress);
  PathList single;
  AddPath(single, path);
  return Register(single, path, progress);
}

bool Session::LoadFolder(const std::string& path, const Selection& selection, UntilInterrupted& progress) {
  const std::string folder = WithTrailingSeparator(path);
  if (list.ContainsFolder(folder)) {
    Complain(LoadCaption(), FolderListed(folder), path);
    return true;
  }
  const std::string filter = FilterOf(selection);
  FoundFiles found = FolderSearch(*files, progress).Search(folder, filter, selection.subfolders);
  const bool complete = !ComplainAbout(found.passedOver);
  if (found.error) {
    Complain(LoadCaption(), LoadFailure(*found.error), path);
    return false;
  }
  LeaveOutRecycleBin(found);
  if (found.paths.empty()) {
    Complain(LoadCaption(), NothingFound(filter, found), path);
    return false;
  }
  return Register(found.paths, path, progress) && complete;
}

bool Session::Register(const PathList& paths, const std::string& subject, UntilInterrupted& progress) {
  const bool single = paths.size() == 1 && (*paths.begin()).Path() == subject;
  const Registered registered = RegisterFiles(list, *files, paths, {.tags = tags}, progress);
  if (single && registered.duplicates > 0) Complain(LoadCaption(), FileListed(), subject);
  if (registered.error) Complain(LoadCaption(), LoadFailure(*registered.error), subject);
  return !ComplainAbout(registered.passedOver) && !registered.error;
}

// Returns true when there were any.
bool Session::ComplainAbout(const std::vector<PassedOver>& paths) {
  for (const PassedOver& passed : paths) {
    Complain(LoadCaption() + ": " + ReasonFor(passed.obstacle) + ": " + passed.path);
  }
  return !paths.empty();
}

std::optional<OptionValues> LoadSettings(const std::string& path) {
  if (path.empty()) return OptionValues{};
  const std::string fullPath = FullPath(path);
  IniFile file(fullPath);
  // A settings file that the user names must exist.
  if (!MakeFileReads()->IsFile(fullPath) || !file.Load()) {
    Complain(Localized(messages::kSettingsUnread) + fullPath);
    return std::nullopt;
  }
  Result<OptionValues, SettingsError> options = ReadOptionValues(file);
  if (options) return std::move(*options);
  const SettingsError& error = options.Failure();
  Complain(Localized(messages::kSettingsDamaged) + " ([" + error.section + "] " + error.key + "=" + error.text + ")");
  return std::nullopt;
}

bool UsePreset(const std::string& name, const std::string& settings, OptionValues& options) {
  std::vector<std::string> names;
  if (!settings.empty()) {
    const Presets presets(FullPath(settings));
    const Result<OptionValues::Modify, PresetError> rules = presets.Load(name);
    if (rules) {
      options.modify = *rules;
      return true;
    }
    if (rules.Failure().problem != PresetProblem::kAbsent) {
      Complain(Localized(messages::kPresetDamaged) + " (" + rules.Failure().where + ")");
      return false;
    }
    names = presets.Names();
  }
  if (const Preset* const preset = FindBuiltInPreset(name)) {
    options.modify = preset->rules;
    return true;
  }
  for (const Preset& preset : BuiltInPresets()) names.push_back(preset.name);
  Complain(Localized(messages::kNoPreset) + OnOneLine(name));
  for (const std::string& known : names) Complain("  " + OnOneLine(known));
  return false;
}

}  // namespace quillon::cli
