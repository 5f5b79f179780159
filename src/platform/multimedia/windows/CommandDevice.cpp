#include "platform/multimedia/CommandDevice.h"

#include <windows.h>
// After windows.h, which it needs:
#include <mmsystem.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <string_view>

#include "base/Text.h"
#include "platform/FileSystem.h"
#include "platform/WindowsPath.h"
#include "platform/multimedia/CommandString.h"
#include "platform/multimedia/CommandText.h"
#include "platform/multimedia/windows/WineFaults.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/Wide.h"

namespace quillon {
namespace {

/// True for a command that was parsed completely. Only the system knows the effect of others.
bool Is(Verb verb, const ParseOutcome& parsed) {
  return parsed.status.Ok() && parsed.command.verb == verb;
}

bool AsksFor(StatusItem item, const ParseOutcome& parsed) {
  return Is(Verb::kStatus, parsed) && parsed.command.status == item;
}

bool OpensByExtension(const ParsedCommand& command) {
  return command.verb == Verb::kOpen && !command.path.empty() && !command.typed;
}

bool SeeksToPosition(const ParseOutcome& parsed) {
  return Is(Verb::kSeek, parsed) && parsed.command.target == SeekTarget::kPosition;
}

/// A play command without from and to: it starts a medium or resumes a paused one.
bool PlaysOn(const ParseOutcome& parsed) {
  return Is(Verb::kPlay, parsed) && !parsed.command.milliseconds;
}

/// True for commands that change the medium's position or close it.
bool Repositions(const ParseOutcome& parsed) {
  switch (parsed.command.verb) {
    case Verb::kSeek:
    case Verb::kStop:
    case Verb::kClose: return true;
    case Verb::kPlay: return !PlaysOn(parsed);
    default: return false;
  }
}

const char* NameOfMode(DWORD_PTR mode) {
  switch (LOWORD(mode)) {
    case MCI_MODE_STOP: return "stopped";
    case MCI_MODE_PLAY: return "playing";
    case MCI_MODE_PAUSE: return "paused";
    case MCI_MODE_SEEK: return "seeking";
    case MCI_MODE_RECORD: return "recording";
    case MCI_MODE_OPEN: return "open";
    default: return "not ready";
  }
}

/// The error number without the device id in its upper half.
MediaError ErrorOf(MCIERROR error) {
  return static_cast<MediaError>(LOWORD(error));
}

CommandReply SendToSystem(const std::string& command) {
  constexpr std::size_t kLongestReply = 1024;
  const std::optional<std::wstring> wide = ToWide(command);
  if (!wide) return MediaError::kFileNotFound;
  std::wstring reply(kLongestReply, L'\0');
  const MCIERROR error = mciSendStringW(wide->c_str(), reply.data(), static_cast<UINT>(reply.size()), nullptr);
  if (error != 0) return ErrorOf(error);
  return FromWide(reply.c_str());
}

/// Returns 0 without a reply.
std::int64_t Number(const CommandReply& reply) {
  return reply ? LeadingNumber(*reply) : 0;
}

MCIDEVICEID DeviceOf(const std::string& alias) {
  const std::optional<std::wstring> wide = ToWide(alias);
  return wide ? mciGetDeviceIDW(wide->c_str()) : 0;
}

MCIERROR ReadMode(MCIDEVICEID device, DWORD_PTR& mode) {
  MCI_STATUS_PARMS status = {};
  status.dwItem = MCI_STATUS_MODE;
  const MCIERROR error = mciSendCommandW(device, MCI_STATUS, MCI_STATUS_ITEM, reinterpret_cast<DWORD_PTR>(&status));
  mode = status.dwReturn;
  return error;
}

/// Asks for the mode's number, because some language versions of Windows translate the mode's text.
CommandReply Mode(const std::string& command, const std::string& alias) {
  const MCIDEVICEID device = DeviceOf(alias);
  if (device == 0) return SendToSystem(command);
  DWORD_PTR mode = 0;
  const MCIERROR error = ReadMode(device, mode);
  if (error != 0) return ErrorOf(error);
  return std::string(NameOfMode(mode));
}

bool IsPaused(const std::string& alias) {
  const MCIDEVICEID device = DeviceOf(alias);
  DWORD_PTR mode = 0;
  return device != 0 && ReadMode(device, mode) == 0 && LOWORD(mode) == MCI_MODE_PAUSE;
}

/// True for DirectShow's devices, also with songs, and for the device for AVI files.
bool IsDigitalVideo(const std::string& alias) {
  const MCIDEVICEID device = DeviceOf(alias);
  MCI_GETDEVCAPS_PARMS capability = {};
  capability.dwItem = MCI_GETDEVCAPS_DEVICE_TYPE;
  return device != 0 &&
         mciSendCommandW(device, MCI_GETDEVCAPS, MCI_GETDEVCAPS_ITEM, reinterpret_cast<DWORD_PTR>(&capability)) == 0 &&
         LOWORD(capability.dwReturn) == MCI_DEVTYPE_DIGITAL_VIDEO;
}

enum class FilmStreams { kPictures, kSoundAlone, kNone };

/// The streams described by an AVI file's headers; for other files pictures are assumed.
FilmStreams StreamsOf(const std::string& path, ByteSource& file) {
  constexpr std::size_t kHeaders = 65536;
  if (!ToLower(path).ends_with(".avi")) return FilmStreams::kPictures;
  const std::string start = file.Read(0, kHeaders);
  if (start.find("strh") == std::string::npos) return FilmStreams::kNone;
  return start.find("vids") == std::string::npos ? FilmStreams::kSoundAlone : FilmStreams::kPictures;
}

constexpr const char* kByDirectShow = " type MPEGVideo";

/// True when another device may be able to open the file. Not for invalid files: DirectShow in Wine may wait forever
/// for the rest of a broken one.
bool MayOpenOtherwise(MediaError error) {
  return error != MediaError::kAliasInUse && error != MediaError::kInvalidFile;
}

/// Opens with the extension's device, then with DirectShow, which can often open what that device cannot (newer codecs
/// in AVI).
CommandReply OpenEitherWay(const std::string& command, bool isThere) {
  CommandReply first = SendToSystem(command);
  if (first || !isThere || !MayOpenOtherwise(first.Failure())) return first;
  CommandReply second = SendToSystem(command + kByDirectShow);
  return second ? second : first;
}

/// The file's short path (8.3) if its path is too long for the system's devices; the unchanged path if there is no
/// short one.
std::string PathForDevices(const std::string& path) {
  const std::optional<std::wstring> wide = ToWide(path);
  const std::optional<std::wstring> literal = ExistingPath(path);
  if (!wide || wide->size() < MAX_PATH || !literal) return path;
  const DWORD needed = ::GetShortPathNameW(literal->c_str(), nullptr, 0);
  std::wstring brief(needed, L'\0');
  brief.resize(::GetShortPathNameW(literal->c_str(), brief.data(), needed));
  return brief.empty() ? path : PlainWindowsPath(FromWide(brief));
}

std::string WithPath(std::string command, const std::string& path, const std::string& other) {
  if (path != other) command.replace(command.find(path), path.size(), other);
  return command;
}

class SystemCommandDevice final : public CommandDevice {
 public:
  explicit SystemCommandDevice(bool makesUpForWine) : makesUpForWine_(makesUpForWine) {}
  SystemCommandDevice(const SystemCommandDevice&) = delete;
  SystemCommandDevice& operator=(const SystemCommandDevice&) = delete;
  ~SystemCommandDevice() override { mciSendStringW(L"close all", nullptr, 0, nullptr); }

