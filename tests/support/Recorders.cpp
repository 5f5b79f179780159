#include "support/Recorders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/Text.h"

namespace quillon::test {
namespace {

const char* IconName(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kExclamation: return "exclamation";
    case MessageIcon::kStop: return "stop";
    case MessageIcon::kInformation: return "information";
    case MessageIcon::kQuestion: return "question";
  }
  return "?";
}

const char* ButtonNames(MessageButtons buttons) {
  switch (buttons) {
    case MessageButtons::kOk: return "ok";
    case MessageButtons::kOkCancel: return "ok/cancel";
    case MessageButtons::kYesNo: return "yes/no";
  }
  return "?";
}

std::string Visible(const std::string& text) {
  std::string visible;
  for (const char c : text) {
    if (c == '\r') {
      visible += "\\r";
    } else if (c == '\n') {
      visible += "\\n";
    } else {
      visible += c;
    }
  }
  return visible;
}

}  // namespace

std::vector<std::string> EventLog::StartingWith(std::string_view start) const {
  std::vector<std::string> found;
  std::copy_if(events_.begin(), events_.end(), std::back_inserter(found),
               [&](const std::string& event) { return event.compare(0, start.size(), start) == 0; });
  return found;
}

bool EventLog::Has(std::string_view event) const {
  return std::find(events_.begin(), events_.end(), event) != events_.end();
}

std::string BoxEvent(const Message& message) {
  return "box [" + message.caption + "] " + Visible(message.text) + " (" + IconName(message.icon) + ", " +
         ButtonNames(message.buttons) + ")";
}

bool BoxRecorder::Show(const Message& message) {
  log_.Add(BoxEvent(message));
  shown_.push_back(message);
  if (message.buttons == MessageButtons::kOk) return true;
  if (answers_.empty()) {
    ADD_FAILURE() << "unexpected question: " << BoxEvent(message);
    return false;
  }
  const bool answer = answers_.front();
  answers_.pop_front();
  return answer;
}

FailureAnswer BoxRecorder::ShowFailure(const FailureMessage& failure) {
  Show(failure.message);
  failures_.push_back(failure);
  if (failureAnswers_.empty()) return FailureAnswer::kTold;
  const FailureAnswer answer = failureAnswers_.front();
  failureAnswers_.pop_front();
  return answer;
}

QuestionAnswer BoxRecorder::AskQuestion(const QuestionMessage& question) {
  questions_.push_back(question);
  if (question.further.empty() || !std::exchange(answersFurther_, false)) return MessageBoxes::AskQuestion(question);
  log_.Add(BoxEvent(question.message));
  return QuestionAnswer::kFurther;
}

void WindowRecorder::SetPointer(Pointer pointer) {
  switch (pointer) {
    case Pointer::kNormal: log_.Add("pointer normal"); break;
    case Pointer::kBusyArrow: log_.Add("pointer busy arrow"); break;
    case Pointer::kHourglass: log_.Add("pointer hourglass"); break;
  }
}

void PlayerRecorder::ReleaseFile(const std::string& path) {
  log_.Add("player release " + path);
  if (path != loaded) return;
  loaded.clear();
  log_.Add("player stopped");
}

void PlayerRecorder::Choose(const std::string& path) {
  log_.Add("player chooses " + path);
  chosen = path;
}

// Not logged: tests check the resulting paths.
void PlayerRecorder::FileMoved(const std::string& from, const std::string& to) {
  if (chosen == from) chosen = to;
}

void PlayerRecorder::FileRemoved(const std::string& path) {
  log_.Add("player forgets " + path);
  if (path != loaded) return;
  loaded.clear();
  log_.Add("player stopped");
}

void PlayerRecorder::Stop() {
  log_.Add("player stop");
  loaded.clear();
}

void ProgressRecorder::Begin(const std::string& headline, const std::string& line) {
  log_.Add("progress begin: " + Visible(headline) + " | " + line);
}

void ProgressRecorder::Update(int percent, const std::string& text, const std::string& path) {
  EXPECT_EQ(percent, LeadingNumber(text)) << text;
  log_.Add("progress: " + text + " | " + path);
  if (duringUpdate) duringUpdate();
}

void SearchRecorder::Begin(const std::string& status, const std::string& target) {
  log_.Add("search begin: " + status + " | " + target);
}

std::string FolderDialogRecorder::Choose(const std::string& prompt, const std::string& start,
                                         const std::string& confirm) {
  log_.Add("folder dialog: " + prompt + " | " + start + (confirm.empty() ? "" : " | " + confirm));
  if (answers_.empty()) {
    ADD_FAILURE() << "unexpected folder dialog: " << prompt;
    return {};
  }
  std::string answer = std::move(answers_.front());
  answers_.pop_front();
  return answer;
}

void PendingRecorder::Process() {
  ++count_;
  if (!then_ || count_ != target_) return;
  const std::function<void()> then = std::exchange(then_, nullptr);
  then();
}

void PendingRecorder::At(std::size_t call, std::function<void()> then) {
  target_ = count_ + call;
  then_ = std::move(then);
}

}  // namespace quillon::test
