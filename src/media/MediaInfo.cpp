#include "media/MediaInfo.h"

#include <memory>
#include <new>
#include <utility>

#include "base/Text.h"
#include "media/WindowReader.h"
#include "media/basHTMLFile.h"
#include "media/basID3TAGControl.h"
#include "media/basMIDIInfo.h"
#include "media/basRIFFInfo.h"
#include "paths/basFileControl.h"
#include "platform/FileSystem.h"

namespace quillon {
namespace {

constexpr std::size_t kId3v1Length = 128;
constexpr std::string_view kId3v2Mark = "ID3";

MediaInfo ReadUntrimmed(ByteSource& file, const FileType& type, StoredText stored) {
  if (type.Media() == MediaType::kMidi) {
    MidiInfo midi = ReadMidiInfo(file, stored);
    return {std::move(midi.title), std::move(midi.copyright)};
  }
  if (type.Media() == MediaType::kMp3) {
    BlockReader reader(file);
    return ReadMp3Info(reader, DetectTagKind(reader), stored);
  }
  if (type.Media() == MediaType::kPage) {
    auto title = ReadHtmlTitle(file);
    return {title ? std::move(*title) : std::string(), std::string(kNoMediaText)};
  }
  return {std::string(kNoMediaText), std::string(kNoMediaText)};
}

// List cells end at a zero byte, and file names made from these texts cannot contain one.
void CutToCell(std::string& text) {
  text.resize(TrimRight(std::string_view(text.c_str())).size());
}

}  // namespace

std::uint8_t DetectTagKind(BlockReader& file) {
  if (file.View(0, 3) == kId3v2Mark) return tag_kind::kId3v2;
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

MediaInfo ReadMp3Info(BlockReader& file, std::uint8_t tagKind, StoredText stored) {
  if (tagKind <= 1) {
    Id3v1Info tag = ReadId3v1(file, TagFields::kTitleAndArtist, stored);
    return {std::move(tag.title), std::move(tag.artist)};
  }
  if (tagKind <= 3) {
    Id3v2Info tag = ReadId3v2(file, TagFields::kTitleAndArtist);
    return {std::move(tag.title), std::move(tag.artist), tag.majorVersion == kId3VersionWithoutFrames};
  }
  RiffInfo riff = ReadRiffInfo(file, TagFields::kTitleAndArtist);
  return {std::move(riff.name), std::move(riff.artist)};
}

FileNeeds NeedsForInfo(const FileType& type) {
  using What = FileNeeds::What;
  switch (type.Media()) {
    case MediaType::kMidi: return {What::kContents, WindowReader::kLength};
    case MediaType::kMp3: return {What::kContents, BlockReader::kBlockLength, kId3v1Length, kId3v2Mark};
    case MediaType::kPage: return {What::kContents, WindowReader::kLength};
    default: return {What::kStatus};
  }
}

MediaInfo ReadMediaInfo(ByteSource& file, const FileType& type, StoredText stored) try {
  MediaInfo info = ReadUntrimmed(file, type, stored);
  CutToCell(info.title);
  CutToCell(info.copyright);
  return info;
} catch (const std::bad_alloc&) {
  return {};
}

MediaInfo ReadMediaInfo(const std::string& path) {
  const FileType type = GetMediaType(Extension(path));
  if (!HasReader(type)) return {std::string(kNoMediaText), std::string(kNoMediaText)};
  const auto file = OpenSystemFile(path);
  return file ? ReadMediaInfo(*file, type) : MediaInfo{};
}

}  // namespace quillon
