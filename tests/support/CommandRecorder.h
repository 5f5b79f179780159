#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "platform/multimedia/CommandDevice.h"

namespace quillon::test {

/// Records the commands sent. Replies with the scripted reply for the command, ignoring letter case; without one the
/// command succeeds with an empty text.
class CommandRecorder final : public CommandDevice {
 public:
  CommandReply Send(const std::string& command, int replySize) override {
    sent.push_back(command);
    sizes.push_back(replySize);
    const auto found = replies.find(ToLower(command));
    return found == replies.end() ? std::string() : found->second;
  }

  void Answer(std::string_view command, std::string text) {
    replies.insert_or_assign(ToLower(command), std::move(text));
  }
  void Fail(std::string_view command, MediaError error) { replies.insert_or_assign(ToLower(command), error); }

  std::vector<std::string> sent;
  std::vector<int> sizes;
  std::map<std::string, CommandReply, std::less<>> replies;
};

}  // namespace quillon::test
