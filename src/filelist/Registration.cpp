#include "filelist/Registration.h"

#include <memory>
#include <utility>

#include "base/Finally.h"
#include "base/Result.h"
#include "media/MediaInfo.h"
#include "paths/basFileControl.h"

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

Result<FileItem, FileError> ReadRow(FileReads& files, const std::string& path, PathStyle style) {
  FileItem row;
  row.type = GetMediaType(Extension(path, style));
  const std::unique_ptr<ByteSource> file = HasReader(row.type) ? files.OpenFile(path) : nullptr;
  if (file) {
    MediaInfo info = ReadMediaInfo(*file, row.type);
    row.size = file->Size();
    row.title = std::move(info.title);
    row.artist = std::move(info.copyright);
  } else {
    const Result<FileStatus, FileError> status = files.Status(path);
    if (!status) return status.Failure();
    if (status->kind != FileStatus::Kind::kFile) return FileError{file_error::kNotFound, {}};
    row.size = status->length;
    if (!HasReader(row.type)) row.title = row.artist = kNoMediaText;
  }
  row.renameName = BaseName(path, style);
  row.location = path;
  return row;
}

/// Adds the type's icon number and the options' check mark to a row.
FileItem Listed(FileItem row, FileList& list, const RegisterOptions& options) {
  row.iconNumber = list.IconNumber(row.type.Text());
  row.checked = options.checked;
  return row;
}

}  // namespace

Registered RegisterFiles(FileList& list, FileReads& files, std::vector<std::string> paths,
                         const RegisterOptions& options, Progress& progress, PathStyle style) {
  Registered registered;
  list.BeginChanges();
  const Finally told([&list] { list.EndChanges(); });
  list.Reserve(paths.size());
  std::size_t done = 0;
  bool goesOn = progress.Continue(done, paths.size(), {});
  for (std::string& held : paths) {
    if (!goesOn) break;
    const std::string path = std::move(held);  // the row keeps it; a million paths are not held twice
    if (list.ContainsFile(path)) {
      ++registered.duplicates;
    } else if (Result<FileItem, FileError> row = ReadRow(files, path, style)) {
      list.Add(Listed(std::move(*row), list, options));
    } else if (const std::optional<Obstacle> obstacle = ObstacleOf(row.Failure());
               obstacle || options.onError == OnError::kPassOver) {
      registered.passedOver.push_back({path, obstacle.value_or(Obstacle::kNoAccess)});
    } else {
      registered.error = row.Failure();
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
    const std::string path = list.Row(index).location;
    Result<FileItem, FileError> row = ReadRow(files, path, style);
    if (row) {
      list.Replace(index, Listed(std::move(*row), list, options));
    } else if (row.Failure().number == file_error::kNotFound) {
      missing[done] = true;
    }
    goesOn = progress.Continue(done, count, path);
  }
  list.RemoveWhere([&](int index, const FileItem&) { return missing[static_cast<std::size_t>(index)]; });
}

}  // namespace quillon
