#include "cli/Session.h"

#include <utility>

#include "cli/Output.h"
#include "filelist/FolderSearch.h"
#include "filelist/LoadTexts.h"
#include "filelist/Registration.h"
#include "paths/basFileControl.h"
#include "platform/Program.h"
#include "settings/Settings.h"

namespace quillon::cli {
namespace {

// A message's lines, joined into one.
std::string WithoutLineBreaks(std::string text) {
  for (std::size_t at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n")) text.replace(at, 2, " ");
  return text;
}

const char* ReasonOf(Obstacle obstacle) {
  switch (obstacle) {
    case Obstacle::kTooDeep: return "階層が深すぎます";
    case Obstacle::kGone: return "ファイルがなくなりました";
    case Obstacle::kNoAccess: break;
  }
  return "アクセスできません";
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
  for (int index = 1; index <= list.Count(); ++index) locations.push_back(list.Row(index).location);
  return locations;
}

void Session::SetLocations(std::vector<std::string> locations) {
  for (int index = 1; index <= list.Count(); ++index) {
    list.SetLocation(index, std::move(locations[static_cast<std::size_t>(index - 1)]));
  }
}

// True when the path's rows were loaded, or its folder or file was listed already.
bool Session::LoadPath(const std::string& path, const Selection& selection) {
  UntilInterrupted progress;
  if (path.empty()) return false;  // it would be loaded as the root folder
  return files->IsFile(path) ? Register({path}, path, progress) : LoadFolder(path, selection, progress);
}

bool Session::LoadFolder(const std::string& path, const Selection& selection, UntilInterrupted& progress) {
  const std::string folder = WithTrailingSeparator(path);
  if (list.ContainsFolder(folder)) {
    Complain(kLoadCaption, FolderListedText(folder), path);
    return true;
  }
  FoundFiles found = FolderSearch(*files, progress).Search(folder, FilterOf(selection), selection.subfolders);
  const bool complete = !ComplainAbout(found.passedOver);
  if (found.error) {
    Complain(kLoadCaption, LoadFailureText(*found.error), path);
    return false;
  }
  LeaveOutRecycleBin(found.paths);
  if (found.paths.empty()) {
    Complain(kLoadCaption, kNothingFoundText, path);
    return false;
  }
  return Register(std::move(found.paths), path, progress) && complete;
}

bool Session::Register(std::vector<std::string> paths, const std::string& subject, UntilInterrupted& progress) {
  const bool single = paths.size() == 1 && paths.front() == subject;
  const Registered registered = RegisterFiles(list, *files, std::move(paths), {.tags = tags}, progress);
  if (single && registered.duplicates > 0) Complain(kLoadCaption, FilesListedText(1), subject);
  if (registered.error) Complain(kLoadCaption, LoadFailureText(*registered.error), subject);
  return !ComplainAbout(registered.passedOver) && !registered.error;
}

// Returns true when there were any.
bool Session::ComplainAbout(const std::vector<PassedOver>& paths) {
  for (const PassedOver& passed : paths) {
    Complain(std::string(kLoadCaption) + ": " + ReasonOf(passed.obstacle) + ": " + passed.path);
  }
  return !paths.empty();
}

std::optional<OptionValues> LoadSettings(const std::string& path) {
  if (path.empty()) return OptionValues{};
  const std::string fullPath = FullPath(path);
  IniFile file(fullPath);
  // A settings file that the user names must exist.
  if (!MakeFileReads()->IsFile(fullPath) || !file.Load()) {
    Complain("設定ファイルを読み込めません: " + fullPath);
    return std::nullopt;
  }
  Result<OptionValues, SettingsError> options = ReadOptionValues(file);
  if (options) return std::move(*options);
  const SettingsError& error = options.Failure();
  Complain(WithoutLineBreaks(InitialisationError().text) + " ([" + error.section + "] " + error.key + "=" + error.text +
           ")");
  return std::nullopt;
}

}  // namespace quillon::cli
