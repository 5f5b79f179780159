#include "platform/multimedia/MediaDevice.h"

#include "platform/FileSystem.h"
#include "platform/multimedia/CommandDevice.h"
#include "platform/multimedia/basMCIControl.h"

namespace quillon {
namespace {

struct SystemPorts {
  std::unique_ptr<CommandDevice> device = MakeCommandDevice();
  std::unique_ptr<FileReads> files = MakeFileReads();
};

/// The ports are a base class, so that they are constructed before the class that uses them, and outlive it.
class SystemMediaDevice final : private SystemPorts, public basMCIControl {
 public:
  SystemMediaDevice() : basMCIControl(*SystemPorts::device, *SystemPorts::files) {}
};

}  // namespace

std::unique_ptr<MediaDevice> MakeMediaDevice() {
  return std::make_unique<SystemMediaDevice>();
}

}  // namespace quillon
