#include <algorithm>
#include <charconv>
#include <chrono>
#include <optional>
#include <thread>

#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "cli/Table.h"
#include "platform/Program.h"
#include "platform/multimedia/CommandDevice.h"
#include "platform/multimedia/CommandText.h"

namespace quillon::cli {
namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

constexpr int kReplySize = 1024;

/// Reads standard input line by line, each as soon as it arrives.
class InputLines {
 public:
  std::optional<std::string> Next() {
    std::size_t end = pending_.find('\n');
    while (end == std::string::npos) {
      const std::string piece = ReadSomeStandardInput();
      if (piece.empty()) return Rest();
      const std::size_t from = pending_.size();
      pending_ += piece;
      end = pending_.find('\n', from);
    }
    std::string line = pending_.substr(0, end);
    pending_.erase(0, end + 1);
    return WithoutReturn(std::move(line));
  }

 private:
  std::optional<std::string> Rest() {
    if (pending_.empty()) return std::nullopt;
    return WithoutReturn(std::exchange(pending_, {}));
  }

  static std::string WithoutReturn(std::string line) {
    if (line.ends_with('\r')) line.pop_back();
    return line;
  }

  std::string pending_;
};

std::optional<milliseconds> Milliseconds(std::string_view word) {
  int number = 0;
  const char* const end = word.data() + word.size();
  const auto [stopped, error] = std::from_chars(word.data(), end, number);
  if (error != std::errc() || stopped != end || number < 0) return std::nullopt;
  return milliseconds(number);
}

/// The answer as the line that is written for it.
std::string Answer(const CommandReply& reply) {
  return reply ? OnOneLine(*reply) : "error " + std::to_string(static_cast<int>(reply.Failure()));
}

std::string AwaitMode(CommandDevice& device, std::string_view alias, std::string_view mode, milliseconds limit) {
  constexpr milliseconds kBetweenLooks(10);
  const auto deadline = Clock::now() + limit;
  while (true) {
    const CommandReply reply = device.Send(command_text::AskMode(alias), kReplySize);
    if (!reply || *reply == mode || Clock::now() >= deadline) return Answer(reply);
    std::this_thread::sleep_for(kBetweenLooks);
  }
}

/// Executes the line and returns its answer; nullopt for "wait".
std::optional<std::string> CarryOut(CommandDevice& device, const std::string& line) {
  const std::vector<std::string_view> words = Split(line, ' ');
  const std::optional<milliseconds> time = Milliseconds(words.back());
  if (words.front() == "wait" && words.size() == 2 && time) {
    std::this_thread::sleep_for(*time);
    return std::nullopt;
  }
  if (words.front() == "await" && words.size() == 4 && time) return AwaitMode(device, words[1], words[2], *time);
  return Answer(device.Send(line, kReplySize));
}

}  // namespace

int RunMci() {
  const std::unique_ptr<CommandDevice> device = MakeCommandDevice();
  InputLines input;
  Output output;
  while (const std::optional<std::string> line = input.Next()) {
    if (line->empty() || line->starts_with('#')) continue;
    const std::optional<std::string> answer = CarryOut(*device, *line);
    if (!answer) continue;
    output.Line(*answer);
    if (!output.Flush()) return kSomeFailed;
  }
  return kDone;
}

}  // namespace quillon::cli
