#include "desktop/linux/PrivateBus.h"

#include <signal.h>
#include <sys/prctl.h>

namespace quillon::test {
namespace {

void EndWithTheParent(gpointer /*data*/) {
  prctl(PR_SET_PDEATHSIG, SIGTERM);
}

std::string ReadLine(GInputStream* stream) {
  std::string line;
  char c = 0;
  while (g_input_stream_read(stream, &c, 1, nullptr, nullptr) == 1 && c != '\n') line += c;
  return line;
}

}  // namespace

PrivateBus::PrivateBus() {
  GSubprocessLauncher* const launcher = g_subprocess_launcher_new(
      static_cast<GSubprocessFlags>(G_SUBPROCESS_FLAGS_STDOUT_PIPE | G_SUBPROCESS_FLAGS_STDERR_SILENCE));
  g_subprocess_launcher_set_child_setup(launcher, EndWithTheParent, nullptr, nullptr);
  daemon_ = g_subprocess_launcher_spawn(launcher, nullptr, "dbus-daemon", "--session", "--nofork", "--nopidfile",
                                        "--print-address=1", nullptr);
  g_object_unref(launcher);
  if (daemon_ != nullptr) address_ = ReadLine(g_subprocess_get_stdout_pipe(daemon_));
}

PrivateBus::~PrivateBus() {
  if (daemon_ == nullptr) return;
  g_subprocess_force_exit(daemon_);
  g_subprocess_wait(daemon_, nullptr, nullptr);
  g_object_unref(daemon_);
}

}  // namespace quillon::test
