#pragma once

#include <string>
#include <string_view>

namespace quillon {

enum class MediaType {
  kOther,
  kMidi,
  kMp3,
  kAvi,
  kMpeg,
  kWave,
  kHtml,
  kPage,  ///< a page whose title is read; no file of the list has this type
};

/// The type of a file: the text that the list shows, and the media type that this text stands for.
class FileType {
 public:
  FileType() = default;
  // The text says all: rows are made from it.
  FileType(std::string_view text);    // NOLINT(google-explicit-constructor)
  FileType(const std::string& text);  // NOLINT(google-explicit-constructor)
  FileType(const char* text);         // NOLINT(google-explicit-constructor)

  [[nodiscard]] const std::string& Text() const { return text_; }
  [[nodiscard]] MediaType Media() const { return media_; }

  friend bool operator==(const FileType& left, const FileType& right) { return left.text_ == right.text_; }

 private:
  std::string text_;
  MediaType media_ = MediaType::kOther;
};

/// The type that an extension in upper case leads to: "MIDI", "MP3", "AVI", "MPEG", "WAVE" or "HTML"; the extension in
/// lower case for any other.
[[nodiscard]] FileType GetMediaType(std::string_view extension);

/// True for the types that are played; files of other types are opened with the shell.
[[nodiscard]] bool IsPlayableType(const FileType& type);

/// True for the types whose files are opened and read for a list row.
[[nodiscard]] bool HasReader(const FileType& type);

}  // namespace quillon
