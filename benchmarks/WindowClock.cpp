#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>

/// Starts a program and prints when its window with this title appeared on the screen, when the program became idle,
/// and its peak memory; then ends it.
namespace quillon::benchmarks {
namespace {

using Milliseconds = double;

constexpr Milliseconds kMost = 60000;
constexpr int kStep = 2;                // milliseconds
constexpr Milliseconds kQuiet = 100;    // idle means for this long
constexpr Milliseconds kQuietWork = 1;  // with at most this much processor time

Milliseconds Now(clockid_t clock = CLOCK_MONOTONIC) {
  timespec time{};
  clock_gettime(clock, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

[[noreturn]] void Fail(const char* what) {
  std::cerr << "error: " << what << '\n';
  exit(1);
}

template <class Reply>
std::unique_ptr<Reply, decltype(&free)> Owned(Reply* reply) {
  return {reply, &free};
}

/// Receives the events of every new window on the display.
class Display {
 public:
  Display() : connection_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection_) != 0) Fail("there is no display");
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    Listen(root, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    xcb_flush(connection_);
  }
  Display(const Display&) = delete;
  Display& operator=(const Display&) = delete;
  ~Display() { xcb_disconnect(connection_); }

  /// Waits for one step at most. Returns true when a window with this title has appeared on the screen.
  bool Mapped(std::string_view title) {
    pollfd waiting{xcb_get_file_descriptor(connection_), POLLIN, 0};
    poll(&waiting, 1, kStep);
    while (const auto event = Owned(xcb_poll_for_event(connection_))) {
      const auto kind = static_cast<unsigned>(event->response_type) & 0x7fU;
      if (kind == XCB_CREATE_NOTIFY) {
        // Listens to the window itself, because a window manager may reparent it.
        Listen(reinterpret_cast<xcb_create_notify_event_t*>(event.get())->window, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
        xcb_flush(connection_);
      } else if (kind == XCB_MAP_NOTIFY) {
        if (Title(reinterpret_cast<xcb_map_notify_event_t*>(event.get())->window) == title) return true;
      }
    }
    return false;
  }

 private:
  void Listen(xcb_window_t window, std::uint32_t events) {
    xcb_change_window_attributes(connection_, window, XCB_CW_EVENT_MASK, &events);
  }

  std::string Title(xcb_window_t window) {
    const auto reply = Owned(xcb_get_property_reply(
        connection_, xcb_get_property(connection_, 0, window, XCB_ATOM_WM_NAME, XCB_ATOM_ANY, 0, 64), nullptr));
    if (!reply) return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
  }

  xcb_connection_t* connection_;
};

class Program {
 public:
  explicit Program(char** command) : started_(Now()) {
    if (posix_spawnp(&id_, *command, nullptr, nullptr, command, environ) != 0) Fail("the program cannot be started");
    if (clock_getcpuclockid(id_, &clock_) != 0) Fail("the program's time cannot be read");
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  ~Program() {
    kill(id_, SIGTERM);
    waitpid(id_, nullptr, 0);
  }

  [[nodiscard]] Milliseconds Age() const { return Now() - started_; }
  [[nodiscard]] Milliseconds Work() const { return Now(clock_); }
  [[nodiscard]] bool HasEnded() const {
    siginfo_t ended{};
    waitid(P_PID, static_cast<id_t>(id_), &ended, WEXITED | WNOHANG | WNOWAIT);
    return ended.si_pid != 0;
  }

  /// The peak of its resident memory, in KiB.
  [[nodiscard]] long Peak() const {
    std::ifstream status("/proc/" + std::to_string(id_) + "/status");
    for (std::string word; status >> word;) {
      long peak = 0;
      if (word == "VmHWM:" && status >> peak) return peak;
    }
    return 0;
  }

 private:
  Milliseconds started_;
  pid_t id_ = 0;
  clockid_t clock_ = 0;
};

Milliseconds WaitForWindow(Display& display, const Program& program, std::string_view title) {
  while (!display.Mapped(title)) {
    if (program.HasEnded()) Fail("the program has ended without a window");
    if (program.Age() > kMost) Fail("no window appeared");
  }
  return program.Age();
}

/// Returns the time at which the program became idle.
Milliseconds WaitForQuiet(const Program& program) {
  struct Sample {
    Milliseconds age;
    Milliseconds work;
  };
  std::deque<Sample> samples;
  while (program.Age() < kMost) {
    if (program.HasEnded()) Fail("the program has ended by itself");
    samples.push_back({program.Age(), program.Work()});
    while (samples.back().work - samples.front().work > kQuietWork) samples.pop_front();
    if (samples.back().age - samples.front().age >= kQuiet) return samples.front().age;
    poll(nullptr, 0, kStep);
  }
  Fail("the program did not come to rest");
}

}  // namespace
}  // namespace quillon::benchmarks

int main(int argc, char** argv) {
  using namespace quillon::benchmarks;
  if (argc < 3) Fail("usage: quillon-window-clock TITLE PROGRAM [ARGUMENT...]");
  Display display;
  const Program program(argv + 2);
  const Milliseconds mapped = WaitForWindow(display, program, argv[1]);
  const Milliseconds idle = WaitForQuiet(program);
  std::printf("{\"mapped\": %.1f, \"idle\": %.1f, \"work\": %.1f, \"peak\": %ld}\n", mapped, idle, program.Work(),
              program.Peak());
  return 0;
}
