#include "app/OpenFileFilters.h"

namespace quillon {

std::string OpenFilePattern(const OptionValues::Find& find) {
  if (!find.filterByExtension) return "*.*";
  std::string text;
  const auto append = [&](bool enabled, const std::string& extensions) {
    if (enabled) text += " " + extensions;
  };
  append(find.other.on, find.other.extensions);
  append(find.html.on, find.html.extensions);
  append(find.media.on, find.media.extensions);
  append(find.text.on, find.text.extensions);
  if (text.empty()) return "*.*";
  std::string pattern;
  for (const char c : text) {
    if (c == ' ') {
      pattern += ";*.";
    } else {
      pattern += c;
    }
  }
  return pattern.substr(1);
}

std::vector<FileDialogFilter> OpenFileFilters(const OptionValues::Find& find) {
  const std::string pattern = OpenFilePattern(find);
  return {{"ファイル (" + pattern + ")", pattern},
          {"すべてのメディアファイル", "*.mid;*.mp3;*.mpeg;*.mpe;*.mpg;*.avi;*.wav"},
          {"MIDIファイル", "*.mid"},
          {"MP3ファイル", "*.mp3"},
          {"WAVEファイル", "*.wav"},
          {"MPEGファイル", "*.mpe;*.mpg;*.mpeg"},
          {"AVIファイル", "*.avi"}};
}

}  // namespace quillon
