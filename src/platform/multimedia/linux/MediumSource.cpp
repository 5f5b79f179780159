#include "platform/multimedia/linux/MediumSource.h"

#include <glib.h>
#include <sys/mman.h>
#include <sys/stat.h>

#include <utility>

#include "platform/FileSystem.h"
#include "platform/multimedia/CommandDevice.h"
#include "platform/multimedia/linux/FlatMidi.h"
#include "platform/multimedia/linux/MpegAudioLength.h"
#include "platform/multimedia/linux/MpegProgramLength.h"

namespace quillon {
namespace {

int FileProblem(const std::string& path) {
  struct stat status = {};
  if (path.empty() || ::stat(path.c_str(), &status) != 0) return command_error::kFileNotFound;
  return S_ISREG(status.st_mode) && status.st_size > 0 ? 0 : command_error::kInvalidFile;
}

std::string AbsolutePath(const std::string& path) {
  char* const absolute = g_canonicalize_filename(path.c_str(), nullptr);
  std::string copy(absolute);
  g_free(absolute);
  return copy;
}

bool WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file, bytes.data(), bytes.size());
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

Result<MediumSource, int> InMemory(const FlatMidiSong& song) {
  Descriptor memory(::memfd_create("song", MFD_CLOEXEC));
  if (!memory.Open() || !WriteAll(memory.Number(), song.file)) return command_error::kInternal;
  std::string path = "/proc/self/fd/" + std::to_string(memory.Number());
  return MediumSource{std::move(path), std::move(memory), song.milliseconds};
}

}  // namespace

Result<MediumSource, int> FindMediumSource(const std::string& path) {
  if (const int problem = FileProblem(path); problem != 0) return problem;
  const std::unique_ptr<ByteSource> file = OpenSystemFile(path);
  if (!file) return command_error::kInvalidFile;
  if (IsMidi(*file)) {
    const std::optional<FlatMidiSong> song = FlattenMidi(*file);
    if (!song) return command_error::kInvalidFile;
    return InMemory(*song);
  }
  std::optional<int> length = MpegProgramLength(*file);
  if (!length) length = CountedMpegAudioLength(*file);
  return MediumSource{AbsolutePath(path), std::nullopt, length};
}

}  // namespace quillon
