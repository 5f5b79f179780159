#include "platform/multimedia/linux/MediumSource.h"

#include <glib.h>
#include <sys/mman.h>
#include <sys/stat.h>

#include <algorithm>
#include <utility>

#include "platform/FileSystem.h"
#include "platform/linux/WriteAll.h"
#include "platform/multimedia/linux/FlatMidi.h"
#include "platform/multimedia/linux/MpegAudioLength.h"
#include "platform/multimedia/linux/MpegProgramLength.h"
#include "platform/multimedia/linux/WaveRest.h"

namespace quillon {
namespace {

constexpr std::uint64_t kMostWaveInMemory = 256U << 20U;  // twenty-five minutes of a CD

MediaStatus CheckFile(const std::string& path) {
  struct stat status = {};
  if (path.empty() || ::stat(path.c_str(), &status) != 0) return MediaError::kFileNotFound;
  return S_ISREG(status.st_mode) && status.st_size > 0 ? MediaStatus() : MediaError::kInvalidFile;
}

std::string AbsolutePath(const std::string& path) {
  char* const absolute = g_canonicalize_filename(path.c_str(), nullptr);
  std::string copy(absolute);
  g_free(absolute);
  return copy;
}

Result<MediumSource, MediaError> InMemory(Descriptor memory, std::optional<int> milliseconds) {
  std::string path = "/proc/self/fd/" + std::to_string(memory.Number());
  return MediumSource{std::move(path), std::move(memory), milliseconds};
}

Result<MediumSource, MediaError> SongInMemory(const FlatMidiSong& song) {
  Descriptor memory(::memfd_create("song", MFD_CLOEXEC));
  if (!memory.Open() || !WriteAll(memory.Number(), song.file)) return MediaError::kInternal;
  return InMemory(std::move(memory), song.milliseconds);
}

/// Copies the first `length` bytes of a file to memory.
Result<MediumSource, MediaError> CopyInMemory(ByteSource& file, std::uint64_t length) {
  constexpr std::uint64_t kPiece = 1U << 20U;
  Descriptor memory(::memfd_create("sound", MFD_CLOEXEC));
  if (!memory.Open()) return MediaError::kInternal;
  for (std::uint64_t offset = 0; offset < length; offset += kPiece) {
    const std::string piece = file.Read(offset, std::min(kPiece, length - offset));
    if (!WriteAll(memory.Number(), piece)) return MediaError::kInternal;
  }
  return InMemory(std::move(memory), std::nullopt);
}

}  // namespace

Result<MediumSource, MediaError> FindMediumSource(const std::string& path, const Deadline& deadline) {
  if (const MediaStatus checked = CheckFile(path); !checked.Ok()) return checked.Failure();
  const std::unique_ptr<ByteSource> file = OpenSystemFile(path);
  if (!file) return MediaError::kInvalidFile;
  if (IsMidi(*file)) {
    const std::optional<FlatMidiSong> song = FlattenMidi(*file, deadline);
    if (!song) return MediaError::kInvalidFile;
    return SongInMemory(*song);
  }
  if (const std::optional<std::uint64_t> wave = WaveLengthWithoutRest(*file); wave && *wave <= kMostWaveInMemory) {
    return CopyInMemory(*file, *wave);
  }
  std::optional<int> length = MpegProgramLength(*file);
  if (!length) length = CountedMpegAudioLength(*file, deadline);
  return MediumSource{AbsolutePath(path), std::nullopt, length};
}

}  // namespace quillon
