#include "filelist/FolderSearch.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "paths/basFileControl.h"

namespace quillon {
namespace {

// Far deeper than any real tree; a guard against endless ones on a broken file system.
constexpr int kDeepest = 1000;

bool IsOneOfTrashFolders(std::string_view component) {
  constexpr std::string_view kTrash = ".Trash";
  if (component == kTrash) return true;
  if (component.substr(0, kTrash.size()) != kTrash || component.size() < kTrash.size() + 2) return false;
  const std::string_view user = component.substr(kTrash.size());
  return user[0] == '-' && std::all_of(user.begin() + 1, user.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// Decides for one file after another, most of which are in the same folder as the file before.
class RecycleBin {
 public:
  explicit RecycleBin(PathStyle style) : style_(style) {}

  bool Holds(const PathList::File& file) {
    if (!file.SharesFolderWith(last_)) folderIsInside_ = IsInRecycleBin(file.folder, trash_, style_);
    last_ = file;
    if (folderIsInside_) return true;
    // Directly on a drive, the name decides, too.
    return style_ == PathStyle::kWindows && file.folder.ends_with(":\\") && IsInRecycleBin(file.Path(), trash_, style_);
  }

 private:
  const std::string trash_ = UserTrashFolder();
  PathStyle style_;
  PathList::File last_;
  bool folderIsInside_ = false;
};

}  // namespace

std::string SearchFilter(const OptionValues::Find& find) {
  if (!find.filterByExtension) return {};
  std::string filter;
  const auto append = [&](bool enabled, const std::string& extensions) {
    if (!enabled || extensions.empty()) return;
    if (!filter.empty()) filter += ' ';
    filter += extensions;
  };
  append(find.media.on, find.media.extensions);
  append(find.html.on, find.html.extensions);
  append(find.text.on, find.text.extensions);
  append(find.other.on, find.other.extensions);
  return filter;
}

bool IsInRecycleBin(std::string_view path, std::string_view userTrash, PathStyle style) {
  if (style == PathStyle::kWindows) {
    const std::string lower = ToLower(path);
    return lower.find(":\\recycled") != std::string::npos || lower.find(":\\$recycle.bin") != std::string::npos;
  }
  if (!userTrash.empty() && path.substr(0, userTrash.size()) == userTrash) return true;
  if (path.find("/.Trash") == std::string_view::npos) return false;
  const std::vector<std::string_view> components = Split(FolderPart(path, style), '/');
  return std::any_of(components.begin(), components.end(), IsOneOfTrashFolders);
}

void LeaveOutRecycleBin(FoundFiles& found, PathStyle style) {
  RecycleBin bin(style);
  const auto isInside = [&](const PathList::File& file) { return bin.Holds(file); };
  found.inRecycleBin = static_cast<std::size_t>(std::count_if(found.paths.begin(), found.paths.end(), isInside));
  if (found.inRecycleBin == 0) return;  // there may be a million files
  PathList kept;
  for (const PathList::File file : found.paths) {
    if (!bin.Holds(file)) kept.Add(file.folder, file.name);
  }
  found.paths = std::move(kept);
}

FolderSearch::FolderSearch(FileReads& files, Progress& progress, PathStyle style)
    : files_(files), progress_(progress), style_(style) {}

FoundFiles FolderSearch::Search(const std::string& folder, const std::string& filter, bool subfolders) {
  filter_ = filter;
  subfolders_ = subfolders;
  found_ = {};
  searched_.clear();
  linkedFrom_.clear();
  realFolder_ = {};
  root_ = WithTrailingSeparator(folder, style_);
  listings_ = files_.ListFolders(subfolders);
  SearchFolder(root_, 0);
  listings_ = nullptr;
  return std::move(found_);
}

// Returns false when the whole search must end.
bool FolderSearch::SearchFolder(const std::string& folder, int depth) {
  if (!progress_.Continue(found_.paths.size(), 0, folder)) {
    found_.cancelled = true;
    return false;
  }
  std::optional<Listing> listed = listings_->Read(folder, progress_);
  if (!listed) {
    found_.cancelled = true;
    return false;
  }
  Listing& entries = *listed;
  if (!entries) {
    const int number = entries.Failure().number;
    if (depth > 0 && (number == file_error::kAccess || number == file_error::kUnreachable)) {
      found_.passedOver.push_back({folder, Obstacle::kNoAccess});
      return true;
    }
    found_.error = entries.Failure();
    return false;
  }
  std::vector<FolderEntry> below;
  for (FolderEntry& entry : *entries) {
    if (!progress_.Continue()) {
      found_.cancelled = true;
      return false;
    }
    if (entry.isFolder) {
      if (subfolders_) {
        below.push_back(std::move(entry));
      } else {
        ++found_.unsearchedFolders;
      }
      continue;
    }
    // There may be a million files, so no name is kept twice.
    const std::string name = std::move(entry.name);
    if (MatchesExtensionFilter(name, filter_, style_)) {
      found_.paths.Add(folder, name);
    } else {
      ++found_.otherFiles;
    }
  }
  *entries = {};
  return std::all_of(below.begin(), below.end(),
                     [&](const FolderEntry& entry) { return SearchBelow(folder, entry, depth); });
}

// Returns false when the whole search must end; true also when this folder is skipped.
bool FolderSearch::SearchBelow(const std::string& folder, const FolderEntry& entry, int depth) {
  if (entry.isLink && !FollowLink(folder, entry)) return !found_.cancelled;
  const std::string below = folder + entry.name + PathSeparator(style_);
  bool goOn = true;
  if (depth < kDeepest) {
    goOn = SearchFolder(below, depth + 1);
  } else {
    found_.passedOver.push_back({below, Obstacle::kTooDeep});
  }
  if (entry.isLink) linkedFrom_.pop_back();
  return goOn;
}

// Returns true when the link is to be followed; the folder that holds it is then the last of linkedFrom_.
bool FolderSearch::FollowLink(const std::string& folder, const FolderEntry& link) {
  const std::optional<std::string> target = RealPath(folder + link.name);
  if (!target || target->empty()) return false;
  const std::string leadsTo = WithTrailingSeparator(*target, style_);
  if (searched_.empty()) {
    const std::optional<std::string> root = RealPath(root_);
    if (!root) return false;
    searched_.push_back(WithTrailingSeparator(*root, style_));
  }
  if (folder != realFolder_.folder) {
    const std::optional<std::string> path = RealPath(folder);
    if (!path) return false;
    realFolder_ = {folder, WithTrailingSeparator(*path, style_)};
  }
  const std::string here = realFolder_.path;
  const bool searchedAnyway = std::any_of(searched_.begin(), searched_.end(),
                                          [&](const std::string& whole) { return leadsTo.starts_with(whole); });
  const bool leadsBackUp =
      here.starts_with(leadsTo) || std::any_of(linkedFrom_.begin(), linkedFrom_.end(),
                                               [&](const std::string& inside) { return inside.starts_with(leadsTo); });
  if (searchedAnyway || leadsBackUp) return false;
  searched_.push_back(leadsTo);
  linkedFrom_.push_back(here);
  return true;
}

// Nothing when the search is cancelled meanwhile.
std::optional<std::string> FolderSearch::RealPath(const std::string& folder) {
  std::optional<std::string> path = listings_->RealPath(folder, progress_);
  if (!path) found_.cancelled = true;
  return path;
}

}  // namespace quillon
