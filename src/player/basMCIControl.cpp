#include "player/basMCIControl.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

#include "base/Text.h"

namespace quillon {
namespace {

constexpr int kShortReply = 16;
constexpr int kLongReply = 1024;

constexpr std::array<std::pair<std::string_view, const char*>, 5> kVerbs = {{{"play", "Play MCI"},
                                                                             {"stop", "Stop MCI"},
                                                                             {"pause", "Pause MCI"},
                                                                             {"prev", "Seek MCI to Start"},
                                                                             {"close", "Close MCI"}}};

std::string OpenCommand(const std::string& path, const char* alias) {
  return "Open \"" + path + "\" alias " + alias;
}

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

std::optional<PictureSize> PictureSizeOf(std::string_view source) {
  const std::vector<std::string_view> fields = Split(source, ' ');
  if (fields.size() < 4) return std::nullopt;
  const std::optional<std::int32_t> width = ReplyNumber(fields[2]);
  const std::optional<std::int32_t> height = ReplyNumber(fields[3]);
  if (!width || !height || *width <= 0 || *height <= 0) return std::nullopt;
  return PictureSize{*width, *height};
}

basMCIControl::basMCIControl(CommandDevice& device, FileReads& files, const PlayerPaths& paths)
    : device_(device), files_(files), paths_(paths) {}

void basMCIControl::Send(const std::string& command) {
  refused_ = !device_.Send(command, 0);  // most callers see by the mode what came of it
}

std::string basMCIControl::Ask(const std::string& command, int replySize) {
  const CommandReply reply = device_.Send(command, replySize);
  refused_ = !reply;
  return reply ? *reply : std::string();
}

std::int16_t basMCIControl::MCICommand(std::string_view verb) {
  const std::string lower = ToLower(verb);
  if (lower == "open") {
    if (!files_.IsFile(paths_.playFilePath)) return mci_result::kFileMissing;
    Send(OpenCommand(paths_.playFilePath, "MCI"));
    return mci_result::kSent;
  }
  const auto* const found =
      std::find_if(kVerbs.begin(), kVerbs.end(), [&lower](const auto& entry) { return entry.first == lower; });
  if (found == kVerbs.end()) return mci_result::kUnknownVerb;
  Send(found->second);
  return mci_result::kSent;
}

std::string basMCIControl::MCIStatusMode() {
  std::string mode = Ask("status MCI mode", kShortReply);
  mode.resize(kShortReply, ' ');
  return mode;
}

MCIMode basMCIControl::Mode() {
  const std::string mode = MCIStatusMode();
  if (mode.starts_with("playing")) return MCIMode::kPlaying;
  if (mode.starts_with("paused")) return MCIMode::kPaused;
  if (mode.starts_with(' ')) return MCIMode::kNone;
  return mode.starts_with("stopped") ? MCIMode::kStopped : MCIMode::kOther;
}

std::int32_t basMCIControl::MCIPosition() {
  Send("set MCI time format milliseconds");
  return ReplyNumber(Ask("status MCI position", kShortReply)).value_or(0);
}

void basMCIControl::MCISeek(std::int32_t position) {
  Send("set MCI time format milliseconds");
  Send("seek MCI to " + std::to_string(position));
}

std::int32_t basMCIControl::MCIFileLength() {
  Send(OpenCommand(paths_.playFilePath, "MCILENGTH"));
  Send("set MCILENGTH time format milliseconds");
  const std::string length = Ask("status MCILENGTH length", kShortReply);
  Send("Close MCILENGTH");
  return ReplyNumber(length).value_or(0);
}

std::optional<std::int32_t> basMCIControl::Length() {
  Send("set MCI time format milliseconds");
  return ReplyNumber(Ask("status MCI length", kShortReply));
}

std::string basMCIControl::Source() {
  return Ask("where MCI source", kLongReply);
}

void basMCIControl::SetWindow(std::uintptr_t handle) {
  Send("window MCI handle " + std::to_string(handle));
}

void basMCIControl::SetDestination(int width, int height) {
  Send("put MCI destination at 0 0 " + std::to_string(width) + " " + std::to_string(height));
}

void basMCIControl::CloseAll() {
  Send("close all");
}

}  // namespace quillon
