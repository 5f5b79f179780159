#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <string>
#include <string_view>
#include <thread>

/// A library to preload into a program, for which a folder then is as slow as on a share on a network: every open,
/// status, read and batch of listed entries below it waits. Threads wait side by side. The environment says
///
///   SLOW_DISK        the folder, as a full path
///   SLOW_DISK_MS     how long each call waits, in milliseconds (1 when not given)
///   SLOW_DISK_HANGS  the name of a folder below it whose listing never ends
///
/// Calls that the C library makes within itself (those of fopen) do not wait.
namespace quillon::benchmarks {
namespace {

struct Disk {
  std::string folder;
  std::string hangs;
  std::chrono::duration<double, std::milli> wait{1};
};

std::string Setting(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr ? value : "";
}

const Disk& TheDisk() {
  static const Disk disk = [] {
    Disk made = {Setting("SLOW_DISK"), Setting("SLOW_DISK_HANGS")};
    while (made.folder.ends_with('/')) made.folder.pop_back();
    if (const std::string wait = Setting("SLOW_DISK_MS"); !wait.empty()) {
      made.wait = std::chrono::duration<double, std::milli>(std::strtod(wait.c_str(), nullptr));
    }
    return made;
  }();
  return disk;
}

void Wait() {
  std::this_thread::sleep_for(TheDisk().wait);
}

/// What is known of an open descriptor.
struct Opened {
  std::atomic<bool> slow;
  std::atomic<bool> hangs;
  std::atomic<unsigned> listed;  ///< bytes of the batch of entries that is being handed out
};

constexpr int kMostDescriptors = 1 << 16;

Opened* Find(int descriptor) {
  static std::array<Opened, kMostDescriptors> all;
  return descriptor >= 0 && descriptor < kMostDescriptors ? &all.at(static_cast<std::size_t>(descriptor)) : nullptr;
}

bool IsSlow(int descriptor) {
  const Opened* const opened = Find(descriptor);
  return opened != nullptr && opened->slow;
}

// Relative paths are taken to be outside, unless the folder that they start from was opened inside.
bool IsSlow(int folder, const char* path) {
  const std::string_view text = path != nullptr ? path : "";
  if (!text.starts_with('/')) return IsSlow(folder);
  const std::string& slow = TheDisk().folder;
  return !slow.empty() && text.starts_with(slow) && (text.size() == slow.size() || text[slow.size()] == '/');
}

bool Hangs(const char* path) {
  std::string_view name = path;
  while (name.ends_with('/')) name.remove_suffix(1);
  return !TheDisk().hangs.empty() && name.substr(name.find_last_of('/') + 1) == TheDisk().hangs;
}

// Every number is noted, since an earlier file may have had it.
void Note(int descriptor, bool slow, const char* path) {
  Opened* const opened = Find(descriptor);
  if (opened == nullptr) return;
  opened->slow = slow;
  opened->hangs = slow && Hangs(path);
  opened->listed = 0;
}

void HangIfToldTo(int descriptor) {
  const Opened* const opened = Find(descriptor);
  while (opened != nullptr && opened->hangs) std::this_thread::sleep_for(std::chrono::hours(1));
}

/// The function that would be called without this library.
template <class Function>
Function* Next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

template <class Open>
int OpenedBy(Open open, int folder, const char* path) {
  const bool slow = IsSlow(folder, path);
  if (slow) Wait();
  const int descriptor = open();
  Note(descriptor, slow, path);
  return descriptor;
}

// The C library asks the system for as many entries as fit its buffer.
template <class Entry>
Entry* NextEntry(Entry* (*read)(DIR*), DIR* folder) {
  constexpr unsigned kBatch = 1U << 15U;
  const int descriptor = dirfd(folder);
  if (!IsSlow(descriptor)) return read(folder);
  HangIfToldTo(descriptor);
  Opened& opened = *Find(descriptor);
  if (opened.listed == 0) Wait();
  Entry* const entry = read(folder);
  if (entry == nullptr) {
    if (opened.listed != 0) Wait();  // an answer of its own says that there are no more
  } else {
    const unsigned listed = opened.listed + entry->d_reclen;
    opened.listed = listed + sizeof(Entry) > kBatch ? 0 : listed;
  }
  return entry;
}

void WaitFor(int folder, const char* path) {
  if (IsSlow(folder, path)) Wait();
}

void WaitFor(int descriptor) {
  if (IsSlow(descriptor)) Wait();
}

}  // namespace
}  // namespace quillon::benchmarks

using namespace quillon::benchmarks;

