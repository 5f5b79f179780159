#include "fileops/FileOperations.h"

#include "paths/basFileControl.h"

namespace quillon {

int RecycleFile(FileReads& files, FileChanges& disk, const std::string& path, std::uintptr_t ownerWindow) {
  return files.IsFile(path) ? disk.Recycle(path, ownerWindow) : kRecycleNotDone;
}

std::string MoveReason(const FileError& error) {
  switch (error.number) {
    case file_error::kAlreadyExists: return "移動先に同名のファイルがあります";
    case file_error::kAccess: return "移動先にアクセスできません";
    case file_error::kBothKept: return "元のファイルが移動中に変更されたか、削除できないため、両方を残してあります";
    default: return {};
  }
}

std::string DeleteReason(const FileError& error) {
  if (error.number == file_error::kAccess) return "このファイルにアクセスできません";
  return std::to_string(error.number) + " : " + error.description;
}

std::string LeftAtText(const FileError& error) {
  if (error.fileAt.empty()) return {};
  const bool copy = error.number == file_error::kBothKept;
  return (copy ? "コピーしたファイルを残してあります： " : "ファイルは現在ここにあります： ") + error.fileAt;
}

std::string NotKeptText(const NotKept& notKept) {
  std::string what;
  const auto add = [&what](bool lost, const char* name) {
    if (lost) what += (what.empty() ? "" : "、") + std::string(name);
  };
  add(notKept.times, "日時");
  add(notKept.accessRights, "アクセス権");
  add(notKept.attributes, "拡張属性");
  return what.empty() ? what : "移動しましたが、移動先では保持できない情報がありました： " + what;
}

std::string FileMover::Target(int index, const std::string& folder) const {
  return folder + std::string(list_.Row(index).name);
}

MoveOutcome FileMover::Move(int index, const std::string& folder, Progress* progress) {
  const std::string from = list_.Row(index).Location();
  player_.ReleaseFile(from);
  const std::string to = Target(index, folder);
  // The target is the file itself, perhaps with its folder spelled differently. Renaming it to its own name would
  // succeed, so the error is reported here.
  if (PathIdentity(from, style_) == PathIdentity(to, style_) || files_.SameFile(from, to))
    return FileError{file_error::kAlreadyExists, "File exists"};
  MoveOutcome outcome = disk_.Move(from, to, progress);
  const bool stranded = !outcome && outcome.Failure().number == file_error::kStranded;
  if (stranded && !outcome.Failure().fileAt.empty()) Follow(index, outcome.Failure().fileAt);
  return outcome;
}

void FileMover::Follow(int index, const std::string& path) {
  player_.FileMoved(list_.Row(index).Location(), path);
  list_.SetLocation(index, path);
}

}  // namespace quillon
