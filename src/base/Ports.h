#pragma once

#include <string>

/// The interfaces through which logic reaches the user. Windows implement them; tests record the calls.
namespace quillon {

enum class MessageIcon { kExclamation, kStop, kInformation, kQuestion };
enum class MessageButtons { kOk, kOkCancel, kYesNo };

/// One message box. Texts are complete and UTF-8; line breaks are "\r\n".
struct Message {
  std::string caption;
  std::string text;
  MessageIcon icon = MessageIcon::kInformation;
  MessageButtons buttons = MessageButtons::kOk;

  bool operator==(const Message&) const = default;
};

/// The message about a file whose rename or move failed.
struct FailureMessage {
  Message message;
  std::string details = {};  ///< shown on demand: the paths and the system's error; lines end with "\r\n"
  bool inBatch = false;      ///< more files may fail: the box offers to show no further failures
};

enum class FailureAnswer {
  kTold,
  kTellNoMore,  ///< show no further failures of this batch
  kStop,        ///< end the batch: the user has closed the window
};

/// A question that explains itself, and may have one more answer.
struct QuestionMessage {
  Message message;           ///< with two buttons
  std::string details = {};  ///< shown on demand; lines end with "\r\n"
  std::string further = {};  ///< the caption of a third button, with its access key; empty for none
};

/// kYes is also OK, kNo also Cancel.
enum class QuestionAnswer { kYes, kNo, kFurther };

class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;
  /// Shows the box and waits. True for OK and Yes; false for Cancel, No and a closed box.
  virtual bool Show(const Message& message) = 0;
  /// The same for a failure. By default it is shown like any other message.
  virtual FailureAnswer ShowFailure(const FailureMessage& failure) {
    Show(failure.message);
    return FailureAnswer::kTold;
  }
  /// The same for a question. By default it is shown like any other message, without the third button.
  virtual QuestionAnswer AskQuestion(const QuestionMessage& question) {
    return Show(question.message) ? QuestionAnswer::kYes : QuestionAnswer::kNo;
  }
};

class PendingMessages {
 public:
  virtual ~PendingMessages() = default;
  /// Lets the window repaint and handle events; called between the items of long loops. Must not start another command.
  virtual void Process() = 0;
};

}  // namespace quillon
