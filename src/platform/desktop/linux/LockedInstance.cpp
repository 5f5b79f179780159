#include "platform/desktop/linux/LockedInstance.h"

#include <fcntl.h>
#include <glib-unix.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <optional>
#include <utility>

#include "platform/desktop/linux/StartupId.h"
#include "platform/linux/Descriptor.h"

namespace quillon {
namespace {

/// Startup ids are much shorter.
constexpr std::size_t kMostBytes = 4096;

bool IsStillAt(int file, const std::string& path) {
  struct stat held = {};
  struct stat there = {};
  return ::fstat(file, &held) == 0 && ::lstat(path.c_str(), &there) == 0 && held.st_dev == there.st_dev &&
         held.st_ino == there.st_ino;
}

struct Lock {
  Descriptor file{-1};
  bool heldByAnother = false;
};

/// The first instance deletes its lock file when it ends. If the file was opened before and locked after that, the lock
/// is useless and another one is taken.
Lock TakeLock(const std::string& path) {
  for (;;) {
    Descriptor file(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!file.Open()) return {};
    if (::flock(file.Number(), LOCK_EX | LOCK_NB) != 0) return {Descriptor(-1), errno == EWOULDBLOCK};
    if (IsStillAt(file.Number(), path)) return {std::move(file), false};
  }
}

/// Returns nullopt when the path is too long for a socket.
std::optional<sockaddr_un> AddressOf(const std::string& path) {
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof(address.sun_path)) return std::nullopt;
  path.copy(address.sun_path, path.size());
  return address;
}

Descriptor MakeSocket() {
  return Descriptor(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

class LockedInstance final : public SingleInstance {
 public:
  LockedInstance(const std::string& path, std::string startupId)
      : lockPath_(path + ".lock"),
        socketPath_(path + ".socket"),
        startupId_(std::move(startupId)),
        lock_(TakeLock(lockPath_)) {
    if (lock_.file.Open()) Listen();
  }
  LockedInstance(const LockedInstance&) = delete;
  LockedInstance& operator=(const LockedInstance&) = delete;
  ~LockedInstance() override {
    if (watch_ != 0) g_source_remove(watch_);
    if (!lock_.file.Open()) return;
    // Deleted while the lock is held, so that they cannot belong to another instance.
    ::unlink(socketPath_.c_str());
    ::unlink(lockPath_.c_str());
  }

  [[nodiscard]] bool IsFirst() const override { return !lock_.heldByAnother; }

  /// Does not wait for an answer, because the first instance may be busy.
  void BringFirstForward() override {
    const std::optional<sockaddr_un> address = AddressOf(socketPath_);
    if (IsFirst() || !address) return;
    const Descriptor socket = MakeSocket();
    (void)::sendto(socket.Number(), startupId_.data(), startupId_.size(), MSG_NOSIGNAL,
                   reinterpret_cast<const sockaddr*>(&*address), sizeof(*address));
  }

  void OnRaise(std::function<void()> raise) override { raise_ = std::move(raise); }

 private:
  void Listen() {
    const std::optional<sockaddr_un> address = AddressOf(socketPath_);
    if (!address) return;
    ::unlink(socketPath_.c_str());  // may be left by a killed instance
    socket_ = std::make_unique<Descriptor>(MakeSocket());
    if (::bind(socket_->Number(), reinterpret_cast<const sockaddr*>(&*address), sizeof(*address)) != 0) return;
    watch_ = g_unix_fd_add(socket_->Number(), G_IO_IN, &LockedInstance::OnMessage, this);
  }

  static gboolean OnMessage(gint /*socket*/, GIOCondition /*condition*/, gpointer data) {
    auto* const self = static_cast<LockedInstance*>(data);
    std::array<char, kMostBytes> bytes = {};
    const ssize_t length = ::recv(self->socket_->Number(), bytes.data(), bytes.size(), 0);
    if (length < 0) return G_SOURCE_CONTINUE;
    UseStartupId(std::string(bytes.data(), static_cast<std::size_t>(length)));
    // A copy, because `raise` may run a nested message loop.
    const std::function<void()> raise = self->raise_;
    if (raise) raise();
    return G_SOURCE_CONTINUE;
  }

  std::string lockPath_;
  std::string socketPath_;
  std::string startupId_;
  Lock lock_;
  std::unique_ptr<Descriptor> socket_;
  guint watch_ = 0;
  std::function<void()> raise_;
};

}  // namespace

std::unique_ptr<SingleInstance> MakeLockedInstance(const std::string& path, std::string startupId) {
  return std::make_unique<LockedInstance>(path, std::move(startupId));
}

}  // namespace quillon
