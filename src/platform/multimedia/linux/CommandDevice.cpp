#include "platform/multimedia/CommandDevice.h"

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

#include "base/Text.h"
#include "platform/multimedia/linux/CommandString.h"
#include "platform/multimedia/linux/Medium.h"

namespace quillon {
namespace {

constexpr std::string_view kEverything = "all";

CommandReply RectangleReply(const PictureRectangle& area) {
  return {0, std::to_string(area.left) + ' ' + std::to_string(area.top) + ' ' + std::to_string(area.width) + ' ' +
                 std::to_string(area.height)};
}

std::string ModeText(Medium::Mode mode) {
  switch (mode) {
    case Medium::Mode::kStopped: return "stopped";
    case Medium::Mode::kPlaying: return "playing";
    case Medium::Mode::kPaused: return "paused";
  }
  return "not ready";
}

CommandReply Mode(const Medium& medium) {
  if (medium.Failed()) return {command_error::kNotReady};
  return {0, ModeText(medium.CurrentMode())};
}

CommandReply Status(Medium& medium, StatusItem item) {
  switch (item) {
    case StatusItem::kMode: return Mode(medium);
    case StatusItem::kPosition: return {0, std::to_string(medium.Position())};
    case StatusItem::kLength: return {0, std::to_string(medium.Length())};
    case StatusItem::kReady: return {0, "true"};
    case StatusItem::kTimeFormat: return {0, "milliseconds"};
  }
  return {command_error::kInternal};
}

CommandReply Where(const Medium& medium, PictureArea area) {
  const std::optional<PictureSize> picture = medium.Picture();
  if (!picture) return {command_error::kNoPicture};
  if (area == PictureArea::kDestination) return RectangleReply(medium.Destination());
  return RectangleReply({0, 0, picture->width, picture->height});
}

int Play(Medium& medium, const std::optional<std::int32_t>& from) {
  if (from) {
    if (const int error = medium.Seek(*from); error != 0) return error;
  }
  return medium.Play();
}

int Seek(Medium& medium, const ParsedCommand& command) {
  switch (command.target) {
    case SeekTarget::kStart: return medium.Seek(0);
    case SeekTarget::kEnd: return medium.Seek(medium.Length());
    case SeekTarget::kPosition: return medium.Seek(command.milliseconds.value_or(0));
  }
  return command_error::kInternal;
}

/// What goes to one open medium.
CommandReply Carry(Medium& medium, const ParsedCommand& command) {
  medium.Update();
  switch (command.verb) {
    case Verb::kPlay: return {Play(medium, command.milliseconds)};
    case Verb::kPause: return {medium.Pause()};
    case Verb::kResume: return {medium.Resume()};
    case Verb::kStop: return {medium.Stop()};
    case Verb::kSeek: return {Seek(medium, command)};
    case Verb::kSet: return {};  // there is but the one time format
    case Verb::kStatus: return Status(medium, command.status);
    case Verb::kWhere: return Where(medium, command.area);
    case Verb::kWindow: return {medium.SetWindow(command.window)};
    case Verb::kPut: return {medium.Put(command.rectangle)};
    case Verb::kOpen:
    case Verb::kClose: break;
  }
  return {command_error::kInternal};
}

class GstCommandDevice final : public CommandDevice {
 public:
  CommandReply Send(const std::string& command, int replySize) override {
    CommandReply reply = Answer(command);
    const auto room = static_cast<std::size_t>(std::max(replySize - 1, 0));
    reply.text = FirstCharacters(reply.text, room);
    return reply;
  }

 private:
  CommandReply Answer(const std::string& text) {
    const ParseOutcome parsed = ParseCommand(text);
    const ParsedCommand& command = parsed.command;
    if (command.alias.empty()) return {parsed.error};
    if (command.verb == Verb::kOpen) return {parsed.error == 0 ? Open(command) : parsed.error};
    if (command.verb == Verb::kClose && command.alias == kEverything) {
      media_.clear();
      return {};
    }
    const auto found = media_.find(command.alias);
    if (found == media_.end()) return {command_error::kNotOpen};
    if (parsed.error != 0) return {parsed.error};
    if (command.verb != Verb::kClose) return Carry(*found->second, command);
    media_.erase(found);
    return {};
  }

  int Open(const ParsedCommand& command) {
    if (media_.contains(command.alias)) return command_error::kAliasInUse;
    if (media_.size() >= kMostOpen) return command_error::kTooManyOpen;
    Result<std::unique_ptr<Medium>, int> medium = Medium::Open(command.path);
    if (!medium) return medium.Failure();
    media_.emplace(command.alias, std::move(*medium));
    return 0;
  }

  std::map<std::string, std::unique_ptr<Medium>> media_;
};

}  // namespace

std::unique_ptr<CommandDevice> MakeCommandDevice() {
  return std::make_unique<GstCommandDevice>();
}

}  // namespace quillon
