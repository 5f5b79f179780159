#include <utility>

#include "cli/Commands.h"
#include "cli/Messages.h"
#include "cli/Output.h"
#include "cli/Table.h"
#include "media/MediaInfo.h"
#include "media/basHTMLFile.h"
#include "paths/basFileControl.h"
#include "plan/Json.h"
#include "platform/FileSystem.h"
#include "tags/SongReader.h"
#include "tags/TagLibReader.h"

namespace quillon::cli {
namespace {

void AddRecord(Json& object, const MidiInfo& info) {
  object["format"] = info.format;
  object["track_count"] = info.trackCount;
  object["division"] = info.division;
  object["title"] = info.title;
  object["copyright"] = info.copyright;
}

void AddRecord(Json& object, const Id3v1Info& info) {
  object["version_1_1"] = info.version11;
  object["title"] = info.title;
  object["artist"] = info.artist;
  object["album"] = info.album;
  object["year"] = info.year;
  object["comment"] = info.comment;
  object["track"] = info.track;
  object["genre"] = info.genre;
}

void AddRecord(Json& object, const Id3v2Info& info) {
  object["major_version"] = info.majorVersion;
  object["revision"] = info.revision;
  object["unsynchronisation"] = info.unsynchronisation;
  object["extended_header"] = info.extendedHeader;
  object["experimental"] = info.experimental;
  object["crc_present"] = info.crcPresent;
  object["tag_size"] = info.tagSize;
  object["crc"] = info.crc;
  object["content_group"] = info.contentGroup;
  object["title"] = info.title;
  object["subtitle"] = info.subtitle;
  object["artist"] = info.artist;
  object["band"] = info.band;
  object["conductor"] = info.conductor;
  object["remixer"] = info.remixer;
  object["album"] = info.album;
  object["year"] = info.year;
  object["comment_description"] = info.commentDescription;
  object["comment"] = info.comment;
  object["track"] = info.track;
  object["genre"] = info.genre;
}

void AddRecord(Json& object, const RiffInfo& info) {
  object["name"] = info.name;
  object["artist"] = info.artist;
  object["product"] = info.product;
  object["creation_date"] = info.creationDate;
  object["comment"] = info.comment;
}

void AddRecord(Json& object, const Result<std::string, HtmlTitleError>& title) {
  if (title) {
    object["title"] = *title;
  } else {
    object["error"] =
        title.Failure() == HtmlTitleError::kUnreadable ? "the file cannot be read" : "the page has an end tag only";
  }
}

void AddReader(Json& object, const std::string& path, Reader reader) {
  switch (reader) {
    case Reader::kMidi: object["reader"] = "midi"; return AddRecord(object, ReadMidiInfo(path));
    case Reader::kId3v1: object["reader"] = "id3v1"; return AddRecord(object, ReadId3v1(path));
    case Reader::kId3v2: object["reader"] = "id3v2"; return AddRecord(object, ReadId3v2(path));
    case Reader::kRiff: object["reader"] = "riff"; return AddRecord(object, ReadRiffInfo(path));
    case Reader::kHtml: object["reader"] = "html"; return AddRecord(object, ReadHtmlTitle(path));
    case Reader::kByType: break;
  }
}

// Also of a song whose title the program's own reader has found, which tells no length.
std::optional<std::int32_t> LengthOf(const SongDetails& song, const std::string& path, const FileType& type,
                                     TagSources tags) {
  if (song.lengthMs || tags == TagSources::kStandard || !HasMoreTags(type)) return song.lengthMs;
  const auto file = OpenSystemFile(path);
  return file ? ReadTagLibDetails(*file, type).lengthMs : std::nullopt;
}

void AddRow(Json& object, const std::string& path, TagSources tags) {
  const FileType type = GetMediaType(Extension(path));
  object["type"] = type.Text();
  if (type.Media() == MediaType::kMp3) object["tag_kind"] = DetectTagKind(path);
  const MediaInfo texts = ReadRowTexts(path, tags);
  object["title"] = texts.title;
  object["artist"] = texts.copyright;
  const SongDetails song = ReadSongDetails(path, tags);
  object["album"] = song.album;
  object["track"] = song.track;
  object["year"] = song.year;
  object["genre"] = song.genre;
  const std::optional<std::int32_t> length = LengthOf(song, path, type, tags);
  object["length"] = length ? Json(*length) : Json();
  const FileInformation lines = ReadInformation(path, type, 0, std::nullopt, tags);
  object["summary"] = lines.summary;
  object["detail"] = lines.detail;
}

void WriteFields(const Json& object, Output& output) {
  for (const auto& [name, value] : object.items()) {
    const bool text = value.is_string();
    output.Line(name + ": " + (text ? OnOneLine(value.get_ref<const std::string&>()) : value.dump()));
  }
  output.Line("");
}

}  // namespace

int RunInfo(const InfoArguments& arguments) {
  Output output;
  std::size_t unread = 0;
  for (const std::string& argument : arguments.paths) {
    const std::string path = FullPath(argument);
    const bool readable = OpenSystemFile(path) != nullptr;
    if (!readable) {
      ++unread;
      Complain(Localized(messages::kFileUnread) + path);
    }
    // A single reader is run for any path; its record is empty for a file that cannot be read.
    if (!readable && arguments.reader == Reader::kByType) continue;
    Json object;
    AddPath(object, "location", path);
    if (arguments.reader == Reader::kByType) {
      AddRow(object, path, arguments.tags);
    } else {
      AddReader(object, path, arguments.reader);
    }
    if (arguments.json) {
      output.Line(OneLine(object));
    } else {
      WriteFields(object, output);
    }
    if (output.Closed()) break;
  }
  if (unread == arguments.paths.size()) return kNothingLoaded;
  return output.Flush() && unread == 0 ? kDone : kSomeFailed;
}

}  // namespace quillon::cli
