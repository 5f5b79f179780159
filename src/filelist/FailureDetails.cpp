#include "filelist/FailureDetails.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "base/Text.h"
#include "paths/basFileControl.h"

namespace quillon {
namespace {

// The longest name on nearly every volume, in the volume's own unit.
constexpr std::size_t kLongestName = 255;
constexpr std::size_t kLongestLinuxPath = 4095;  // bytes

std::size_t Utf16Units(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; })) +
         static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xF8) == 0xF0; }));
}

std::size_t LengthIn(NameUnit unit, std::string_view name) {
  return unit == NameUnit::kUtf16 ? Utf16Units(name) : name.size();
}

std::string TooLong(const char* what, std::size_t length, std::size_t limit, NameUnit counted) {
  const char* const unit = counted == NameUnit::kUtf16 ? " 文字" : " バイト";
  return std::string(what) + std::to_string(length) + unit + "、上限 " + std::to_string(limit) + unit + "）";
}

std::string WhyNotFound(FileReads& files, const std::string& from, const std::string& to, PathStyle style) {
  const Result<FileStatus, FileError> now = files.Status(from);
  if (now && now->kind == FileStatus::Kind::kAbsent) {
    return "ファイルがありません。ほかのプログラムが削除または移動した可能性があります";
  }
  const std::string folder(FolderPart(to, style));
  const Result<FileStatus, FileError> there = files.Status(folder);
  if (there && there->kind == FileStatus::Kind::kAbsent) return "移動先のフォルダがありません";
  const std::string_view name = FileName(to, style);
  const NameUnit unit = files.NameUnitOf(folder);
  const std::size_t length = LengthIn(unit, name);
  if (length > kLongestName) return TooLong("名前が長すぎます（", length, kLongestName, unit);
  if (style == PathStyle::kLinux && to.size() > kLongestLinuxPath)
    return TooLong("パスが長すぎます（", to.size(), kLongestLinuxPath, NameUnit::kByte);
  return "このドライブでは使えない名前です";
}

}  // namespace

bool IsNameTooLong(FileReads& files, const std::string& path, PathStyle style) {
  const std::string_view name = FileName(path, style);
  // No unit makes a name longer than its bytes.
  return name.size() > kLongestName &&
         LengthIn(files.NameUnitOf(std::string(FolderPart(path, style))), name) > kLongestName;
}

std::string FailureDetails(FileReads& files, const std::string& from, const std::string& to, const FileError& error,
                           PathStyle style) {
  std::string details = "ファイル： " + from;
  if (!to.empty() && to != from) details += "\r\n変更後： " + to;
  if (error.number == file_error::kNotFound) details += "\r\n" + WhyNotFound(files, from, to, style);
  if (!error.description.empty()) details += "\r\nシステムのメッセージ： " + error.description;
  return details;
}

std::string InvalidCharacterDetails(const std::string& path, const std::string& renameName, int position) {
  const char character = renameName[ByteOffset(renameName, static_cast<std::size_t>(position) - 1)];
  return "ファイル： " + path + "\r\nリネーム名： " + renameName + "\r\nリネーム名の " + std::to_string(position) +
         " 文字目の文字は、ファイル名に使えません： " + (character == '\r' ? "改行" : std::string(1, character));
}

}  // namespace quillon
