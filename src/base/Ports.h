#pragma once

#include <string>

/// How logic reaches back to the program around it: a window implements these, quillon-cli does, tests record them.
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

/// What is told of a file whose rename or move has failed.
struct FailureMessage {
  Message message;
  std::string details = {};  ///< shown on demand: the paths and what the system said; lines end with "\r\n"
  bool inBatch = false;      ///< more may fail: the box offers to tell no more of them
};

enum class FailureAnswer {
  kTold,
  kTellNoMore,  ///< for the rest of this batch
  kStop,        ///< nobody waits for the batch any more
};

class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;
  /// Shows the box and waits. True for OK and Yes; false for Cancel, No and a closed box.
  virtual bool Show(const Message& message) = 0;
  /// The same for a failure. Without a window it is told like any message.
  virtual FailureAnswer ShowFailure(const FailureMessage& failure) {
    Show(failure.message);
    return FailureAnswer::kTold;
  }
};

class PendingMessages {
 public:
  virtual ~PendingMessages() = default;
  /// Lets the window repaint and answer; called between the items of long loops. Must not start another command.
  virtual void Process() = 0;

  /// True once the user has asked for the end of what runs.
  [[nodiscard]] virtual bool Cancelled() const { return false; }
};

}  // namespace quillon
