#include "platform/multimedia/CommandText.h"

#include <initializer_list>

namespace quillon::command_text {
namespace {

std::string Joined(std::initializer_list<std::string_view> parts) {
  std::string text;
  for (const std::string_view part : parts) text += part;
  return text;
}

}  // namespace

std::string Open(std::string_view path, std::string_view alias) {
  return Joined({"Open \"", path, "\" alias ", alias});
}

std::string Close(std::string_view alias) {
  return Joined({"Close ", alias});
}

std::string Play(std::string_view alias) {
  return Joined({"Play ", alias});
}

std::string PlayFrom(std::string_view alias, std::int32_t position) {
  return Joined({"play ", alias, " from ", std::to_string(position)});
}

std::string Resume(std::string_view alias) {
  return Joined({"resume ", alias});
}

std::string Pause(std::string_view alias) {
  return Joined({"Pause ", alias});
}

std::string Stop(std::string_view alias) {
  return Joined({"Stop ", alias});
}

std::string Seek(std::string_view alias, std::int32_t position) {
  return Joined({"seek ", alias, " to ", std::to_string(position)});
}

std::string SeekToStart(std::string_view alias) {
  return Joined({"Seek ", alias, " to Start"});
}

std::string CountInMilliseconds(std::string_view alias) {
  return Joined({"set ", alias, " time format milliseconds"});
}

std::string AskMode(std::string_view alias) {
  return Joined({"status ", alias, " mode"});
}

std::string AskPosition(std::string_view alias) {
  return Joined({"status ", alias, " position"});
}

std::string AskLength(std::string_view alias) {
  return Joined({"status ", alias, " length"});
}

std::string AskPicture(std::string_view alias) {
  return Joined({"where ", alias, " source"});
}

std::string SetWindow(std::string_view alias, std::uintptr_t handle) {
  return Joined({"window ", alias, " handle ", std::to_string(handle)});
}

std::string PutPicture(std::string_view alias, PictureSize destination) {
  return Joined({"put ", alias, " destination at 0 0 ", std::to_string(destination.width), " ",
                 std::to_string(destination.height)});
}

}  // namespace quillon::command_text
