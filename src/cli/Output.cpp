#include "cli/Output.h"

#include "cli/Messages.h"
#include "platform/Program.h"

namespace quillon::cli {

void Output::Line(std::string_view text) {
  constexpr std::size_t kPiece = std::size_t{1} << 16u;
  buffer_ += text;
  buffer_ += '\n';
  if (buffer_.size() >= kPiece) Flush();
}

bool Output::Flush() {
  if (!buffer_.empty() && !closed_) {
    const StreamResult result = WriteStandardOutput(buffer_);
    closed_ = result != StreamResult::kWritten;
    if (result == StreamResult::kFailed) Complain(Localized(messages::kOutputFailed));
  }
  buffer_.clear();
  return !closed_;
}

void Complain(std::string_view text) {
  // There is nowhere left to say that standard error is closed.
  static_cast<void>(WriteStandardError(std::string(text) + "\n"));
}

}  // namespace quillon::cli
