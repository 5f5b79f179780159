#include "tags/RiffTags.h"

#include <id3v2tag.h>
#include <infotag.h>
#include <rifffile.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

#include "tags/SongText.h"

namespace quillon {
namespace {

using TagLib::ByteVector;

std::optional<std::int32_t> Milliseconds(double count, double perSecond) {
  const double length = perSecond > 0 ? std::round(1000 * count / perSecond) : 0;
  if (!(length >= 1 && length <= std::numeric_limits<std::int32_t>::max())) return std::nullopt;
  return static_cast<std::int32_t>(length);
}

/// What `song` lacks is taken from `other`.
void Complete(SongDetails& song, const SongDetails& other) {
  const auto complete = [](auto& own, const auto& further) {
    if (own == std::remove_cvref_t<decltype(own)>()) own = further;
  };
  complete(song.title, other.title);
  complete(song.artist, other.artist);
  complete(song.album, other.album);
  complete(song.genre, other.genre);
  complete(song.track, other.track);
  complete(song.year, other.year);
}

class Chunks final : public TagLib::RIFF::File {
 public:
  Chunks(TagLib::IOStream* stream, RiffForm form) : File(stream, form == RiffForm::kWave ? LittleEndian : BigEndian) {}

  [[nodiscard]] TagLib::Tag* tag() const override { return nullptr; }
  [[nodiscard]] TagLib::AudioProperties* audioProperties() const override { return nullptr; }
  bool save() override { return false; }

  SongDetails Read(const TagFrames& frames, RiffForm form) {
    SongDetails song;
    SongDetails list;
    for (unsigned i = 0; i < chunkCount(); ++i) {
      const ByteVector name = chunkName(i);
      if (name == "ID3 " || name == "id3 ") {
        Complete(song, DetailsOf(TagLib::ID3v2::Tag(this, static_cast<long>(chunkOffset(i)), &frames)));
      } else if (form == RiffForm::kWave && name == "LIST") {
        const ByteVector data = chunkData(i);
        if (data.startsWith("INFO")) Complete(list, DetailsOf(TagLib::RIFF::Info::Tag(data)));
      } else if (form == RiffForm::kWave && name == "fmt ") {
        bytesPerSecond_ = FirstBytes(i, 12).toUInt(8U, false);
      } else if (form == RiffForm::kWave && name == "data") {
        song.lengthMs = Milliseconds(chunkDataSize(i), bytesPerSecond_);
      } else if (form == RiffForm::kAiff && name == "COMM") {
        const ByteVector data = FirstBytes(i, 18);
        if (data.size() == 18) {
          song.lengthMs = Milliseconds(data.toUInt(2U, true), static_cast<double>(data.toFloat80BE(8)));
        }
      }
    }
    Complete(song, list);
    return song;
  }

 private:
  ByteVector FirstBytes(unsigned i, unsigned count) {
    seek(static_cast<long>(chunkOffset(i)));
    return readBlock(count);
  }

  double bytesPerSecond_ = 0;
};

bool IsOfForm(TagStream& stream, RiffForm form) {
  stream.seek(0, TagStream::Beginning);
  const ByteVector start = stream.readBlock(12);
  stream.seek(0, TagStream::Beginning);
  if (form == RiffForm::kWave) return start.startsWith("RIFF") && start.containsAt("WAVE", 8);
  return start.startsWith("FORM") && (start.containsAt("AIFF", 8) || start.containsAt("AIFC", 8));
}

}  // namespace

bool ReadRiffTags(TagStream& stream, const TagFrames& frames, RiffForm form, SongDetails& song) {
  if (!IsOfForm(stream, form)) return false;
  Chunks chunks(&stream, form);
  song = chunks.Read(frames, form);
  return true;
}

}  // namespace quillon
