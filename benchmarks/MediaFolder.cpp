#include <charconv>
#include <iostream>
#include <optional>
#include <string>

#include "Files.h"

namespace quillon::benchmarks {
namespace {

std::optional<Files::Kind> KindOf(const std::string& word) {
  if (word == "mixed") return Files::Kind::kMixed;
  if (word == "midi") return Files::Kind::kMidi;
  return word == "mp3" ? std::optional(Files::Kind::kMp3) : std::nullopt;
}

}  // namespace
}  // namespace quillon::benchmarks

/// Makes a folder with the given number of small media files, prints its path, and keeps it until its standard input
/// ends.
int main(int argc, char** argv) {
  using namespace quillon::benchmarks;
  const std::string text = argc == 3 ? argv[1] : "";
  const std::optional<Files::Kind> kind = KindOf(argc == 3 ? argv[2] : "");
  int count = 0;
  if (!kind || std::from_chars(text.data(), text.data() + text.size(), count).ec != std::errc() || count <= 0) {
    std::cerr << "usage: quillon-media-folder COUNT mixed|midi|mp3\n";
    return 2;
  }
  const Files files(*kind, count);
  std::cout << files.Folder() << std::endl;
  while (std::cin.get() != std::char_traits<char>::eof()) {
  }
  return 0;
}
