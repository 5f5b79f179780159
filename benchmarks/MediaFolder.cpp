#include <charconv>
#include <iostream>
#include <string>

#include "Files.h"

/// Makes a folder with the given number of small MIDI and MP3 files, prints its path, and keeps it until its standard
/// input ends.
int main(int argc, char** argv) {
  const std::string text = argc == 2 ? argv[1] : "";
  int count = 0;
  if (std::from_chars(text.data(), text.data() + text.size(), count).ec != std::errc() || count <= 0) {
    std::cerr << "usage: quillon-media-folder COUNT\n";
    return 2;
  }
  const quillon::benchmarks::Files files(quillon::benchmarks::Files::Kind::kMixed, count);
  std::cout << files.Folder() << std::endl;
  while (std::cin.get() != std::char_traits<char>::eof()) {
  }
  return 0;
}