  CommandReply Send(const std::string& command, int replySize) override {
    CommandReply reply = CarryOut(command);
    if (!reply) return reply;
    return std::string(FirstCharacters(*reply, static_cast<std::size_t>(std::max(replySize - 1, 0))));
  }

 private:
  CommandReply CarryOut(const std::string& command) {
    const ParseOutcome parsed = ParseCommand(command);
    if (AsksFor(StatusItem::kMode, parsed)) return Mode(command, parsed.command.alias);
    if (OpensByExtension(parsed.command)) return Open(command, parsed.command.path);
    return makesUpForWine_ ? CarryOutOnWine(command, parsed) : SendToSystem(command);
  }

  CommandReply CarryOutOnWine(const std::string& command, const ParseOutcome& parsed) {
    const std::string& alias = parsed.command.alias;
    if (Repositions(parsed)) ForgetExcess(alias);
    if (AsksFor(StatusItem::kPosition, parsed)) return Position(command, alias);
    if (SeeksToPosition(parsed)) return Seek(command, alias, parsed.command.milliseconds.value_or(0));
    if (PlaysOn(parsed)) return PlayOn(command, alias);
    if (Is(Verb::kPause, parsed)) return Pause(command, alias);
    return SendToSystem(command);
  }

  CommandReply Open(const std::string& longCommand, const std::string& path) {
    const std::string command = WithPath(longCommand, path, PathForDevices(path));
    const std::unique_ptr<ByteSource> file = OpenSystemFile(path);
    if (!file || !makesUpForWine_) return OpenEitherWay(command, file != nullptr);
    switch (StreamsOf(path, *file)) {
      case FilmStreams::kNone: return MediaError::kInvalidFile;
      // Wine's device for AVI files crashes without pictures.
      case FilmStreams::kSoundAlone: return SendToSystem(command + kByDirectShow);
      default: return OpenEitherWay(command, true);
    }
  }

