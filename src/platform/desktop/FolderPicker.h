#pragma once

#include <optional>
#include <string>

namespace quillon {

/// Lets the user choose an existing folder in Windows' dialog. `confirm` is the label of its confirming button. Returns
/// an empty path when cancelled, nullopt when the dialog cannot be shown. `owner` is a window handle or null. Only on
/// Windows.
[[nodiscard]] std::optional<std::string> PickFolder(void* owner, const std::string& title, const std::string& start,
                                                    const std::string& confirm);

}  // namespace quillon
