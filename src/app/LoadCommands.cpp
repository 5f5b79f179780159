#include "app/LoadCommands.h"

#include <utility>

#include "app/ShownProgress.h"
#include "base/Finally.h"
#include "filelist/LoadTexts.h"
#include "paths/basFileControl.h"

namespace quillon {
namespace {

/// Shows the folder being searched.
class SearchProgress final : public Progress {
 public:
  SearchProgress(PendingMessages& pending, SearchDisplay& display, const bool& cancelled)
      : pending_(pending), display_(display), cancelled_(cancelled) {}

  bool Continue(std::size_t /*found*/, std::size_t /*total*/, const std::string& folder) override {
    if (throttle_.Due()) display_.ShowFolder(folder);
    return !cancelled_;
  }
  bool Continue() override {
    pending_.Process();
    return !cancelled_;
  }

 private:
  PendingMessages& pending_;
  SearchDisplay& display_;
  const bool& cancelled_;
  Throttle throttle_{kProgressInterval};
};

}  // namespace

LoadCommands::LoadCommands(const Session& session, FileReads& files, const LoadWindows& windows, const Screen& screen,
                           std::chrono::milliseconds progressInterval)
    : session_(session), files_(files), windows_(windows), screen_(screen), progressInterval_(progressInterval) {}

std::string LoadCommands::ChooseFolder() {
  return windows_.folders.Choose("リネームするファイルが格納されているフォルダを選択してください",
                                 session_.options.system.loadFolder, "");
}

LoadOutcome LoadCommands::mnuFolderReference() {
  const std::string folder = ChooseFolder();
  return folder.empty() ? LoadOutcome::kCancelled : LoadFolder(folder);
}

LoadOutcome LoadCommands::LoadFolder(std::string folder) {
  cancelled_ = false;
  return Load(std::move(folder), Clearing::kAsOptionsSay);
}

LoadOutcome LoadCommands::Load(std::string folder, Clearing clearing) {
  bool subfolders = session_.options.list.searchSubfolders;
  for (;;) {
    folder = WithTrailingSeparator(folder, session_.style);
    session_.options.system.loadFolder = folder;
    if (session_.list.ContainsFolder(folder)) {
      screen_.boxes.Show({kLoadCaption, FolderListedText(folder), MessageIcon::kExclamation});
      return LoadOutcome::kDuplicate;
    }
    FoundFiles found = Search(folder, subfolders);
    passedOver_.Add(found.passedOver);
    if (found.error) return Failed(*found.error);
    if (found.cancelled) return LoadOutcome::kCancelled;
    LeaveOutRecycleBin(found, session_.style);
    if (!found.paths.empty()) return Register(found.paths, clearing);
    switch (screen_.boxes.AskQuestion(NothingFoundQuestion(folder, SearchFilter(session_.options.find), found))) {
      case QuestionAnswer::kNo: return LoadOutcome::kNothing;
      case QuestionAnswer::kFurther: subfolders = true; break;
      case QuestionAnswer::kYes:
        folder = ChooseFolder();
        if (folder.empty()) return LoadOutcome::kCancelled;
        subfolders = session_.options.list.searchSubfolders;
    }
  }
}

FoundFiles LoadCommands::Search(const std::string& folder, bool subfolders) {
  const std::string status = "フォルダ内を検索しています...";
  screen_.status.ShowForNow(status);
  windows_.search.Begin(status, "検索対象 : " + folder);
  const Finally ended([this] {
    windows_.search.End();
    screen_.status.ShowAgain();
  });
  SearchProgress progress(screen_.pending, windows_.search, cancelled_);
  return FolderSearch(files_, progress, session_.style).Search(folder, SearchFilter(session_.options.find), subfolders);
}

LoadOutcome LoadCommands::Register(const PathList& paths, Clearing clearing) {
  if (clearing == Clearing::kAsOptionsSay && session_.options.list.clearBeforeLoading) {
    session_.player.Stop();
    session_.player.Choose("");
    session_.list.Clear();
  }
  screen_.Reset(session_.list);
  const Registered registered = RegisterShown(paths, OnError::kEnd, true);
  if (registered.error) return Failed(*registered.error);
  ShowFirstRow();
  return LoadOutcome::kLoaded;
}

RegisterOptions LoadCommands::RegisterAs(OnError onError) const {
  return {.checked = session_.options.list.checkLoadedRows, .onError = onError, .tags = TagSourcesOf(session_.options)};
}

Registered LoadCommands::RegisterShown(const PathList& paths, OnError onError, bool showsStart) {
  windows_.progress.Begin("ファイル情報解析中...", "");
  const Finally ended([this] { windows_.progress.End(); });
  ShownProgress progress(
      screen_.pending, windows_.progress, {.indent = "  ", .showsStart = showsStart}, [this] { return cancelled_; },
      progressInterval_);
  return Add(paths, onError, progress);
}

Registered LoadCommands::Add(const PathList& paths, OnError onError, Progress& progress) {
  Registered registered = RegisterFiles(session_.list, files_, paths, RegisterAs(onError), progress, session_.style);
  passedOver_.Add(registered.passedOver);
  unreadTags_ += registered.unreadTags;
  return registered;
}

LoadOutcome LoadCommands::Failed(const FileError& error) {
  session_.options.system.loadFolder.clear();
  const bool unreachable = error.number == file_error::kUnreachable;
  screen_.boxes.Show(
      {kLoadCaption, LoadFailureText(error), unreachable ? MessageIcon::kExclamation : MessageIcon::kStop});
  return LoadOutcome::kFailed;
}

LoadOutcome LoadCommands::AddFile(const std::string& path) {
  Unwatched progress;
  PathList paths;
  AddPath(paths, path, session_.style);
  const Registered registered = Add(paths, OnError::kEnd, progress);
  if (registered.duplicates > 0) {
    TellDuplicates(1);
    return LoadOutcome::kDuplicate;
  }
  if (registered.error) return Failed(*registered.error);
  return registered.passedOver.empty() ? LoadOutcome::kLoaded : LoadOutcome::kNothing;
}

LoadOutcome LoadCommands::LoadPath(const std::string& path) {
  if (path.empty()) return LoadOutcome::kNothing;  // it would be loaded as the root folder
  return files_.IsFile(path) ? AddFile(path) : LoadFolder(path);
}

void LoadCommands::LoadPaths(const std::vector<std::string>& paths) {
  cancelled_ = false;
  std::vector<std::string> files;  // consecutive ones, added together
  for (const std::string& path : paths) {
    if (path.empty()) continue;  // it would be loaded as the root folder
    if (files_.IsFile(path)) {
      files.push_back(path);
      continue;
    }
    AddFiles(std::exchange(files, {}));
    if (!cancelled_) Load(path, Clearing::kNever);
    if (cancelled_) break;
  }
  AddFiles(files);
}

void LoadCommands::AddFiles(const std::vector<std::string>& paths) {
  if (paths.size() == 1) AddFile(paths.front());
  if (paths.size() <= 1 || cancelled_) return;
  PathList list;
  for (const std::string& path : paths) AddPath(list, path, session_.style);
  TellDuplicates(RegisterShown(list, OnError::kPassOver, false).duplicates);
}

void LoadCommands::TellDuplicates(std::size_t count) {
  if (count > 0) screen_.boxes.Show({kLoadCaption, FilesListedText(count), MessageIcon::kExclamation});
}

void LoadCommands::mnuReload() {
  if (!session_.options.system.suppressConfirmations &&
      !screen_.boxes.Show({"再読み込み", "再読み込みを行うと現在の編集内容はすべて失われます。実行しますか",
                           MessageIcon::kQuestion, MessageButtons::kOkCancel})) {
    return;
  }
  cancelled_ = false;
  session_.player.Stop();
  screen_.Reset(session_.list);
  ReadAnew();
  ShowFirstRow();
  if (cancelled_) return;  // the window is about to close
  RereadApplyMode(session_.mode, session_.options, screen_.boxes);
  screen_.status.SetModeText(ApplyModeText(session_.mode));
}

void LoadCommands::ReadAnew() {
  windows_.progress.Begin("登録されたファイルの再読み込み中...",
                          "対象フォルダ : " + session_.options.system.loadFolder);
  const Finally ended([this] { windows_.progress.End(); });
  ShownProgress progress(
      screen_.pending, windows_.progress, {}, [this] { return cancelled_; }, progressInterval_);
  ReadRowsAnew(session_.list, files_, RegisterAs(OnError::kEnd), progress, session_.style);
}

void LoadCommands::ShowFirstRow() {
  if (session_.list.Count() == 0) return;
  session_.list.SelectOnly(1);
  screen_.filePanel.ShowRow(1);
}

}  // namespace quillon
