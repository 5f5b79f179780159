#include "media/MediaInfo.h"

#include <algorithm>
#include <array>
#include <memory>
#include <new>
#include <utility>

#include "base/Text.h"
#include "media/basHTMLFile.h"
#include "media/basID3TAGControl.h"
#include "media/basMIDIInfo.h"
#include "media/basRIFFInfo.h"
#include "paths/basFileControl.h"
#include "platform/FileSystem.h"

namespace quillon {
namespace {

constexpr std::uint64_t kId3v1Length = 128;

MediaInfo ReadUntrimmed(ByteSource& file, std::string_view mediaType) {
  if (mediaType == "MIDI") {
    MidiInfo midi = ReadMidiInfo(file);
    return {std::move(midi.title), std::move(midi.copyright)};
  }
  if (mediaType == "MP3") {
    BlockReader reader(file);
    return ReadMp3Info(reader, DetectTagKind(reader));
  }
  if (mediaType == "htm" || mediaType == "html") {
    auto title = ReadHtmlTitle(file);
    return {title ? std::move(*title) : std::string(), std::string(kNoMediaText)};
  }
  return {std::string(kNoMediaText), std::string(kNoMediaText)};
}

// A list's cell ends at a zero byte, and no file name can hold one.
void CutToCell(std::string& text) {
  text.resize(TrimRight(std::string_view(text.c_str())).size());
}

}  // namespace

std::string GetMediaType(std::string_view extension) {
  static constexpr std::array<std::pair<std::string_view, std::string_view>, 9> kTypes = {{
      {"MID", "MIDI"},
      {"MP3", "MP3"},
      {"AVI", "AVI"},
      {"MPEG", "MPEG"},
      {"MPG", "MPEG"},
      {"MPE", "MPEG"},
      {"WAV", "WAVE"},
      {"HTM", "HTML"},
      {"HTML", "HTML"},
  }};
  const auto known =
      std::find_if(kTypes.begin(), kTypes.end(), [&](const auto& row) { return row.first == extension; });
  return known != kTypes.end() ? std::string(known->second) : ToLower(extension);
}

bool IsPlayableType(std::string_view mediaType) {
  static constexpr std::array<std::string_view, 5> kPlayable = {"MP3", "MIDI", "AVI", "MPEG", "WAVE"};
  return std::find(kPlayable.begin(), kPlayable.end(), mediaType) != kPlayable.end();
}

bool HasReader(std::string_view mediaType) {
  return mediaType == "MIDI" || mediaType == "MP3" || mediaType == "htm" || mediaType == "html";
}

std::uint8_t DetectTagKind(BlockReader& file) {
  if (file.View(0, 3) == "ID3") return tag_kind::kId3v2;
  if (file.Size() < kId3v1Length) return tag_kind::kNone;
  return file.View(file.Size() - kId3v1Length, 3) == "TAG" ? tag_kind::kId3v1 : tag_kind::kNone;
}

std::uint8_t DetectTagKind(ByteSource& file) {
  BlockReader reader(file);
  return DetectTagKind(reader);
}

std::uint8_t DetectTagKind(const std::string& path) {
  const auto file = OpenSystemFile(path);
  return file ? DetectTagKind(*file) : tag_kind::kNone;
}

MediaInfo ReadMp3Info(BlockReader& file, std::uint8_t tagKind) {
  if (tagKind <= 1) {
    Id3v1Info tag = ReadId3v1(file, TagFields::kTitleAndArtist);
    return {std::move(tag.title), std::move(tag.artist)};
  }
  if (tagKind <= 3) {
    Id3v2Info tag = ReadId3v2(file, TagFields::kTitleAndArtist);
    return {std::move(tag.title), std::move(tag.artist)};
  }
  RiffInfo riff = ReadRiffInfo(file, TagFields::kTitleAndArtist);
  return {std::move(riff.name), std::move(riff.artist)};
}

MediaInfo ReadMediaInfo(ByteSource& file, std::string_view mediaType) try {
  MediaInfo info = ReadUntrimmed(file, mediaType);
  CutToCell(info.title);
  CutToCell(info.copyright);
  return info;
} catch (const std::bad_alloc&) {
  return {};
}

MediaInfo ReadMediaInfo(const std::string& path) {
  const std::string mediaType = GetMediaType(Extension(path));
  if (!HasReader(mediaType)) return {std::string(kNoMediaText), std::string(kNoMediaText)};
  const auto file = OpenSystemFile(path);
  return file ? ReadMediaInfo(*file, mediaType) : MediaInfo{};
}

}  // namespace quillon
