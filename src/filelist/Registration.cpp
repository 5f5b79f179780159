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

Result<ReadFile, FileError> ReadRow(FilesInTurn& files, const std::string& path, TagSources tags, PathStyle style) {
  ReadFile read;
  FileItem& row = read.row;
  row.type = GetMediaType(Extension(path, style));
  const bool isRead = IsReadForRow(row.type, tags);
  if (ByteSource* const file = isRead ? files.Open() : nullptr) {
    MediaInfo info = ReadRowTexts(*file, row.type, tags);
    row.size = file->Size();
    row.title = std::move(info.title);
    row.artist = std::move(info.copyright);
    read.hasUnreadTag = tags == TagSources::kStandard && info.newerTag && HasNoTitle(row.title);
  } else {
    const Result<FileStatus, FileError> status = files.Status();
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

NeedsOf NeedsForRows(TagSources tags, PathStyle style) {
  return [tags, style](const PathList::File& file) {
    return NeedsForRow(GetMediaType(Extension(file.name, style)), tags);
  };
}

/// The same, but files that the list already holds are not read.
NeedsOf NeedsForNewRows(const FileList& list, TagSources tags, PathStyle style) {
  if (list.Count() == 0) return NeedsForRows(tags, style);
  return [&list, needs = NeedsForRows(tags, style), path = std::string()](const PathList::File& file) mutable {
    file.PathInto(path);
    return list.ContainsFile(path) ? FileNeeds() : needs(file);
  };
}

/// The locations of these rows.
template <class Chosen>
PathList LocationsOf(const FileList& list, Chosen chosen) {
  PathList locations;
  for (int index = 1; index <= list.Count(); ++index) {
    const FileRow row = list.Row(index);
    if (chosen(row)) locations.Add(row.folder, row.name);
  }
  return locations;
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
  const std::unique_ptr<FilesInTurn> reading = files.ReadInTurn(paths, NeedsForNewRows(list, options.tags, style));
  std::size_t done = 0;
  bool goesOn = progress.Continue(done, paths.size(), {});
  std::string path;
  for (const PathList::File file : paths) {
    if (!goesOn) break;
    reading->Next();
    file.PathInto(path);
    if (list.ContainsFile(path)) {
      ++registered.duplicates;
    } else if (Result<ReadFile, FileError> read = ReadRow(*reading, path, options.tags, style)) {
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
  const PathList locations = LocationsOf(list, [](const FileRow&) { return true; });
  const std::unique_ptr<FilesInTurn> reading = files.ReadInTurn(locations, NeedsForRows(options.tags, style));
  bool goesOn = progress.Continue(0, count, {});
  for (std::size_t done = 1; done <= count && goesOn; ++done) {
    const int index = static_cast<int>(done);
    const std::string path = list.Row(index).Location();
    reading->Next();
    Result<ReadFile, FileError> read = ReadRow(*reading, path, options.tags, style);
    if (read) {
      list.Replace(index, Listed(std::move((*read).row), options));
    } else if (read.Failure().number == file_error::kNotFound) {
      missing[done] = true;
    }
    goesOn = progress.Continue(done, count, path);
  }
  list.RemoveWhere([&](int index, const FileRow&) { return missing[static_cast<std::size_t>(index)]; });
}

void ReadTitlesAnew(FileList& list, FileReads& files, Progress& progress, PathStyle style) {
  list.BeginChanges();
  const Finally told([&list] { list.EndChanges(); });
  const auto count = static_cast<std::size_t>(list.Count());
  const auto isRead = [](const FileRow& row) {
    return HasNoTitle(row.title) && IsReadForRow(row.type, TagSources::kAll);
  };
  const PathList locations = LocationsOf(list, isRead);
  const std::unique_ptr<FilesInTurn> reading = files.ReadInTurn(locations, NeedsForRows(TagSources::kAll, style));
  bool goesOn = progress.Continue(0, count, {});
  for (std::size_t done = 1; done <= count && goesOn; ++done) {
    const int index = static_cast<int>(done);
    const FileRow row = list.Row(index);
    const std::string location = row.Location();
    if (isRead(row)) {
      reading->Next();
      if (ByteSource* const file = reading->Open()) {
        const MediaInfo info = ReadRowTexts(*file, row.type, TagSources::kAll);
        list.SetTexts(index, info.title, info.copyright);
      }
    }
    goesOn = progress.Continue(done, count, location);
  }
}

}  // namespace quillon
