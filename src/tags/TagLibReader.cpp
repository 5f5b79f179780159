#include "tags/TagLibReader.h"

#include <aifffile.h>
#include <apefile.h>
#include <asffile.h>
#include <audioproperties.h>
#include <flacfile.h>
#include <itfile.h>
#include <modfile.h>
#include <mp4file.h>
#include <mpcfile.h>
#include <mpegfile.h>
#include <oggflacfile.h>
#include <opusfile.h>
#include <s3mfile.h>
#include <speexfile.h>
#include <tag.h>
#include <trueaudiofile.h>
#include <vorbisfile.h>
#include <wavfile.h>
#include <wavpackfile.h>
#include <xmfile.h>

#include <algorithm>
#include <array>
#include <exception>
#include <string>

#include "tags/RiffTags.h"
#include "tags/SongText.h"
#include "tags/StoredTagTexts.h"
#include "tags/TagFrames.h"
#include "tags/TagStream.h"

namespace quillon {
namespace {

constexpr auto kStyle = TagLib::AudioProperties::Average;

struct Reading {
  TagStream& stream;
  TagFrames& frames;
  TagFields wanted = TagFields::kAll;

  [[nodiscard]] bool WantsLength() const { return wanted == TagFields::kAll; }
};

/// Takes a file's tags; false when it is no such file.
bool Take(const TagLib::File& file, SongDetails& song) {
  if (!file.isValid()) return false;
  if (const TagLib::Tag* const tag = file.tag()) song = DetailsOf(*tag);
  const TagLib::AudioProperties* const sound = file.audioProperties();
  if (sound != nullptr && sound->lengthInMilliseconds() > 0) song.lengthMs = sound->lengthInMilliseconds();
  return true;
}

template <class File>
bool Read(const Reading& reading, SongDetails& song) {
  return Take(File(&reading.stream, reading.WantsLength(), kStyle), song);
}

/// The files that may begin with an ID3v2 tag.
template <class File>
bool ReadWithFrames(const Reading& reading, SongDetails& song) {
  return Take(File(&reading.stream, &reading.frames, reading.WantsLength(), kStyle), song);
}

bool ReadMp4(const Reading& reading, SongDetails& song) {
  reading.stream.LimitAtoms();
  return Read<TagLib::MP4::File>(reading, song);
}

/// Modules have texts of bytes, which TagLib takes for Latin-1.
template <class File>
bool ReadModule(const Reading& reading, SongDetails& song) {
  const File file(&reading.stream, false, kStyle);
  if (!Take(file, song)) return false;
  song.title = StoredTitle(file.tag()->title());
  song.lengthMs.reset();
  return true;
}

bool ReadWave(const Reading& reading, SongDetails& song) {
  return ReadRiffTags(reading.stream, reading.frames, RiffForm::kWave, song);
}

bool ReadAiff(const Reading& reading, SongDetails& song) {
  return ReadRiffTags(reading.stream, reading.frames, RiffForm::kAiff, song);
}

using Reader = bool (*)(const Reading& reading, SongDetails& song);

/// Files without a reader of the program's own that nearly always have tags.
enum class Usual { kNo, kYes };

struct TypeReader {
  std::string_view type;
  Reader read;
  Usual usual;
};

constexpr std::array<TypeReader, 34> kTypes = {{
    {"MP3", ReadWithFrames<TagLib::MPEG::File>, Usual::kNo},
    {"mp2", ReadWithFrames<TagLib::MPEG::File>, Usual::kNo},
    {"aac", ReadWithFrames<TagLib::MPEG::File>, Usual::kNo},
    {"flac", ReadWithFrames<TagLib::FLAC::File>, Usual::kYes},
    {"ogg", Read<TagLib::Ogg::Vorbis::File>, Usual::kYes},
    {"oga", Read<TagLib::Ogg::FLAC::File>, Usual::kYes},
    {"opus", Read<TagLib::Ogg::Opus::File>, Usual::kYes},
    {"spx", Read<TagLib::Ogg::Speex::File>, Usual::kYes},
    {"m4a", ReadMp4, Usual::kYes},
    {"m4b", ReadMp4, Usual::kYes},
    {"m4p", ReadMp4, Usual::kNo},
    {"m4r", ReadMp4, Usual::kNo},
    {"m4v", ReadMp4, Usual::kNo},
    {"mp4", ReadMp4, Usual::kNo},
    {"3g2", ReadMp4, Usual::kNo},
    {"wma", Read<TagLib::ASF::File>, Usual::kYes},
    {"asf", Read<TagLib::ASF::File>, Usual::kNo},
    {"wmv", Read<TagLib::ASF::File>, Usual::kNo},
    {"aif", ReadAiff, Usual::kYes},
    {"aiff", ReadAiff, Usual::kYes},
    {"aifc", ReadAiff, Usual::kYes},
    {"afc", ReadAiff, Usual::kNo},
    {"WAVE", ReadWave, Usual::kNo},
    {"ape", Read<TagLib::APE::File>, Usual::kYes},
    {"wv", Read<TagLib::WavPack::File>, Usual::kYes},
    {"mpc", Read<TagLib::MPC::File>, Usual::kYes},
    {"tta", ReadWithFrames<TagLib::TrueAudio::File>, Usual::kYes},
    {"mod", ReadModule<TagLib::Mod::File>, Usual::kNo},
    {"module", ReadModule<TagLib::Mod::File>, Usual::kNo},
    {"nst", ReadModule<TagLib::Mod::File>, Usual::kNo},
    {"wow", ReadModule<TagLib::Mod::File>, Usual::kNo},
    {"s3m", ReadModule<TagLib::S3M::File>, Usual::kNo},
    {"it", ReadModule<TagLib::IT::File>, Usual::kNo},
    {"xm", ReadModule<TagLib::XM::File>, Usual::kNo},
}};

struct ContentReader {
  bool (*supports)(TagLib::IOStream* stream);
  Reader read;
};

/// In TagLib's order.
constexpr std::array<ContentReader, 14> kContents = {{
    {TagLib::MPEG::File::isSupported, ReadWithFrames<TagLib::MPEG::File>},
    {TagLib::Ogg::Vorbis::File::isSupported, Read<TagLib::Ogg::Vorbis::File>},
    {TagLib::Ogg::FLAC::File::isSupported, Read<TagLib::Ogg::FLAC::File>},
    {TagLib::FLAC::File::isSupported, ReadWithFrames<TagLib::FLAC::File>},
    {TagLib::MPC::File::isSupported, Read<TagLib::MPC::File>},
    {TagLib::WavPack::File::isSupported, Read<TagLib::WavPack::File>},
    {TagLib::Ogg::Speex::File::isSupported, Read<TagLib::Ogg::Speex::File>},
    {TagLib::Ogg::Opus::File::isSupported, Read<TagLib::Ogg::Opus::File>},
    {TagLib::TrueAudio::File::isSupported, ReadWithFrames<TagLib::TrueAudio::File>},
    {TagLib::MP4::File::isSupported, ReadMp4},
    {TagLib::ASF::File::isSupported, Read<TagLib::ASF::File>},
    {TagLib::RIFF::AIFF::File::isSupported, ReadAiff},
    {TagLib::RIFF::WAV::File::isSupported, ReadWave},
    {TagLib::APE::File::isSupported, Read<TagLib::APE::File>},
}};

const TypeReader* ReaderOf(const FileType& type) {
  const auto* const found =
      std::find_if(kTypes.begin(), kTypes.end(), [&](const TypeReader& known) { return known.type == type.Text(); });
  return found == kTypes.end() ? nullptr : found;
}

void ReadByContent(const Reading& reading, SongDetails& song) {
  const auto* const found = std::find_if(kContents.begin(), kContents.end(),
                                         [&](const ContentReader& known) { return known.supports(&reading.stream); });
  if (found != kContents.end()) static_cast<void>(found->read(reading, song));
}

}  // namespace

bool HasMoreTags(const FileType& type) {
  return ReaderOf(type) != nullptr;
}

bool UsuallyHasMoreTags(const FileType& type) {
  const TypeReader* const reader = ReaderOf(type);
  return reader != nullptr && reader->usual == Usual::kYes;
}

std::vector<std::string_view> UsualMusicExtensions() {
  std::vector<std::string_view> extensions;
  for (const TypeReader& reader : kTypes) {
    if (reader.usual == Usual::kYes) extensions.push_back(reader.type);
  }
  return extensions;
}

SongDetails ReadTagLibDetails(ByteSource& file, const FileType& type, TagFields wanted) {
  SongDetails song;
  const TypeReader* const reader = ReaderOf(type);
  if (reader == nullptr) return song;
  UseStoredTagTexts();
  try {
    TagStream stream(file);
    TagFrames frames;
    const Reading reading{stream, frames, wanted};
    if (!reader->read(reading, song)) ReadByContent(reading, song);
  } catch (const std::exception&) {
    // Whatever a damaged file makes TagLib throw: what was read before stays.
  }
  if (wanted != TagFields::kAll) song.lengthMs.reset();
  return song;
}

}  // namespace quillon