  /// In Wine, DirectShow's device does not support this command, and the failure stops it at the start. Playing from
  /// the position and stopping at once has the same effect.
  static CommandReply Seek(const std::string& command, const std::string& alias, std::int32_t position) {
    CommandReply first = SendToSystem(command);
    if (first || first.Failure() != MediaError::kInternal) return first;
    const std::int64_t length = Number(SendToSystem(command_text::AskLength(alias)));
    if (position < 0 || position > length) return MediaError::kOutOfRange;
    if (!SendToSystem(command_text::PlayFrom(alias, position))) return first;
    return SendToSystem(command_text::Stop(alias));
  }

  /// Wine treats playing a paused film as a new start: the position restarts at 0, the picture freezes, and stopping
  /// hangs. "resume" avoids that and has the same effect elsewhere, but not every device supports it.
  static CommandReply PlayOn(const std::string& command, const std::string& alias) {
    if (IsPaused(alias) && IsDigitalVideo(alias) && SendToSystem(command_text::Resume(alias))) return std::string();
    return SendToSystem(command);
  }

  /// At every pause Wine's DirectShow adds all the time played so far, so that positions are too high from the second
  /// pause on.
  CommandReply Pause(const std::string& command, const std::string& alias) {
    constexpr std::int64_t kWhilePausing = 100;
    if (!IsDigitalVideo(alias)) return SendToSystem(command);
    const std::string question = command_text::AskPosition(alias);
    const std::int64_t before = Number(Position(question, alias));
    CommandReply reply = SendToSystem(command);
    const std::int64_t excess = Number(SendToSystem(question)) - before;
    if (excess > kWhilePausing) excess_[alias] = excess;
    return reply;
  }

  CommandReply Position(const std::string& command, const std::string& alias) {
    CommandReply reply = SendToSystem(command);
    const auto found = excess_.find(alias);
    if (!reply || found == excess_.end()) return reply;
    return std::to_string(Number(reply) - found->second);
  }

  void ForgetExcess(const std::string& alias) {
    if (alias == "all") {
      excess_.clear();
    } else {
      excess_.erase(alias);
    }
  }

  bool makesUpForWine_;
  /// By how much each alias's reported positions are too high.
  std::map<std::string, std::int64_t> excess_;
};

}  // namespace

bool RunsOnWine() {
  const HMODULE library = ::GetModuleHandleW(L"ntdll.dll");
  return library != nullptr && ::GetProcAddress(library, "wine_get_version") != nullptr;
}

std::unique_ptr<CommandDevice> MakeCommandDevice(bool makesUpForWine) {
  return std::make_unique<SystemCommandDevice>(makesUpForWine);
}

std::unique_ptr<CommandDevice> MakeCommandDevice() {
  return MakeCommandDevice(RunsOnWine());
}

}  // namespace quillon
