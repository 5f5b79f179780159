#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/PathStyle.h"
#include "platform/multimedia/MediaStatus.h"

/// Parses one command string. Keywords and aliases ignore letter case; quoted text is kept byte for byte, including
/// blanks. Where paths may contain quotes (not on Windows), the path of kOpen ends at the command's last quote.
namespace quillon {

enum class Verb { kOpen, kClose, kPlay, kPause, kResume, kStop, kSeek, kSet, kStatus, kWhere, kWindow, kPut };
enum class StatusItem { kMode, kPosition, kLength, kReady, kTimeFormat };
enum class SeekTarget { kPosition, kStart, kEnd };
enum class PictureArea { kSource, kDestination };

struct PictureRectangle {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  bool operator==(const PictureRectangle&) const = default;
};

struct ParsedCommand {
  Verb verb = Verb::kOpen;
  std::string alias = {};  ///< in lower case; "all" for everything that is open
  std::string path = {};   ///< of kOpen
  bool typed = false;      ///< kOpen names a type of device
  StatusItem status = StatusItem::kMode;
  SeekTarget target = SeekTarget::kPosition;
  PictureArea area = PictureArea::kSource;
  std::optional<std::int32_t> milliseconds = std::nullopt;   ///< of kSeek to a position, and of kPlay with "from"
  std::optional<PictureRectangle> rectangle = std::nullopt;  ///< of kPut with "at"
  std::uint64_t window = 0;                                  ///< of kWindow; 0 is none
};

struct ParseOutcome {
  MediaStatus status = {};  ///< on failure `command` holds what has been read up to there
  ParsedCommand command = {};
};

[[nodiscard]] ParseOutcome ParseCommand(std::string_view text, PathStyle style = SystemPathStyle());

}  // namespace quillon
