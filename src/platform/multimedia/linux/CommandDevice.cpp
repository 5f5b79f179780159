#include "platform/multimedia/CommandDevice.h"

namespace quillon {
namespace {

class GstCommandDevice final : public CommandDevice {
 public:
  CommandReply Send(const std::string& /*command*/, int /*replySize*/) override {
    return {command_error::kUnknownCommand};
  }
};

}  // namespace

std::unique_ptr<CommandDevice> MakeCommandDevice() {
  return std::make_unique<GstCommandDevice>();
}

}  // namespace quillon
