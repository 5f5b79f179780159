#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "desktop/linux/Environment.h"
#include "platform/desktop/linux/SessionBus.h"
#include "support/Growth.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

/// A socket that is listened on, but never answers.
class SilentSocket {
 public:
  explicit SilentSocket(const std::string& path) : socket_(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    EXPECT_LT(path.size(), sizeof(address.sun_path));
    path.copy(static_cast<char*>(address.sun_path), sizeof(address.sun_path) - 1);
    EXPECT_EQ(bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    EXPECT_EQ(listen(socket_, 5), 0);
  }
  SilentSocket(const SilentSocket&) = delete;
  SilentSocket& operator=(const SilentSocket&) = delete;
  ~SilentSocket() { close(socket_); }

 private:
  int socket_;
};

TEST(SessionBusAddress, IsTheEnvironments) {
  EXPECT_EQ(SessionBusAddress("unix:path=/a/bus", ""), "unix:path=/a/bus");
  EXPECT_EQ(SessionBusAddress("unix:path=/a;tcp:host=b", ""), "unix:path=/a;tcp:host=b");
}

TEST(SessionBusAddress, NeverStartsABus) {
  EXPECT_EQ(SessionBusAddress("autolaunch:", ""), "");
  EXPECT_EQ(SessionBusAddress("autolaunch:scope=x;unix:path=/a", ""), "unix:path=/a");
  EXPECT_EQ(SessionBusAddress("unix:path=/a;autolaunch:", ""), "unix:path=/a");
}

TEST(SessionBusAddress, IsTheSocketInTheRuntimeFolder) {
  const test::TempFolder folder;
  EXPECT_EQ(SessionBusAddress("", folder.Path()), "") << "there is nothing";
  folder.Write("bus");
  EXPECT_EQ(SessionBusAddress("", folder.Path()), "") << "a file is no socket";
  std::filesystem::remove(folder.At("bus"));
  const SilentSocket socket(folder.At("bus"));
  const std::string runtimeFolder = folder.Path().substr(0, folder.Path().size() - 1);
  EXPECT_EQ(SessionBusAddress("", runtimeFolder), "unix:path=" + folder.At("bus"));
  EXPECT_EQ(SessionBusAddress("autolaunch:", runtimeFolder), "unix:path=" + folder.At("bus"));
  EXPECT_EQ(SessionBusAddress("unix:path=/a", runtimeFolder), "unix:path=/a");
}

TEST(SessionBus, IsMissingWhenItDoesNotAnswer) {
  const test::TempFolder folder;
  const SilentSocket socket(folder.At("s"));
  const test::ScopedVariable address("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + folder.At("s"));
  EXPECT_LT(test::Seconds([] { EXPECT_EQ(ConnectToSessionBus(), nullptr); }), 3.0);
}

TEST(SessionBus, IsMissingWhenNobodyListens) {
  const test::TempFolder folder;
  const test::ScopedVariable address("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + folder.At("s"));
  EXPECT_EQ(ConnectToSessionBus(), nullptr);
}

TEST(BusNamePart, KeepsOnlyLettersAndDigits) {
  EXPECT_EQ(BusNamePart("Quillon"), "Quillon");
  EXPECT_EQ(BusNamePart(":0"), "_3a0");
  EXPECT_EQ(BusNamePart("wayland-1"), "wayland_2d1");
  EXPECT_EQ(BusNamePart("a.b/c"), "a_2eb_2fc");
  EXPECT_EQ(BusNamePart("あ"), "_e3_81_82");
  EXPECT_EQ(BusNamePart("\xff"), "_ff");
}

TEST(BusNamePart, DoesNotStartWithADigit) {
  EXPECT_EQ(BusNamePart("10"), "_310");
}

TEST(BusNamePart, IsNeverEmpty) {
  EXPECT_EQ(BusNamePart(""), "_");
}

TEST(BusNamePart, TellsAnUnderlineFromAnEscape) {
  EXPECT_EQ(BusNamePart("_"), "_5f");
  EXPECT_NE(BusNamePart("_3a0"), BusNamePart(":0"));
}

TEST(BusNamePart, MakesValidBusNamesOfEveryByte) {
  for (int byte = 1; byte < 256; ++byte) {
    const std::string name = "io.github." + BusNamePart(std::string(2, static_cast<char>(byte)));
    EXPECT_TRUE(g_dbus_is_name(name.c_str())) << name;
  }
}

TEST(DisplayName, LeavesOutTheScreen) {
  EXPECT_EQ(DisplayName(":0", ""), ":0");
  EXPECT_EQ(DisplayName(":0.1", ""), ":0");
  EXPECT_EQ(DisplayName("host.example.org:10.0", ""), "host.example.org:10");
  EXPECT_EQ(DisplayName("host.example.org", ""), "host.example.org");
}

TEST(DisplayName, IsWaylandsWithoutAnXServer) {
  EXPECT_EQ(DisplayName("", "wayland-0"), "wayland-0");
  EXPECT_EQ(DisplayName(":1", "wayland-0"), ":1");
  EXPECT_EQ(DisplayName("", ""), "");
}

}  // namespace
}  // namespace quillon
