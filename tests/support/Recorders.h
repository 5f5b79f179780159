#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Ports.h"
#include "filelist/FileList.h"
#include "filelist/WindowPorts.h"

/// Recording implementations of all window ports of the logic. All write to one log, in order, one line per event, such
/// as "panel player: プレイヤー待機中...".
namespace quillon::test {

class EventLog {
 public:
  void Add(std::string event) { events_.push_back(std::move(event)); }
  void Clear() { events_.clear(); }
  [[nodiscard]] const std::vector<std::string>& Events() const { return events_; }
  /// The events that start with `start`.
  [[nodiscard]] std::vector<std::string> StartingWith(std::string_view start) const;
  [[nodiscard]] bool Has(std::string_view event) const;

 private:
  std::vector<std::string> events_;
};

/// "box [caption] text", followed by the icon and the buttons; line breaks are written as "\r\n".
[[nodiscard]] std::string BoxEvent(const Message& message);

/// Shows nothing. A question without a scripted answer fails the test.
class BoxRecorder final : public MessageBoxes {
 public:
  explicit BoxRecorder(EventLog& log) : log_(log) {}
  bool Show(const Message& message) override;

  FailureAnswer ShowFailure(const FailureMessage& failure) override;

  QuestionAnswer AskQuestion(const QuestionMessage& question) override;

  /// The third button of the next question that has one.
  void AnswerFurther() { answersFurther_ = true; }
  /// The questions with details.
  [[nodiscard]] const std::vector<QuestionMessage>& Questions() const { return questions_; }

  void Answer(bool yes) { answers_.push_back(yes); }
  void AnswerFailure(FailureAnswer answer) { failureAnswers_.push_back(answer); }
  [[nodiscard]] const std::vector<Message>& Shown() const { return shown_; }
  /// The messages that were shown as failures.
  [[nodiscard]] const std::vector<FailureMessage>& Failures() const { return failures_; }

 private:
  EventLog& log_;
  std::deque<bool> answers_;
  std::deque<FailureAnswer> failureAnswers_;
  std::vector<FailureMessage> failures_;
  std::vector<QuestionMessage> questions_;
  bool answersFurther_ = false;
  std::vector<Message> shown_;
};

class PanelRecorder final : public StatusPanels, public PlayerStatus {
 public:
  explicit PanelRecorder(EventLog& log) : log_(log) {}
  void SetPlayerText(const std::string& text) override { log_.Add("panel player: " + text); }
  void ShowPlayer(PlayerState state, const std::string& file) override { SetPlayerText(PlayerText(state, file)); }
  void SetModeText(const std::string& text) override { log_.Add("panel mode: " + text); }

 private:
  EventLog& log_;
};

class FilePanelRecorder final : public FilePanel {
 public:
  explicit FilePanelRecorder(EventLog& log) : log_(log) {}
  void Reset() override { log_.Add("file panel reset"); }
  void ShowRow(int index) override { log_.Add("file panel row " + std::to_string(index)); }
  void ShowFileName(const std::string& path) override { log_.Add("file panel name " + path); }

 private:
  EventLog& log_;
};

class WindowRecorder final : public WindowState {
 public:
  explicit WindowRecorder(EventLog& log) : log_(log) {}
  void SetPointer(Pointer pointer) override;
  void SetEnabled(bool enabled) override { log_.Add(enabled ? "window enabled" : "window disabled"); }
  void FocusList() override { log_.Add("focus list"); }
  void ScrollToRow(int index) override { log_.Add("window scrolls to " + std::to_string(index)); }

 private:
  EventLog& log_;
};

/// A player with one loaded file.
class PlayerRecorder final : public PlayerControl {
 public:
  explicit PlayerRecorder(EventLog& log) : log_(log) {}
  void ReleaseFile(const std::string& path) override;
  void Stop() override;
  void Choose(const std::string& path) override;
  void FileMoved(const std::string& from, const std::string& to) override;
  void FileRemoved(const std::string& path) override;

  std::string loaded;  ///< empty: no file
  std::string chosen;

 private:
  EventLog& log_;
};

class ProgressRecorder final : public ProgressDisplay {
 public:
  explicit ProgressRecorder(EventLog& log) : log_(log) {}
  void Begin(const std::string& headline, const std::string& line) override;
  void Update(int percent, const std::string& text, const std::string& path) override;
  void End() override { log_.Add("progress end"); }
  [[nodiscard]] bool Cancelled() const override { return cancelled; }

  bool cancelled = false;              ///< the user has pressed the button
  std::function<void()> duringUpdate;  ///< called during an update, to act as the user

 private:
  EventLog& log_;
};

class SearchRecorder final : public SearchDisplay {
 public:
  explicit SearchRecorder(EventLog& log) : log_(log) {}
  void Begin(const std::string& status, const std::string& target) override;
  void ShowFolder(const std::string& folder) override { log_.Add("search in " + folder); }
  void End() override { log_.Add("search end"); }

 private:
  EventLog& log_;
};

/// Returns the test's scripted choice; without one the test fails.
class FolderDialogRecorder final : public FolderDialog {
 public:
  explicit FolderDialogRecorder(EventLog& log) : log_(log) {}
  std::string Choose(const std::string& prompt, const std::string& start, const std::string& confirm) override;

  /// An empty folder cancels.
  void Answer(std::string folder) { answers_.push_back(std::move(folder)); }

 private:
  EventLog& log_;
  std::deque<std::string> answers_;
};

/// Counts instead of logging: there is one call per item.
class PendingRecorder final : public PendingMessages {
 public:
  void Process() override;

  /// Runs once, during the n-th call from now on.
  void At(std::size_t call, std::function<void()> then);
  [[nodiscard]] std::size_t Count() const { return count_; }

 private:
  std::size_t count_ = 0;
  std::size_t target_ = 0;
  std::function<void()> then_;
};

class ListRecorder final : public FileListObserver {
 public:
  explicit ListRecorder(EventLog& log) : log_(log) {}
  void RowChanged(int index) override { log_.Add("row " + std::to_string(index)); }
  void RowsChanged() override { log_.Add("rows"); }
  void MarksChanged() override { log_.Add("marks"); }

 private:
  EventLog& log_;
};

/// One of each.
struct Recorders {
  EventLog log;
  BoxRecorder boxes{log};
  PanelRecorder panels{log};
  FilePanelRecorder filePanel{log};
  WindowRecorder window{log};
  PlayerRecorder player{log};
  ProgressRecorder progress{log};
  SearchRecorder search{log};
  FolderDialogRecorder folders{log};
  PendingRecorder pending;
};

}  // namespace quillon::test
