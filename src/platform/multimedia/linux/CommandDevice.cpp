#include "platform/multimedia/CommandDevice.h"

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

#include "base/Text.h"
#include "platform/multimedia/CommandString.h"
#include "platform/multimedia/linux/Medium.h"

namespace quillon {
namespace {

constexpr std::string_view kEverything = "all";

CommandReply RectangleReply(const PictureRectangle& area) {
  return std::to_string(area.left) + ' ' + std::to_string(area.top) + ' ' + std::to_string(area.width) + ' ' +
         std::to_string(area.height);
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
  if (medium.Failed()) return MediaError::kNotReady;
  return ModeText(medium.CurrentMode());
}

/// The result of a command without a reply.
CommandReply ReplyOf(const MediaStatus& status) {
  if (!status.Ok()) return status.Failure();
  return std::string();
}

CommandReply Status(Medium& medium, StatusItem item) {
  switch (item) {
    case StatusItem::kMode: return Mode(medium);
    case StatusItem::kPosition: return std::to_string(medium.Position());
    case StatusItem::kLength: return std::to_string(medium.Length());
    case StatusItem::kReady: return std::string("true");
    case StatusItem::kTimeFormat: return std::string("milliseconds");
  }
  return MediaError::kInternal;
}

CommandReply Where(const Medium& medium, PictureArea area) {
  const std::optional<PictureSize> picture = medium.Picture();
  if (!picture) return MediaError::kNoPicture;
  if (area == PictureArea::kDestination) return RectangleReply(medium.Destination());
  return RectangleReply({0, 0, picture->width, picture->height});
}

MediaStatus Play(Medium& medium, const std::optional<std::int32_t>& from) {
  if (from) {
    if (const MediaStatus sought = medium.Seek(*from); !sought.Ok()) return sought;
  }
  return medium.Play();
}

MediaStatus Seek(Medium& medium, const ParsedCommand& command) {
  switch (command.target) {
    case SeekTarget::kStart: return medium.Seek(0);
    case SeekTarget::kEnd: return medium.Seek(medium.Length());
    case SeekTarget::kPosition: return medium.Seek(command.milliseconds.value_or(0));
  }
  return MediaError::kInternal;
}

/// Executes a command for one open medium.
CommandReply Carry(Medium& medium, const ParsedCommand& command) {
  medium.Update();
  switch (command.verb) {
    case Verb::kPlay: return ReplyOf(Play(medium, command.milliseconds));
    case Verb::kPause: medium.Pause(); return std::string();
    case Verb::kResume: return ReplyOf(medium.Resume());
    case Verb::kStop: medium.Stop(); return std::string();
    case Verb::kSeek: return ReplyOf(Seek(medium, command));
    case Verb::kSet: return std::string();  // milliseconds are the only time format
    case Verb::kStatus: return Status(medium, command.status);
    case Verb::kWhere: return Where(medium, command.area);
    case Verb::kWindow: return ReplyOf(medium.SetWindow(command.window));
    case Verb::kPut: return ReplyOf(medium.Put(command.rectangle));
    case Verb::kOpen:
    case Verb::kClose: break;
  }
  return MediaError::kInternal;
}

class GstCommandDevice final : public CommandDevice {
 public:
  CommandReply Send(const std::string& command, int replySize) override {
    CommandReply reply = Answer(command);
    if (!reply) return reply;
    return std::string(FirstCharacters(*reply, static_cast<std::size_t>(std::max(replySize - 1, 0))));
  }

 private:
  CommandReply Answer(const std::string& text) {
    const ParseOutcome parsed = ParseCommand(text);
    const ParsedCommand& command = parsed.command;
    if (command.alias.empty()) return ReplyOf(parsed.status);
    if (command.verb == Verb::kOpen) return ReplyOf(parsed.status.Ok() ? Open(command) : parsed.status);
    if (command.verb == Verb::kClose && command.alias == kEverything) {
      media_.clear();
      return std::string();
    }
    const auto found = media_.find(command.alias);
    if (found == media_.end()) return MediaError::kNotOpen;
    if (!parsed.status.Ok()) return ReplyOf(parsed.status);
    if (command.verb != Verb::kClose) return Carry(*found->second, command);
    media_.erase(found);
    return std::string();
  }

  /// Ignores the command's type: one player plays every type.
  MediaStatus Open(const ParsedCommand& command) {
    if (media_.contains(command.alias)) return MediaError::kAliasInUse;
    if (media_.size() >= kMostOpen) return MediaError::kTooManyOpen;
    Result<std::unique_ptr<Medium>, MediaError> medium = Medium::Open(command.path);
    if (!medium) return medium.Failure();
    media_.emplace(command.alias, std::move(*medium));
    return {};
  }

  std::map<std::string, std::unique_ptr<Medium>> media_;
};

}  // namespace

std::unique_ptr<CommandDevice> MakeCommandDevice() {
  return std::make_unique<GstCommandDevice>();
}

}  // namespace quillon
