#include "media/MediaType.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/Text.h"

namespace quillon {
namespace {

MediaType MediaTypeOf(std::string_view text) {
  static constexpr std::array<std::pair<std::string_view, MediaType>, 8> kTypes = {{
      {"MIDI", MediaType::kMidi},
      {"MP3", MediaType::kMp3},
      {"AVI", MediaType::kAvi},
      {"MPEG", MediaType::kMpeg},
      {"WAVE", MediaType::kWave},
      {"HTML", MediaType::kHtml},
      {"htm", MediaType::kPage},
      {"html", MediaType::kPage},
  }};
  const auto known = std::find_if(kTypes.begin(), kTypes.end(), [text](const auto& row) { return row.first == text; });
  return known != kTypes.end() ? known->second : MediaType::kOther;
}

}  // namespace

FileType::FileType(std::string_view text) : text_(text), media_(MediaTypeOf(text)) {}
FileType::FileType(const std::string& text) : FileType(std::string_view(text)) {}
FileType::FileType(const char* text) : FileType(std::string_view(text)) {}

FileType GetMediaType(std::string_view extension) {
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
  return known != kTypes.end() ? FileType(known->second) : FileType(ToLower(extension));
}

bool IsPlayableType(const FileType& type) {
  switch (type.Media()) {
    case MediaType::kMidi:
    case MediaType::kMp3:
    case MediaType::kAvi:
    case MediaType::kMpeg:
    case MediaType::kWave: return true;
    case MediaType::kHtml:
    case MediaType::kPage:
    case MediaType::kOther: return false;
  }
  return false;
}

bool HasReader(const FileType& type) {
  return type.Media() == MediaType::kMidi || type.Media() == MediaType::kMp3 || type.Media() == MediaType::kPage;
}

}  // namespace quillon
