#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "platform/WholeFile.h"
#include "platform/linux/Descriptor.h"
#include "support/TempFolder.h"

/// Special files in place of a small file: reading must not treat them as empty, writing must not replace them, and
/// neither may wait for another process.
namespace quillon::test {
namespace {

class SpecialFiles : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(::mkfifo(folder_.At("pipe").c_str(), 0600), 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const std::string path = folder_.At("socket");
    ASSERT_LT(path.copy(static_cast<char*>(address.sun_path), sizeof address.sun_path), sizeof address.sun_path);
    ASSERT_EQ(::bind(socket_.Number(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    for (const auto& [name, target] :
         {std::pair("link to a pipe", "pipe"), std::pair("link to a folder", "folder"), std::pair("loop", "loop"),
          std::pair("long loop", "other half"), std::pair("other half", "long loop")}) {
      std::filesystem::create_symlink(target, folder_.At(name));
    }
    folder_.MakeFolder("folder");
  }

  static constexpr const char* kNames[] = {"pipe", "socket",   "folder", "link to a pipe", "link to a folder",
                                           "loop", "long loop"};
  TempFolder folder_;
  Descriptor socket_{::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)};
};

TEST_F(SpecialFiles, CannotBeRead) {
  for (const char* name : kNames) {
    const Result<std::string, ReadFailure> read = ReadWholeFile(folder_.At(name), 1000000);
    ASSERT_FALSE(read) << name;
    EXPECT_EQ(read.Failure(), ReadFailure::kUnreadable) << name;
  }
  const Result<std::string, ReadFailure> device = ReadWholeFile("/dev/null", 1000000);
  ASSERT_FALSE(device);
  EXPECT_EQ(device.Failure(), ReadFailure::kUnreadable);
}

TEST_F(SpecialFiles, AreNotReplaced) {
  const auto entries = [this] {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
      found.push_back(entry.path().filename().string() + " " + std::to_string(int(entry.symlink_status().type())));
    }
    std::sort(found.begin(), found.end());
    return found;
  };
  const std::vector<std::string> before = entries();
  for (const char* name : kNames) {
    EXPECT_TRUE(ReplaceWholeFile(folder_.At(name), "new")) << name;
    EXPECT_EQ(entries(), before) << name;
  }
}

}  // namespace
}  // namespace quillon::test
