#pragma once

#include <memory>

#include "platform/multimedia/CommandDevice.h"

namespace quillon {

/// True for a program for Windows that Wine runs.
[[nodiscard]] bool RunsOnWine();

/// The device with or without what makes up for faults of Wine's; MakeCommandDevice has it on Wine only.
[[nodiscard]] std::unique_ptr<CommandDevice> MakeCommandDevice(bool makesUpForWine);

}  // namespace quillon
