#include "platform/multimedia/basMCIControl.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>
#include <vector>

#include "base/Text.h"
#include "platform/multimedia/CommandText.h"

namespace quillon {
namespace {

constexpr const char* kAlias = "MCI";
constexpr const char* kLengthAlias = "MCILENGTH";
constexpr int kShortReply = 16;
constexpr int kLongReply = 1024;

}  // namespace

std::optional<std::int32_t> ReplyNumber(std::string_view reply) {
  reply.remove_prefix(std::min(reply.find_first_not_of(" \t"), reply.size()));
  if (reply.starts_with('+')) reply.remove_prefix(1);
  double number = 0;
  const auto end =
      std::find_if(reply.begin(), reply.end(), [](char c) { return c != '-' && c != '.' && (c < '0' || c > '9'); });
  const auto parsed =
      std::from_chars(reply.data(), reply.data() + (end - reply.begin()), number, std::chars_format::fixed);
  if (parsed.ec == std::errc::result_out_of_range) return std::nullopt;
  if (parsed.ec != std::errc()) return 0;
  number = std::nearbyint(number);
  using Limits = std::numeric_limits<std::int32_t>;
  if (number < Limits::min() || number > Limits::max()) return std::nullopt;
  return static_cast<std::int32_t>(number);
}

std::optional<PictureSize> PictureIn(std::string_view source) {
  if (source.empty()) return std::nullopt;
  const std::vector<std::string_view> fields = Split(source, ' ');
  if (fields.size() < 4) return PictureSize();
  return PictureSize{ReplyNumber(fields[2]).value_or(0), ReplyNumber(fields[3]).value_or(0)};
}

MediaStatus basMCIControl::Send(const std::string& command) {
  const CommandReply reply = device_.Send(command, 0);
  return reply ? MediaStatus() : reply.Failure();
}

std::string basMCIControl::Ask(const std::string& command, int replySize) {
  const CommandReply reply = device_.Send(command, replySize);
  return reply ? *reply : std::string();
}

MediaStatus basMCIControl::Open(const std::string& path) {
  if (!files_.IsFile(path)) return MediaError::kFileNotFound;
  return Send(command_text::Open(path, kAlias));
}

MediaStatus basMCIControl::Close() {
  return Send(command_text::Close(kAlias));
}

MediaStatus basMCIControl::Play() {
  return Send(command_text::Play(kAlias));
}

MediaStatus basMCIControl::Pause() {
  return Send(command_text::Pause(kAlias));
}

MediaStatus basMCIControl::Stop() {
  return Send(command_text::Stop(kAlias));
}

MediaStatus basMCIControl::Seek(std::int32_t position) {
  Send(command_text::CountInMilliseconds(kAlias));
  return Send(command_text::Seek(kAlias, position));
}

MediaStatus basMCIControl::SeekToStart() {
  return Send(command_text::SeekToStart(kAlias));
}

// Ignores everything behind the word.
MediaMode basMCIControl::Mode() {
  const std::string mode = Ask(command_text::AskMode(kAlias), kShortReply);
  if (mode.empty() || mode.front() == ' ') return MediaMode::kNone;
  if (mode.starts_with("playing")) return MediaMode::kPlaying;
  if (mode.starts_with("paused")) return MediaMode::kPaused;
  return mode.starts_with("stopped") ? MediaMode::kStopped : MediaMode::kOther;
}

std::int32_t basMCIControl::Position() {
  Send(command_text::CountInMilliseconds(kAlias));
  return ReplyNumber(Ask(command_text::AskPosition(kAlias), kShortReply)).value_or(0);
}

std::optional<std::int32_t> basMCIControl::Length() {
  Send(command_text::CountInMilliseconds(kAlias));
  return ReplyNumber(Ask(command_text::AskLength(kAlias), kShortReply));
}

std::int32_t basMCIControl::LengthOf(const std::string& path) {
  Send(command_text::Open(path, kLengthAlias));
  Send(command_text::CountInMilliseconds(kLengthAlias));
  const std::string length = Ask(command_text::AskLength(kLengthAlias), kShortReply);
  Send(command_text::Close(kLengthAlias));
  return ReplyNumber(length).value_or(0);
}

std::optional<PictureSize> basMCIControl::Picture() {
  return PictureIn(Ask(command_text::AskPicture(kAlias), kLongReply));
}

MediaStatus basMCIControl::SetWindow(std::uintptr_t handle) {
  return Send(command_text::SetWindow(kAlias, handle));
}

MediaStatus basMCIControl::SetCanvas(std::shared_ptr<PictureCanvas> /*canvas*/) {
  return MediaError::kNoPicture;  // command strings name windows only
}

MediaStatus basMCIControl::PutPicture(PictureSize destination) {
  return Send(command_text::PutPicture(kAlias, destination));
}

MediaStatus basMCIControl::CloseAll() {
  return Send(command_text::kCloseAll);
}

}  // namespace quillon
