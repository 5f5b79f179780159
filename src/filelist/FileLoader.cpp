#include "filelist/FileLoader.h"

#include <utility>

#include "base/Finally.h"
#include "media/MediaInfo.h"
#include "paths/basFileControl.h"

namespace quillon {
namespace {

constexpr const char* kCaption = "フォルダ参照";
constexpr const char* kDone = "% 完了しました";

// Why a load goes on without the file; nullopt for an error that ends it.
std::optional<Obstacle> ObstacleOf(const FileError& error) {
  switch (error.number) {
    case file_error::kAccess: return Obstacle::kNoAccess;
    case file_error::kNotFound: return Obstacle::kGone;
    default: return std::nullopt;
  }
}

std::string Percent(std::size_t done, std::size_t all) {
  return "  " + std::to_string(done * 100 / all) + kDone;
}

}  // namespace

std::string OpenFilePattern(const OptionValues::Find& find) {
  if (!find.filterByExtension) return "*.*";
  std::string text;
  const auto append = [&](bool enabled, const std::string& extensions) {
    if (enabled) text += " " + extensions;
  };
  append(find.other.on, find.other.extensions);
  append(find.html.on, find.html.extensions);
  append(find.media.on, find.media.extensions);
  append(find.text.on, find.text.extensions);
  if (text.empty()) return "*.*";
  std::string pattern;
  for (const char c : text) {
    if (c == ' ') {
      pattern += ";*.";
    } else {
      pattern += c;
    }
  }
  return pattern.substr(1);
}

std::vector<FileDialogFilter> OpenFileFilters(const OptionValues::Find& find) {
  const std::string pattern = OpenFilePattern(find);
  return {{"ファイル (" + pattern + ")", pattern},
          {"すべてのメディアファイル", "*.mid;*.mp3;*.mpeg;*.mpe;*.mpg;*.avi;*.wav"},
          {"MIDIファイル", "*.mid"},
          {"MP3ファイル", "*.mp3"},
          {"WAVEファイル", "*.wav"},
          {"MPEGファイル", "*.mpe;*.mpg;*.mpeg"},
          {"AVIファイル", "*.avi"}};
}

FileLoader::FileLoader(FileList& list, OptionValues& options, ApplyMode& mode, Ports ports, PathStyle style,
                       std::chrono::milliseconds progressInterval)
    : list_(list),
      options_(options),
      mode_(mode),
      ports_(ports),
      style_(style),
      progressInterval_(progressInterval),
      search_(ports.files, ports.search, ports.pending, style) {}

std::string FileLoader::ChooseFolder() {
  return ports_.folders.Choose("リネームするファイルが格納されているフォルダを選択してください",
                               options_.system.loadFolder, "");
}

LoadOutcome FileLoader::mnuFolderReference() {
  cancelled_ = false;
  const std::string folder = ChooseFolder();
  return folder.empty() ? LoadOutcome::kCancelled : LoadFolder(folder);
}

LoadOutcome FileLoader::LoadFolder(std::string folder) {
  for (;;) {
    folder = WithTrailingSeparator(folder, style_);
    options_.system.loadFolder = folder;
    if (list_.ContainsFolder(folder)) {
      ports_.boxes.Show({kCaption, folder + "\r\n\r\n既にこのフォルダは読み込まれています", MessageIcon::kExclamation});
      return LoadOutcome::kDuplicate;
    }
    FoundFiles found = Search(folder);
    if (found.error) return Failed(*found.error);
    if (found.cancelled) return LoadOutcome::kCancelled;
    const std::string trash = UserTrashFolder();
    std::erase_if(found.paths, [&](const std::string& path) { return IsInRecycleBin(path, trash, style_); });
    if (!found.paths.empty()) return Register(std::move(found.paths));
    if (!ports_.boxes.Show({kCaption,
                            "指定されたフォルダ内にファイルが見つかりませんでした\r\n別のフォルダを参照しますか",
                            MessageIcon::kQuestion, MessageButtons::kYesNo})) {
      return LoadOutcome::kNothing;
    }
    folder = ChooseFolder();
    if (folder.empty()) return LoadOutcome::kCancelled;
  }
}

FoundFiles FileLoader::Search(const std::string& folder) {
  ports_.search.Begin("フォルダ内を検索しています...", "検索対象 : " + folder);
  const Finally ended([this] { ports_.search.End(); });
  return search_.Search(folder, SearchFilter(options_.find), options_.list.searchSubfolders);
}

LoadOutcome FileLoader::Register(std::vector<std::string> paths) {
  if (options_.list.clearBeforeLoading) {
    ports_.player.Stop();
    ports_.player.Choose("");
    list_.Clear();
  }
  ResetPanels();
  if (const std::optional<FileError> error = AddFound(std::move(paths))) return Failed(*error);
  ShowFirstRow();
  return LoadOutcome::kLoaded;
}

// The error that has ended it. Rows that were added before stay.
std::optional<FileError> FileLoader::AddFound(std::vector<std::string> paths) {
  ports_.progress.Begin("ファイル情報解析中...", "");
  const Finally ended([this] { ports_.progress.End(); });
  list_.BeginChanges();
  const Finally told([this] { list_.EndChanges(); });
  ports_.progress.Update(std::string("0") + kDone, "");
  Throttle throttle(progressInterval_);
  list_.Reserve(paths.size());
  std::size_t done = 0;
  for (std::string& held : paths) {
    const std::string path = std::move(held);  // the row keeps it; a million paths are not held twice
    ports_.pending.Process();
    if (cancelled_) break;
    if (!list_.ContainsFile(path)) {
      Result<FileItem, FileError> row = MakeRow(path);
      if (row) {
        list_.Add(std::move(*row));
      } else if (const std::optional<Obstacle> obstacle = ObstacleOf(row.Failure())) {
        ports_.search.PassedOver(path, *obstacle);
      } else {
        return row.Failure();
      }
    }
    ++done;
    if (throttle.Due() || done == paths.size()) ports_.progress.Update(Percent(done, paths.size()), "");
  }
  return std::nullopt;
}

LoadOutcome FileLoader::Failed(const FileError& error) {
  options_.system.loadFolder.clear();
  if (error.number == file_error::kUnreachable) {
    ports_.boxes.Show({kCaption,
                       "指定されたパスにアクセスできません。メディアが挿入されているか確認してください\r\n"
                       "ファイルを読み込めませんでした",
                       MessageIcon::kExclamation});
  } else {
    ports_.boxes.Show(
        {kCaption,
         "検索中にエラーが発生しました\r\nファイルの読み込みを中断しました (" + std::to_string(error.number) + ")",
         MessageIcon::kStop});
  }
  return LoadOutcome::kFailed;
}

Result<FileItem, FileError> FileLoader::MakeRow(const std::string& path) {
  FileItem row;
  row.type = GetMediaType(Extension(path, style_));
  const std::unique_ptr<ByteSource> file = HasReader(row.type) ? ports_.files.OpenFile(path) : nullptr;
  if (file) {
    MediaInfo info = ReadMediaInfo(*file, row.type);
    row.size = file->Size();
    row.title = std::move(info.title);
    row.artist = std::move(info.copyright);
  } else {
    const Result<FileStatus, FileError> status = ports_.files.Status(path);
    if (!status) return status.Failure();
    if (status->kind != FileStatus::Kind::kFile) return FileError{file_error::kNotFound, {}};
    row.size = status->length;
    if (!HasReader(row.type)) row.title = row.artist = kNoMediaText;
  }
  row.renameName = BaseName(path, style_);
  row.location = path;
  row.iconNumber = list_.IconNumber(row.type);
  row.checked = options_.list.checkLoadedRows;
  return row;
}

LoadOutcome FileLoader::AddFile(const std::string& path) {
  if (list_.ContainsFile(path)) {
    TellDuplicates(1);
    return LoadOutcome::kDuplicate;
  }
  Result<FileItem, FileError> row = MakeRow(path);
  if (!row && ObstacleOf(row.Failure()) == Obstacle::kGone) {
    ports_.search.PassedOver(path, Obstacle::kGone);
    return LoadOutcome::kNothing;
  }
  if (!row) return Failed(row.Failure());
  list_.Add(std::move(*row));
  return LoadOutcome::kLoaded;
}

LoadOutcome FileLoader::LoadPath(const std::string& path) {
  if (path.empty()) return LoadOutcome::kNothing;  // as a folder it would be the root
  return ports_.files.IsFile(path) ? AddFile(path) : LoadFolder(path);
}

void FileLoader::LoadPaths(const std::vector<std::string>& paths) {
  cancelled_ = false;
  const bool clear = std::exchange(options_.list.clearBeforeLoading, false);
  const Finally restored([&] { options_.list.clearBeforeLoading = clear; });
  std::vector<std::string> files;  // that follow one another
  for (const std::string& path : paths) {
    if (path.empty()) continue;  // as a folder it would be the root
    if (ports_.files.IsFile(path)) {
      files.push_back(path);
      continue;
    }
    AddFiles(std::exchange(files, {}));
    if (!cancelled_) LoadFolder(path);
    if (cancelled_) break;
  }
  AddFiles(files);
}

void FileLoader::AddFiles(const std::vector<std::string>& paths) {
  if (paths.size() == 1) AddFile(paths.front());
  if (paths.size() <= 1 || cancelled_) return;
  TellDuplicates(AddEach(paths));
}

// How many of them were listed already.
std::size_t FileLoader::AddEach(const std::vector<std::string>& paths) {
  ports_.progress.Begin("ファイル情報解析中...", "");
  const Finally ended([this] { ports_.progress.End(); });
  list_.BeginChanges();
  const Finally told([this] { list_.EndChanges(); });
  Throttle throttle(progressInterval_);
  std::size_t done = 0;
  std::size_t duplicates = 0;
  for (const std::string& path : paths) {
    ports_.pending.Process();
    if (cancelled_) break;
    if (list_.ContainsFile(path)) {
      ++duplicates;
    } else if (Result<FileItem, FileError> row = MakeRow(path)) {
      list_.Add(std::move(*row));
    } else {
      ports_.search.PassedOver(path, ObstacleOf(row.Failure()).value_or(Obstacle::kNoAccess));
    }
    ++done;
    if (throttle.Due() || done == paths.size()) ports_.progress.Update(Percent(done, paths.size()), "");
  }
  return duplicates;
}

void FileLoader::TellDuplicates(std::size_t count) {
  if (count == 0) return;
  const std::string text = count == 1 ? "既にこのファイルは読み込まれています"
                                      : std::to_string(count) + " 個のファイルは既に読み込まれています";
  ports_.boxes.Show({kCaption, text, MessageIcon::kExclamation});
}

void FileLoader::mnuReload() {
  if (!options_.system.suppressConfirmations &&
      !ports_.boxes.Show({"再読み込み", "再読み込みを行うと現在の編集内容はすべて失われます。実行しますか",
                          MessageIcon::kQuestion, MessageButtons::kOkCancel})) {
    return;
  }
  cancelled_ = false;
  ports_.player.Stop();
  ResetPanels();
  ReadRowsAnew();
  ShowFirstRow();
  if (cancelled_) return;  // the window is about to close
  RereadApplyMode(mode_, options_, ports_.boxes);
  ports_.panels.SetModeText(ApplyModeText(mode_));
}

void FileLoader::ReadRowsAnew() {
  ports_.progress.Begin("登録されたファイルの再読み込み中...", "対象フォルダ : " + options_.system.loadFolder);
  const Finally ended([this] { ports_.progress.End(); });
  list_.BeginChanges();
  const Finally told([this] { list_.EndChanges(); });
  Throttle throttle(progressInterval_);
  const int count = list_.Count();
  std::vector<bool> missing(static_cast<std::size_t>(count) + 1);
  for (int index = 1; index <= count && !cancelled_; ++index) {
    ports_.pending.Process();
    Result<FileItem, FileError> row = MakeRow(list_.Row(index).location);
    if (row) {
      list_.Replace(index, std::move(*row));
    } else if (row.Failure().number == file_error::kNotFound) {
      missing[static_cast<std::size_t>(index)] = true;
    }
    if (throttle.Due() || index == count) {
      ports_.progress.Update(std::to_string(index * 100LL / count) + kDone, "");
    }
  }
  list_.RemoveWhere([&](int index, const FileItem&) { return missing[static_cast<std::size_t>(index)]; });
}

void FileLoader::ResetPanels() {
  list_.SelectNone();
  ports_.filePanel.Reset();
  ports_.panels.SetPlayerText(kPlayerIdleText);
}

void FileLoader::ShowFirstRow() {
  if (list_.Count() == 0) return;
  list_.SelectOnly(1);
  ports_.filePanel.ShowRow(1);
}

}  // namespace quillon
