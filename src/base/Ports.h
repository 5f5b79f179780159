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

class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;
  /// Shows the box and waits. True for OK and Yes; false for Cancel, No and a closed box.
  virtual bool Show(const Message& message) = 0;
};

class PendingMessages {
 public:
  virtual ~PendingMessages() = default;
  /// Lets the window repaint and answer; called between the items of long loops. Must not start another command.
  virtual void Process() = 0;
};

}  // namespace quillon
