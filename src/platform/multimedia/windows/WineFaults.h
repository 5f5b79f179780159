#pragma once

#include <memory>

#include "platform/multimedia/CommandDevice.h"

namespace quillon {

/// True when Wine runs this Windows program.
[[nodiscard]] bool RunsOnWine();

/// Makes the device with or without the workarounds for Wine's faults. The other MakeCommandDevice uses them on Wine
/// only.
[[nodiscard]] std::unique_ptr<CommandDevice> MakeCommandDevice(bool makesUpForWine);

}  // namespace quillon
