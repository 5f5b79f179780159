#include "support/FakeDevice.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"

namespace quillon::test {

void FakeDevice::AddFile(const std::string& path, std::int32_t length, std::string picture) {
  files_[path] = {length, std::move(picture)};
}

void FakeDevice::Pass(std::int32_t milliseconds) {
  for (auto& [alias, medium] : open_) {
    if (medium.mode != "playing") continue;
    medium.position = std::min(medium.position + milliseconds, medium.file.length);
    if (medium.position == medium.file.length) medium.mode = "stopped";
  }
}

CommandReply FakeDevice::Send(const std::string& command, int /*replySize*/) {
  sent.push_back(command);
  const std::string lower = ToLower(command);
  if (lower == refused) return MediaError::kNotReady;
  if (const auto found = scripted.find(lower); found != scripted.end()) return found->second;
  if (lower.starts_with("open ")) return Open(command);
  if (lower == "close all") {
    open_.clear();
    return std::string();
  }
  const std::vector<std::string_view> words = Split(lower, ' ');
  if (words.size() < 2) return MediaError::kUnknownCommand;
  const auto medium = open_.find(std::string(words[1]));
  if (medium == open_.end()) return MediaError::kNotOpen;
  if (words[0] != "close") return Carry(words[0], medium->second, words);
  open_.erase(medium);
  return std::string();
}

CommandReply FakeDevice::Open(const std::string& command) {
  const std::size_t start = command.find('"') + 1;
  const std::size_t end = command.find('"', start);
  const std::string path = command.substr(start, end - start);
  const std::string alias = ToLower(command.substr(command.rfind(' ') + 1));
  if (open_.contains(alias)) return MediaError::kAliasInUse;
  const auto file = files_.find(path);
  if (file == files_.end()) return MediaError::kInvalidFile;
  open_[alias] = {path, file->second};
  return std::string();
}

CommandReply FakeDevice::Carry(std::string_view verb, Medium& medium, const std::vector<std::string_view>& words) {
  if (verb == "play") {
    if (medium.position < medium.file.length) medium.mode = "playing";
    return std::string();
  }
  if (verb == "pause" && medium.mode == "playing") medium.mode = "paused";
  if (verb == "stop") medium.mode = "stopped";
  if (verb == "seek") return Seek(medium, words.back());
  if (verb == "status") return Status(medium, words.back());
  if (verb == "where") {
    if (medium.file.picture.empty()) return MediaError::kNoPicture;
    return "0 0 " + medium.file.picture;
  }
  return std::string();
}

CommandReply FakeDevice::Seek(Medium& medium, std::string_view to) {
  medium.mode = "stopped";
  medium.position = to == "start" ? 0 : static_cast<std::int32_t>(LeadingNumber(to));
  return std::string();
}

CommandReply FakeDevice::Status(const Medium& medium, std::string_view item) {
  if (item == "mode") return medium.mode;
  if (item == "position") return std::to_string(medium.position);
  if (item == "length") return std::to_string(medium.file.length);
  return MediaError::kUnknownKeyword;
}

std::vector<std::string> FakeDevice::TakeSent() {
  return std::exchange(sent, {});
}

std::string FakeDevice::OpenFile(const std::string& alias) const {
  const auto found = open_.find(alias);
  return found == open_.end() ? std::string() : found->second.path;
}

}  // namespace quillon::test
