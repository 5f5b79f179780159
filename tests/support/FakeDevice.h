#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/multimedia/CommandDevice.h"

namespace quillon::test {

/// A device whose time is advanced by the test. It can only open the files added with AddFile.
class FakeDevice final : public CommandDevice {
 public:
  /// `picture` is the picture's size as "width height"; empty for sound only.
  void AddFile(const std::string& path, std::int32_t length, std::string picture = {});

  /// Advances everything that is playing by this time.
  void Pass(std::int32_t milliseconds);

  CommandReply Send(const std::string& command, int replySize) override;

  /// Returns the commands sent since the last call.
  std::vector<std::string> TakeSent();
  /// The file open under the alias; empty for none.
  [[nodiscard]] std::string OpenFile(const std::string& alias) const;

  std::vector<std::string> sent;
  /// Replies that override the device's own, by command in lower case.
  std::map<std::string, std::string, std::less<>> scripted;
  /// A command in lower case that fails; empty for none.
  std::string refused;

 private:
  struct File {
    std::int32_t length = 0;
    std::string picture;
  };
  struct Medium {
    std::string path;
    File file;
    std::string mode = "stopped";
    std::int32_t position = 0;
  };

  CommandReply Open(const std::string& command);
  CommandReply Carry(std::string_view verb, Medium& medium, const std::vector<std::string_view>& words);
  static CommandReply Seek(Medium& medium, std::string_view to);
  static CommandReply Status(const Medium& medium, std::string_view item);

  std::map<std::string, File> files_;
  std::map<std::string, Medium> open_;
};

}  // namespace quillon::test
