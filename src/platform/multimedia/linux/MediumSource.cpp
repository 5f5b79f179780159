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
#include "platform/multimedia/linux/WaveRest.h"

namespace quillon {
namespace {

constexpr std::uint64_t kMostWaveInMemory = 256U << 20U;  // twenty-five minutes of a CD

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

Result<MediumSource, int> InMemory(std::string_view bytes, std::optional<int> milliseconds) {
  Descriptor memory(::memfd_create("song", MFD_CLOEXEC));
  if (!memory.Open() || !WriteAll(memory.Number(), bytes)) return command_error::kInternal;
  std::string path = "/proc/self/fd/" + std::to_string(memory.Number());
  return MediumSource{std::move(path), std::move(memory), milliseconds};
}

}  // namespace

Result<MediumSource, int> FindMediumSource(const std::string& path, const Deadline& deadline) {
  if (const int problem = FileProblem(path); problem != 0) return problem;
  const std::unique_ptr<ByteSource> file = OpenSystemFile(path);
  if (!file) return command_error::kInvalidFile;
  if (IsMidi(*file)) {
    const std::optional<FlatMidiSong> song = FlattenMidi(*file, deadline);
    if (!song) return command_error::kInvalidFile;
    return InMemory(song->file, song->milliseconds);
  }
  if (const std::optional<std::uint64_t> wave = WaveLengthWithoutRest(*file); wave && *wave <= kMostWaveInMemory) {
    return InMemory(file->Read(0, *wave), std::nullopt);
  }
  std::optional<int> length = MpegProgramLength(*file);
  if (!length) length = CountedMpegAudioLength(*file, deadline);
  return MediumSource{AbsolutePath(path), std::nullopt, length};
}

}  // namespace quillon
