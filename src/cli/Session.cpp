#include "cli/Session.h"

#include <utility>

#include "cli/Output.h"
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

}  // namespace

bool Console::Show(const Message& message) {
  // A question would have nobody to answer it; the first line says what happened.
  const bool question = message.buttons != MessageButtons::kOk;
  const std::string text = question ? message.text.substr(0, message.text.find("\r\n")) : message.text;
  const bool named = subject_.empty() || text.find(subject_) != std::string::npos;
  Complain(message.caption + ": " + WithoutLineBreaks(text) + (named ? "" : ": " + subject_));
  return false;
}

void Console::PassedOver(const std::string& path, Obstacle obstacle) {
  passedOver_ = true;
  Complain("フォルダ参照: " + std::string(ReasonOf(obstacle)) + ": " + path);
}

Session::Session(OptionValues initial)
    : options(std::move(initial)),
      loader_(list, options, mode, {*files, console, console, console, console, console, console, console, console}) {}

bool Session::Load(const Selection& selection) {
  options.list.searchSubfolders = selection.subfolders;
  options.list.clearBeforeLoading = false;
  options.find = {};
  options.find.filterByExtension = !selection.all;
  if (selection.ownExtensions) options.find.media.extensions = selection.extensions;
  bool complete = true;
  for (const std::string& path : selection.paths) {
    console.SetSubject(FullPath(path));
    const LoadOutcome outcome = loader_.LoadPath(FullPath(path));
    complete = complete && (outcome == LoadOutcome::kLoaded || outcome == LoadOutcome::kDuplicate);
  }
  console.SetSubject({});
  return complete && !console.HasPassedOver();
}

std::optional<OptionValues> LoadSettings(const std::string& path) {
  if (path.empty()) return OptionValues{};
  const std::string fullPath = FullPath(path);
  IniFile file(fullPath);
  // A file that was asked for has to be there.
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
