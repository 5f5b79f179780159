#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/multimedia/PictureSize.h"

/// Builds all command strings that the program sends.
namespace quillon::command_text {

inline constexpr const char* kCloseAll = "close all";

[[nodiscard]] std::string Open(std::string_view path, std::string_view alias);
[[nodiscard]] std::string Close(std::string_view alias);
[[nodiscard]] std::string Play(std::string_view alias);
[[nodiscard]] std::string PlayFrom(std::string_view alias, std::int32_t position);
[[nodiscard]] std::string Resume(std::string_view alias);
[[nodiscard]] std::string Pause(std::string_view alias);
[[nodiscard]] std::string Stop(std::string_view alias);
[[nodiscard]] std::string Seek(std::string_view alias, std::int32_t position);
[[nodiscard]] std::string SeekToStart(std::string_view alias);
[[nodiscard]] std::string CountInMilliseconds(std::string_view alias);
[[nodiscard]] std::string AskMode(std::string_view alias);
[[nodiscard]] std::string AskPosition(std::string_view alias);
[[nodiscard]] std::string AskLength(std::string_view alias);
[[nodiscard]] std::string AskPicture(std::string_view alias);
[[nodiscard]] std::string SetWindow(std::string_view alias, std::uintptr_t handle);
[[nodiscard]] std::string PutPicture(std::string_view alias, PictureSize destination);

}  // namespace quillon::command_text
