#include "media/FileInformation.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <new>

#include "base/Text.h"
#include "media/BlockReader.h"
#include "media/MediaInfo.h"
#include "paths/basFileControl.h"
#include "platform/FileSystem.h"
#include "platform/Shell.h"

namespace quillon {
namespace {

constexpr std::string_view kNothing = "---";

std::string_view OrNothing(std::string_view text) {
  return text.empty() ? kNothing : text;
}
std::string OrNothing(std::int16_t number) {
  return number == 0 ? std::string(kNothing) : std::to_string(number);
}

/// Reserves the whole length first, because the texts may be long.
std::string Mp3Detail(std::string_view artist, std::string_view album, std::string_view comment,
                      std::string_view year) {
  const std::array<std::string_view, 8> pieces = {
      "アーティスト： ", OrNothing(artist),  " / アルバム： ", OrNothing(album),
      " / コメント： ",  OrNothing(comment), " / 年： ",       OrNothing(year),
  };
  std::size_t length = 0;
  for (const std::string_view piece : pieces) length += piece.size();
  std::string line;
  line.reserve(length);
  for (const std::string_view piece : pieces) line += piece;
  return line;
}

/// The text behind "種類： ".
struct TypeText {
  std::string_view type;
  std::string_view furtherText;

  std::string operator()(std::monostate) const {
    return std::string(type) + (furtherText.empty() ? "" : " ") + std::string(furtherText);
  }
  std::string operator()(const MidiInfo& midi) const { return "MIDI (SMF Format " + std::to_string(midi.format) + ")"; }
  std::string operator()(const Id3v1Info&) const { return "MP3 (ID3v1)"; }
  std::string operator()(const Id3v2Info&) const { return "MP3 (ID3v2)"; }
  std::string operator()(const RiffInfo& riff) const {
    // The name (INAM) is not shown in the panel, so it does not count.
    const bool empty = riff.artist.empty() && riff.product.empty() && riff.comment.empty() && riff.creationDate.empty();
    return empty ? "MP3" : "MP3 (RMP)";
  }
};

struct DetailText {
  std::string operator()(std::monostate) const { return std::string(kNothing); }
  std::string operator()(const MidiInfo& midi) const {
    return "著作権： " + midi.copyright + " / 分解能： " + std::to_string(midi.division) + " / トラック数： " +
           std::to_string(midi.trackCount);
  }
  std::string operator()(const Id3v1Info& tag) const {
    return Mp3Detail(tag.artist, tag.album, tag.comment, OrNothing(tag.year));
  }
  std::string operator()(const Id3v2Info& tag) const {
    return Mp3Detail(tag.artist, tag.album, tag.comment, OrNothing(tag.year));
  }
  std::string operator()(const RiffInfo& riff) const {
    return Mp3Detail(riff.artist, riff.product, riff.comment, riff.creationDate);
  }
};

std::string FurtherText(const std::string& path) {
  std::string description = FileTypeDescription(std::string(Extension(path)));
  if (!description.empty()) return description;
  std::string_view folder = FolderPart(path);
  if (!folder.empty()) folder.remove_suffix(1);
  return std::string(FileName(folder));
}

MediaRecord EmptyRecord(const FileType& type) {
  if (type.Media() == MediaType::kMidi) return MidiInfo();
  if (type.Media() == MediaType::kMp3) return RiffInfo();
  return std::monostate();
}

MediaRecord ReadRecord(ByteSource& file, const FileType& type, StoredText stored) {
  if (type.Media() == MediaType::kMidi) return ReadMidiInfo(file, stored);
  if (type.Media() != MediaType::kMp3) return std::monostate();
  BlockReader reader(file);
  switch (DetectTagKind(reader)) {
    case tag_kind::kId3v1: return ReadId3v1(reader, TagFields::kAll, stored);
    case tag_kind::kId3v2: return ReadId3v2(reader);
    default: return ReadRiffInfo(reader);
  }
}

}  // namespace

std::string SummaryLine(std::uint64_t length, const FileType& type, const MediaRecord& record,
                        std::optional<std::int32_t> playTimeMs, std::string_view furtherText) {
  std::string line = "サイズ： " + FormatThousands(length) + " バイト / 種類： " +
                     std::visit(TypeText{type.Text(), furtherText}, record);
  if (playTimeMs && IsPlayableType(type)) line += " / 演奏時間： " + MinutesAndSeconds(std::max(*playTimeMs, 0), 1);
  return line;
}

std::string DetailLine(const MediaRecord& record) {
  return std::visit(DetailText(), record);
}

FileInformation ReadFileInformation(ByteSource& file, const FileType& rowType, std::optional<std::int32_t> playTimeMs,
                                    std::string_view furtherText, StoredText stored) {
  const auto lines = [&](const MediaRecord& record) {
    return FileInformation{SummaryLine(file.Size(), rowType, record, playTimeMs, furtherText), DetailLine(record)};
  };
  try {
    return lines(ReadRecord(file, rowType, stored));
  } catch (const std::bad_alloc&) {
    return lines(EmptyRecord(rowType));
  }
}

FileInformation ReadFileInformation(const std::string& path, const FileType& rowType, std::uint64_t knownLength,
                                    std::optional<std::int32_t> playTimeMs, StoredText stored) {
  const std::string furtherText = rowType == "MIDI" || rowType == "MP3" ? std::string() : FurtherText(path);
  if (const auto file = OpenSystemFile(path)) {
    return ReadFileInformation(*file, rowType, playTimeMs, furtherText, stored);
  }
  return {SummaryLine(knownLength, rowType, std::monostate(), playTimeMs, furtherText), std::string(kNothing)};
}

}  // namespace quillon
