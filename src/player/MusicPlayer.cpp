#include "player/MusicPlayer.h"

#include <utility>

#include "base/Finally.h"
#include "base/Text.h"
#include "media/MediaInfo.h"
#include "paths/basFileControl.h"

namespace quillon {
namespace {

constexpr int kTickInterval = 50;
constexpr int kFailureInterval = 1500;  // long enough to be read
constexpr const char* kCaption = "プレイヤー";

}  // namespace

std::string TimeText(std::int32_t elapsed, std::int32_t total) {
  return MinutesAndSeconds(elapsed, 2) + " / " + MinutesAndSeconds(total, 2);
}

MusicPlayer::MusicPlayer(const FileList& list, const OptionValues& options, Ports ports, PathStyle style)
    : list_(list), options_(options), ports_(std::move(ports)), style_(style) {}

void MusicPlayer::cmdPlay() {
  if (!OpenedWithShell()) PlayOrPause();
}

// Opens a current row that is not playable with the shell, and returns true. Without a current row it returns false,
// because the command is then for the file that plays, or was chosen last.
bool MusicPlayer::OpenedWithShell() {
  const int current = list_.SelectedIndex();
  if (current == 0 || IsPlayableType(list_.Row(current).type)) return false;
  (void)ports_.openWithShell(list_.Row(current).Location());
  return true;
}

void MusicPlayer::PlayOrPause() {
  if (paths_.playFilePath.empty()) {
    ports_.boxes.Show({kCaption, "再生するファイルを指定してください", MessageIcon::kExclamation});
    return;
  }
  if (!ChangeState()) Recover();
}

// Returns false when the file cannot be played.
bool MusicPlayer::ChangeState() {
  ports_.window.SetPointer(Pointer::kBusyArrow);
  const Finally normal([this] { ports_.window.SetPointer(Pointer::kNormal); });
  switch (ports_.device.Mode()) {
    case MediaMode::kPlaying: Pause(); return true;
    case MediaMode::kPaused: Resume(); return true;
    default: return StartChosen();
  }
}

void MusicPlayer::Pause() {
  ports_.device.Pause();
  SetButton(PlayButton::kPlay);
  SetTicks(Ticks::kNone);
  ShowStatus(PlayerState::kPaused, paths_.playingFilePath);
}

void MusicPlayer::Resume() {
  SetTicks(Ticks::kFollowPlaying);
  playRefused_ = !ports_.device.Play().Ok();
  SetButton(PlayButton::kPause);
  ShowStatus(PlayerState::kPlaying, paths_.playingFilePath);
}

bool MusicPlayer::StartChosen() {
  // A device stopped at a point still holds its file, so another one could not be opened.
  if (!paths_.playingFilePath.empty() && paths_.playingFilePath != paths_.playFilePath) {
    CloseMovie();
    ports_.device.Close();
  }
  ShowStatus(PlayerState::kLoading, paths_.playFilePath);
  ports_.device.Open(paths_.playFilePath);
  hasPlayed_ = false;
  paths_.playingFilePath = paths_.playFilePath;
  const std::optional<std::int32_t> length = ports_.device.Length();
  if (!length) return false;
  length_ = *length;
  ports_.panel.SetLength(length_);
  if (ports_.device.Picture() && !movieShown_) {
    movieShown_ = ports_.movie.Show();
    if (!movieShown_) return false;
  }
  Resume();
  return true;
}

void MusicPlayer::Recover() {
  ports_.device.Close();
  paths_ = {};
  CloseMovie();
  ports_.status.ShowPlayerIdle();
  ShowIdle();
  ports_.boxes.Show({kCaption,
                     "指定されたファイルは再生できません\r\n"
                     "このファイルはサポートされていないか、壊れている可能性があります",
                     MessageIcon::kStop});
}

void MusicPlayer::cmdStop() {
  if (ticks_ == Ticks::kSkipFailed) return LeaveFailed();
  const MediaMode mode = ports_.device.Mode();
  if (mode != MediaMode::kPlaying && mode != MediaMode::kPaused) return;
  CloseMovie();
  StopAndClose();
  ShowStatus(PlayerState::kStopped, paths_.playingFilePath);
  ShowIdle();
  paths_.playingFilePath.clear();
}

void MusicPlayer::mnuPlay() {
  StopBeforeStart();
  cmdPlay();
}

void MusicPlayer::Play(const std::string& path) {
  Choose(path);
  StopBeforeStart();
  PlayOrPause();
}

void MusicPlayer::StopBeforeStart() {
  cmdStop();
  // A file stopped at a point would go on from there.
  if (ports_.device.Mode() == MediaMode::kStopped) ports_.device.SeekToStart();
}

// Messages must not be processed here: a dialog opened by one of them would block the player.
void MusicPlayer::timMCIChecker() {
  if (ticks_ == Ticks::kNone) return;
  if (ticks_ == Ticks::kSkipFailed) return SkipFailed();
  const MediaMode mode = ports_.device.Mode();
  if (mode == MediaMode::kPlaying) {
    hasPlayed_ = true;
    failedInARow_ = 0;
  }
  if (!sliderSeeking_) {
    if (mode == MediaMode::kNone || (mode == MediaMode::kStopped && playRefused_)) return FileFailed();
    if (mode == MediaMode::kStopped && FileEnded()) return;
  }
  Follow(ports_.device.Position());
}

// Changes only what differs: there are twenty ticks in a second, but one change of the label.
void MusicPlayer::Follow(std::int32_t position) {
  if (!sliderSeeking_ && position != position_) SetPosition(position);
  if (TimeText(position, length_) != time_) ShowTime(position);
}

bool MusicPlayer::FileEnded() {
  if (options_.player.repeat) {
    Repeat();
    return true;
  }
  StopAndClose();
  CloseMovie();
  SetTicks(Ticks::kNone);
  if (options_.player.continuous) {
    PlayNext();
    if (ticks_ != Ticks::kNone || paths_.playingFilePath.empty()) return true;  // the next file plays, or has failed
  }
  SetButton(PlayButton::kPlay);
  ShowStatus(PlayerState::kStopped, paths_.playingFilePath);
  paths_.playingFilePath.clear();
  return false;
}

void MusicPlayer::Repeat() {
  hasPlayed_ = false;
  ports_.device.SeekToStart();
  playRefused_ = !ports_.device.Play().Ok();
}

// Called when the device has nothing to play, or has given up.
void MusicPlayer::FileFailed() {
  if (hasPlayed_ && options_.player.repeat) return Repeat();
  StopAndClose();
  CloseMovie();
  ShowIdle();
  ShowStatus(hasPlayed_ ? PlayerState::kCutShort : PlayerState::kCannotPlay, paths_.playingFilePath);
  ++failedInARow_;
  if (!MaySkipFailed()) return LeaveFailed();
  SetTicks(Ticks::kSkipFailed);
}

// Ends a series of failures, so that a list without anything playable is not tried for ever.
bool MusicPlayer::MaySkipFailed() const {
  if (!options_.player.continuous || options_.player.repeat) return false;
  int playable = 0;
  for (int row = 1; row <= list_.Count(); ++row) playable += IsPlayableType(list_.Row(row).type) ? 1 : 0;
  return failedInARow_ < playable;
}

void MusicPlayer::LeaveFailed() {
  SetTicks(Ticks::kNone);
  failedInARow_ = 0;
  paths_.playingFilePath.clear();
}

void MusicPlayer::SkipFailed() {
  SetTicks(Ticks::kNone);
  PlayNext();
  if (ticks_ == Ticks::kNone) LeaveFailed();  // the next row was opened with the shell, or nothing is left
}

// Nothing plays when the list has no playable row, or when the current row is opened with the shell instead. A file
// that cannot be played gets no message box here: the box would block the player, although the user has not pressed a
// button.
void MusicPlayer::PlayNext() {
  const int next = NextPlayableRow();
  if (next == 0) return;
  Choose(list_.Row(next).Location());
  if (!OpenedWithShell() && !ChangeState()) FileFailed();
}

// The first row follows the last one. Returns 0 after a whole round without a playable row.
int MusicPlayer::NextPlayableRow() const {
  int row = list_.IndexOf(paths_.playingFilePath);
  if (row == 0) row = list_.Count();
  for (int looked = 0; looked < list_.Count(); ++looked) {
    row = row < list_.Count() ? row + 1 : 1;
    if (IsPlayableType(list_.Row(row).type)) return row;
  }
  return 0;
}

void MusicPlayer::SliderReleased(std::int32_t value) {
  if (!sliderSeeking_) return;  // the slider's window was closed during the drag
  switch (ports_.device.Mode()) {
    case MediaMode::kPlaying:
      ports_.device.Seek(value);
      ports_.device.Play();
      break;
    case MediaMode::kPaused: ports_.device.Seek(value); break;
    default: ShowTime(value); ports_.device.Seek(value);
  }
  sliderSeeking_ = false;
  SetPosition(value);
}

std::string MusicPlayer::SliderTip(std::int32_t value) {
  return MinutesAndSeconds(value, 2);
}

void MusicPlayer::PauseOrGoOn() {
  switch (ports_.device.Mode()) {
    case MediaMode::kPlaying: Pause(); break;
    case MediaMode::kPaused:
    case MediaMode::kStopped: Resume(); break;  // at the point that the slider has set
    default: break;
  }
}

void MusicPlayer::MovieClosed() {
  if (MovieUnloaded()) paths_.playingFilePath.clear();
}

void MusicPlayer::CloseMovie() {
  if (!movieShown_) return;
  ports_.movie.Close();
  (void)MovieUnloaded();
}

// Returns true when that has stopped the file.
bool MusicPlayer::MovieUnloaded() {
  movieShown_ = false;
  sliderSeeking_ = false;
  const MediaMode mode = ports_.device.Mode();
  if (mode != MediaMode::kPlaying && mode != MediaMode::kPaused) return false;
  StopAndClose();
  ShowStatus(PlayerState::kStopped, paths_.playingFilePath);
  ShowIdle();
  return true;
}

void MusicPlayer::Shutdown() {
  CloseMovie();
  SetTicks(Ticks::kNone);
  ports_.device.Close();
  ports_.device.CloseAll();
}

void MusicPlayer::ReleaseFile(const std::string& path) {
  if (path.empty() || path != paths_.playingFilePath) return;
  Stop();
  ports_.status.ShowPlayerIdle();
}

void MusicPlayer::Stop() {
  if (paths_.playingFilePath.empty()) return;
  const std::string path = paths_.playingFilePath;
  cmdStop();
  if (paths_.playingFilePath.empty()) return;
  // cmdStop does nothing for a file that is stopped at a point or was never opened, but it must be released.
  CloseMovie();
  ports_.device.Close();
  ShowIdle();
  paths_.playingFilePath.clear();
}

void MusicPlayer::FileMoved(const std::string& from, const std::string& to) {
  if (paths_.playFilePath == from) paths_.playFilePath = to;
}

void MusicPlayer::FileRemoved(const std::string& path) {
  ReleaseFile(path);
  FileMoved(path, {});
}

void MusicPlayer::StopAndClose() {
  ports_.device.Stop();
  ports_.device.Close();
}

void MusicPlayer::ShowIdle() {
  SetTicks(Ticks::kNone);
  SetButton(PlayButton::kPlay);
  SetPosition(0);
  SetTime(kIdleTime);
}

void MusicPlayer::ShowTime(std::int32_t position) {
  SetTime(TimeText(position, length_));
}

void MusicPlayer::SetButton(PlayButton button) {
  ports_.panel.SetButton(button);
  if (movieShown_) ports_.movie.SetButton(button);
}

void MusicPlayer::SetTicks(Ticks ticks) {
  ticks_ = ticks;
  switch (ticks) {
    case Ticks::kNone: return ports_.panel.SetTimer(0);
    case Ticks::kFollowPlaying: return ports_.panel.SetTimer(kTickInterval);
    case Ticks::kSkipFailed: return ports_.panel.SetTimer(kFailureInterval);
  }
}

void MusicPlayer::SetPosition(std::int32_t position) {
  position_ = position;
  ports_.panel.SetPosition(position);
  if (movieShown_ && !sliderSeeking_) ports_.movie.SetPosition(position);
}

void MusicPlayer::SetTime(std::string text) {
  time_ = std::move(text);
  ports_.panel.SetTime(time_);
  if (movieShown_) ports_.movie.SetTime(" " + time_);
}

void MusicPlayer::ShowStatus(PlayerState state, const std::string& path) {
  ports_.status.ShowPlayer(state, std::string(FileName(path, style_)));
}

}  // namespace quillon
