#include "tags/SongReader.h"

#include <new>
#include <utility>

#include "base/Text.h"
#include "media/BlockReader.h"
#include "media/basID3TAGControl.h"
#include "media/basMIDIInfo.h"
#include "media/basRIFFInfo.h"
#include "paths/basFileControl.h"
#include "platform/FileSystem.h"
#include "tags/SongText.h"
#include "tags/TagLibReader.h"

namespace quillon {
namespace {

StoredText StoredTextOf(TagSources sources) {
  return sources == TagSources::kAll ? StoredText::kUtf8OrAnsi : StoredText::kAnsi;
}

SongDetails DetailsOf(const Id3v1Info& tag) {
  return {.title = SongText(tag.title),
          .artist = SongText(tag.artist),
          .album = SongText(tag.album),
          .genre = GenreName(tag.genre),
          .track = tag.track,
          .year = SongNumber(std::int64_t{tag.year})};
}

SongDetails DetailsOf(const Id3v2Info& tag) {
  return {.title = SongText(tag.title),
          .artist = SongText(tag.artist),
          .album = SongText(tag.album),
          .genre = GenreName(tag.genre),
          .track = SongNumber(tag.track),
          .year = SongNumber(std::int64_t{tag.year})};
}

SongDetails DetailsOf(const RiffInfo& riff) {
  return {.title = SongText(riff.name),
          .artist = SongText(riff.artist),
          .album = SongText(riff.product),
          .year = SongNumber(riff.creationDate)};
}

SongDetails ReadOwnDetails(ByteSource& file, const FileType& type, StoredText stored) {
  if (type.Media() == MediaType::kMidi) {
    const MidiInfo midi = ReadMidiInfo(file, stored);
    return {.title = SongText(midi.title), .artist = SongText(midi.copyright)};
  }
  if (type.Media() != MediaType::kMp3) return {};
  BlockReader reader(file);
  switch (DetectTagKind(reader)) {
    case tag_kind::kId3v1: return DetailsOf(ReadId3v1(reader, TagFields::kAll, stored));
    case tag_kind::kId3v2: return DetailsOf(ReadId3v2(reader));
    default: return DetailsOf(ReadRiffInfo(reader));
  }
}

bool IsUnknown(std::string_view text) {
  text = Trim(text);
  return text.empty() || text == kNoMediaText;
}

bool IsEmpty(SongDetails song) {
  song.lengthMs.reset();  // every song has one
  return song == SongDetails();
}

struct Found {
  SongDetails song;
  bool byTagLib = false;
};

Found ReadFrom(ByteSource& file, const FileType& type, TagSources sources) {
  SongDetails own = ReadOwnDetails(file, type, StoredTextOf(sources));
  if (sources == TagSources::kStandard || !own.title.empty() || !HasMoreTags(type)) return {std::move(own)};
  SongDetails song = ReadTagLibDetails(file, type);
  if (IsEmpty(song)) {
    own.lengthMs = song.lengthMs;
    return {std::move(own)};
  }
  if (song.artist.empty()) song.artist = std::move(own.artist);
  return {std::move(song), true};
}

std::string OrNothing(std::string text) {
  return text.empty() ? std::string(kNoMediaText) : std::move(text);
}

std::string OrNothing(int number) {
  return number == 0 ? std::string(kNoMediaText) : std::to_string(number);
}

}  // namespace

SongDetails ReadSongDetails(ByteSource& file, const FileType& type, TagSources sources) try {
  return ReadFrom(file, type, sources).song;
} catch (const std::bad_alloc&) {
  return {};
}

SongDetails ReadSongDetails(const std::string& path, TagSources sources) {
  const FileType type = GetMediaType(Extension(path));
  if (!IsReadForRow(type, sources)) return {};
  const auto file = OpenSystemFile(path);
  return file ? ReadSongDetails(*file, type, sources) : SongDetails();
}

MediaInfo ReadRowTexts(ByteSource& file, const FileType& type, TagSources sources) {
  MediaInfo info = ReadMediaInfo(file, type, StoredTextOf(sources));
  if (sources == TagSources::kStandard || !IsUnknown(info.title) || !HasMoreTags(type)) return info;
  SongDetails song = ReadTagLibDetails(file, type, TagFields::kTitleAndArtist);
  if (!song.title.empty()) info.title = std::move(song.title);
  if (!song.artist.empty()) info.copyright = std::move(song.artist);
  return info;
}

MediaInfo ReadRowTexts(const std::string& path, TagSources sources) {
  const FileType type = GetMediaType(Extension(path));
  const auto file = IsReadForRow(type, sources) ? OpenSystemFile(path) : nullptr;
  if (file) return ReadRowTexts(*file, type, sources);
  return HasReader(type) ? MediaInfo() : MediaInfo{std::string(kNoMediaText), std::string(kNoMediaText)};
}

FileNeeds NeedsForRow(const FileType& type, TagSources sources) {
  if (HasReader(type) || !IsReadForRow(type, sources)) return NeedsForInfo(type);
  return {.what = FileNeeds::What::kContents, .head = BlockReader::kBlockLength};
}

bool IsReadForRow(const FileType& type, TagSources sources) {
  return HasReader(type) || (sources == TagSources::kAll && HasMoreTags(type));
}

FileInformation ReadInformation(const std::string& path, const FileType& rowType, std::uint64_t knownLength,
                                std::optional<std::int32_t> playTimeMs, TagSources sources) {
  // The lines are short enough for memory to have run out over the tags alone.
  FileInformation lines = ReadFileInformation(path, rowType, knownLength, playTimeMs, StoredTextOf(sources));
  if (sources == TagSources::kStandard || !HasMoreTags(rowType)) return lines;
  const auto file = OpenSystemFile(path);
  if (!file) return lines;
  const Found found = ReadFrom(*file, rowType, sources);
  if (found.byTagLib) lines.detail = SongDetailLine(found.song);
  return lines;
}

std::string SongDetailLine(const SongDetails& song) {
  return "アーティスト： " + OrNothing(song.artist) + " / アルバム： " + OrNothing(song.album) + " / トラック： " +
         OrNothing(song.track) + " / 年： " + OrNothing(song.year) + " / ジャンル： " + OrNothing(song.genre) +
         " / 演奏時間： " + (song.lengthMs ? MinutesAndSeconds(*song.lengthMs, 1) : std::string(kNoMediaText));
}

}  // namespace quillon
