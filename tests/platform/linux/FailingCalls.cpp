#include "platform/linux/FailingCalls.h"

#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

#include <cstddef>

namespace quillon::test {
namespace {

// Newer processors only have the calls that take folders.
#ifdef SYS_link
constexpr long kLink = SYS_link;
constexpr long kRename = SYS_rename;
#else
constexpr long kLink = SYS_linkat;
constexpr long kRename = SYS_renameat;
#endif

sock_filter Load(std::size_t offset) {
  return BPF_STMT(BPF_LD | BPF_W | BPF_ABS, static_cast<unsigned>(offset));
}

/// Passes over `others` instructions unless the loaded number is this one.
sock_filter UnlessEqual(unsigned value, unsigned char others) {
  return BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, value, 0, others);
}

}  // namespace

bool MakeFail(const std::vector<FailingCall>& calls) {
  std::vector<sock_filter> program;
  for (const FailingCall& call : calls) {
    program.push_back(Load(offsetof(seccomp_data, nr)));
    program.push_back(UnlessEqual(static_cast<unsigned>(call.number), call.where ? 3 : 1));
    if (call.where) {
      program.push_back(Load(offsetof(seccomp_data, args) + 8 * call.where->argument));  // its lower half
      program.push_back(UnlessEqual(call.where->value, 1));
    }
    program.push_back(
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | (static_cast<unsigned>(call.error) & SECCOMP_RET_DATA)));
  }
  program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
  const sock_fprog filter = {static_cast<unsigned short>(program.size()), program.data()};
  return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
}

std::vector<FailingCall> FailingFstat(int error) {
  return {{SYS_fstat, error}, {SYS_newfstatat, error, FailingCall::Where{3, AT_EMPTY_PATH}}};
}

std::vector<FailingCall> FailingLink(int error) {
  return {{SYS_linkat, error}, {kLink, error}};
}

std::vector<FailingCall> FailingRename(int error) {
  return {{SYS_renameat, error}, {kRename, error}};
}

}  // namespace quillon::test
