#include "filelist/Registration.h"

#include <memory>
#include <utility>

#include "base/Finally.h"
#include "base/Result.h"
#include "media/MediaInfo.h"
#include "paths/basFileControl.h"
#include "tags/SongReader.h"
#include "tags/TagLibReader.h"

namespace quillon {
namespace {

// Why a load skips the file; nullopt for an error that does not concern the file only.
std::optional<Obstacle> ObstacleOf(const FileError& error) {
  switch (error.number) {
    case file_error::kAccess: return Obstacle::kNoAccess;
    case file_error::kNotFound: return Obstacle::kGone;
    default: return std::nullopt;
  }
}

struct ReadFile {
  FileItem row;
  bool hasUnreadTag = false;  ///< one that TagSources::kAll reads
};

Result<ReadFile, FileError> ReadRow(FileReads& files, const std::string& path, TagSources tags, PathStyle style) {
  ReadFile read;
  FileItem& row = read.row;
  row.type = GetMediaType(Extension(path, style));
  const bool isRead = IsReadForRow(row.type, tags);
  const std::unique_ptr<ByteSource> file = isRead ? files.OpenFile(path) : nullptr;
  if (file) {
    MediaInfo info = ReadRowTexts(*file, row.type, tags);
    row.size = file->Size();
    row.title = std::move(info.title);
    row.artist = std::move(info.copyright);
    read.hasUnreadTag = tags == TagSources::kStandard && info.newerTag && HasNoTitle(row.title);
  } else {
    const Result<FileStatus, FileError> status = files.Status(path);
    if (!status) return status.Failure();
    if (status->kind != FileStatus::Kind::kFile) return FileError{file_error::kNotFound, {}};
    row.size = status->length;
    // A file that has no reader of its own has these texts also when it cannot be opened.
    if (!HasReader(row.type)) row.title = row.artist = kNoMediaText;
    read.hasUnreadTag = !isRead && UsuallyHasMoreTags(row.type);
  }
  row.renameName = BaseName(path, style);
  row.location = path;
  return read;
}

/// Gives a row the options' check mark.
FileItem Listed(FileItem row, const RegisterOptions& options) {
  row.checked = options.checked;
  return row;
}

}  // namespace

TagSources TagSourcesOf(const OptionValues& options) {
  return options.extra.readMoreTags ? TagSources::kAll : TagSources::kStandard;
}

Registered RegisterFiles(FileList& list, FileReads& files, const PathList& paths, const RegisterOptions& options,
                         Progress& progress, PathStyle style) {
  Registered registered;
  list.BeginChanges();
  const Finally told([&list] { list.EndChanges(); });
  list.Reserve(paths.size());
  std::size_t done = 0;
  bool goesOn = progress.Continue(done, paths.size(), {});
  std::string path;
  for (const PathList::File file : paths) {
    if (!goesOn) break;
    file.PathInto(path);
    if (list.ContainsFile(path)) {
      ++registered.duplicates;
    } else if (Result<ReadFile, FileError> read = ReadRow(files, path, options.tags, style)) {
      if (read->hasUnreadTag) ++registered.unreadTags;
      list.Add(Listed(std::move((*read).row), options));
    } else if (const std::optional<Obstacle> obstacle = ObstacleOf(read.Failure());
               obstacle || options.onError == OnError::kPassOver) {
      registered.passedOver.push_back({path, obstacle.value_or(Obstacle::kNoAccess)});
    } else {
      registered.error = read.Failure();
      break;
    }
    goesOn = progress.Continue(++done, paths.size(), path);
  }
  return registered;
}

void ReadRowsAnew(FileList& list, FileReads& files, const RegisterOptions& options, Progress& progress,
                  PathStyle style) {
  list.BeginChanges();
  const Finally told([&list] { list.EndChanges(); });
  const auto count = static_cast<std::size_t>(list.Count());
  std::vector<bool> missing(count + 1);
  bool goesOn = progress.Continue(0, count, {});
  for (std::size_t done = 1; done <= count && goesOn; ++done) {
    const int index = static_cast<int>(done);
    const std::string path = list.Row(index).Location();
    Result<ReadFile, FileError> read = ReadRow(files, path, options.tags, style);
    if (read) {
      list.Replace(index, Listed(std::move((*read).row), options));
    } else if (read.Failure().number == file_error::kNotFound) {
      missing[done] = true;
    }
    goesOn = progress.Continue(done, count, path);
  }
  list.RemoveWhere([&](int index, const FileRow&) { return missing[static_cast<std::size_t>(index)]; });
}

void ReadTitlesAnew(FileList& list, FileReads& files, Progress& progress) {
  list.BeginChanges();
  const Finally told([&list] { list.EndChanges(); });
  const auto count = static_cast<std::size_t>(list.Count());
  bool goesOn = progress.Continue(0, count, {});
  for (std::size_t done = 1; done <= count && goesOn; ++done) {
    const int index = static_cast<int>(done);
    const FileRow row = list.Row(index);
    const std::string location = row.Location();
    const bool isRead = HasNoTitle(row.title) && IsReadForRow(row.type, TagSources::kAll);
    if (const std::unique_ptr<ByteSource> file = isRead ? files.OpenFile(location) : nullptr) {
      const MediaInfo info = ReadRowTexts(*file, row.type, TagSources::kAll);
      list.SetTexts(index, info.title, info.copyright);
    }
    goesOn = progress.Continue(done, count, location);
  }
}

}  // namespace quillon