// Named apart from the C library's functions, whose declarations take further arguments by ellipsis or are inline.
extern "C" {
int SlowOpen(const char* path, int flags, mode_t mode) __asm__("open");
int SlowOpen64(const char* path, int flags, mode_t mode) __asm__("open64");
int SlowOpenAt(int folder, const char* path, int flags, mode_t mode) __asm__("openat");
int SlowOpenAt64(int folder, const char* path, int flags, mode_t mode) __asm__("openat64");
int SlowStat(const char* path, struct stat* status) __asm__("stat");
int SlowStat64(const char* path, struct stat64* status) __asm__("stat64");
int SlowLstat(const char* path, struct stat* status) __asm__("lstat");
int SlowLstat64(const char* path, struct stat64* status) __asm__("lstat64");
int SlowFstat(int file, struct stat* status) __asm__("fstat");
int SlowFstat64(int file, struct stat64* status) __asm__("fstat64");
int SlowFstatAt(int folder, const char* path, struct stat* status, int flags) __asm__("fstatat");
int SlowFstatAt64(int folder, const char* path, struct stat64* status, int flags) __asm__("fstatat64");
int SlowStatx(int folder, const char* path, int flags, unsigned mask, struct statx* status) __asm__("statx");
ssize_t SlowRead(int file, void* into, std::size_t count) __asm__("read");
ssize_t SlowPread(int file, void* into, std::size_t count, off_t offset) __asm__("pread");
ssize_t SlowPread64(int file, void* into, std::size_t count, off64_t offset) __asm__("pread64");
DIR* SlowOpenFolder(const char* path) __asm__("opendir");
dirent* SlowReadFolder(DIR* folder) __asm__("readdir");
dirent64* SlowReadFolder64(DIR* folder) __asm__("readdir64");
ssize_t SlowGetEntries(int folder, void* into, std::size_t count) __asm__("getdents64");
int SlowClose(int file) __asm__("close");
}

int SlowOpen(const char* path, int flags, mode_t mode) {
  static const auto next = Next<int(const char*, int, mode_t)>("open");
  return OpenedBy([&] { return next(path, flags, mode); }, AT_FDCWD, path);
}

int SlowOpen64(const char* path, int flags, mode_t mode) {
  return SlowOpen(path, flags, mode);
}

int SlowOpenAt(int folder, const char* path, int flags, mode_t mode) {
  static const auto next = Next<int(int, const char*, int, mode_t)>("openat");
  return OpenedBy([&] { return next(folder, path, flags, mode); }, folder, path);
}

int SlowOpenAt64(int folder, const char* path, int flags, mode_t mode) {
  return SlowOpenAt(folder, path, flags, mode);
}

int SlowStat(const char* path, struct stat* status) {
  static const auto next = Next<int(const char*, struct stat*)>("stat");
  WaitFor(AT_FDCWD, path);
  return next(path, status);
}

int SlowStat64(const char* path, struct stat64* status) {
  static const auto next = Next<int(const char*, struct stat64*)>("stat64");
  WaitFor(AT_FDCWD, path);
  return next(path, status);
}

int SlowLstat(const char* path, struct stat* status) {
  static const auto next = Next<int(const char*, struct stat*)>("lstat");
  WaitFor(AT_FDCWD, path);
  return next(path, status);
}

int SlowLstat64(const char* path, struct stat64* status) {
  static const auto next = Next<int(const char*, struct stat64*)>("lstat64");
  WaitFor(AT_FDCWD, path);
  return next(path, status);
}

int SlowFstat(int file, struct stat* status) {
  static const auto next = Next<int(int, struct stat*)>("fstat");
  WaitFor(file);
  return next(file, status);
}

int SlowFstat64(int file, struct stat64* status) {
  static const auto next = Next<int(int, struct stat64*)>("fstat64");
  WaitFor(file);
  return next(file, status);
}

int SlowFstatAt(int folder, const char* path, struct stat* status, int flags) {
  static const auto next = Next<int(int, const char*, struct stat*, int)>("fstatat");
  WaitFor(folder, path);
  return next(folder, path, status, flags);
}

int SlowFstatAt64(int folder, const char* path, struct stat64* status, int flags) {
  static const auto next = Next<int(int, const char*, struct stat64*, int)>("fstatat64");
  WaitFor(folder, path);
  return next(folder, path, status, flags);
}

int SlowStatx(int folder, const char* path, int flags, unsigned mask, struct statx* status) {
  static const auto next = Next<int(int, const char*, int, unsigned, struct statx*)>("statx");
  WaitFor(folder, path);
  return next(folder, path, flags, mask, status);
}

ssize_t SlowRead(int file, void* into, std::size_t count) {
  static const auto next = Next<ssize_t(int, void*, std::size_t)>("read");
  WaitFor(file);
  return next(file, into, count);
}

ssize_t SlowPread(int file, void* into, std::size_t count, off_t offset) {
  static const auto next = Next<ssize_t(int, void*, std::size_t, off_t)>("pread");
  WaitFor(file);
  return next(file, into, count, offset);
}

ssize_t SlowPread64(int file, void* into, std::size_t count, off64_t offset) {
  return SlowPread(file, into, count, offset);
}

DIR* SlowOpenFolder(const char* path) {
  static const auto next = Next<DIR*(const char*)>("opendir");
  const bool slow = IsSlow(AT_FDCWD, path);
  if (slow) Wait();
  DIR* const folder = next(path);
  if (folder != nullptr) Note(dirfd(folder), slow, path);
  return folder;
}

dirent* SlowReadFolder(DIR* folder) {
  static const auto next = Next<dirent*(DIR*)>("readdir");
  return NextEntry(next, folder);
}

dirent64* SlowReadFolder64(DIR* folder) {
  static const auto next = Next<dirent64*(DIR*)>("readdir64");
  return NextEntry(next, folder);
}

ssize_t SlowGetEntries(int folder, void* into, std::size_t count) {
  static const auto next = Next<ssize_t(int, void*, std::size_t)>("getdents64");
  HangIfToldTo(folder);
  WaitFor(folder);
  return next(folder, into, count);
}

int SlowClose(int file) {
  static const auto next = Next<int(int)>("close");
  Note(file, false, "");
  return next(file);
}
