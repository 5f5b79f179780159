#include <charconv>
#include <cstdio>
#include <string>

#include "Files.h"
#include "base/Text.h"

/// The floor of `quillon-cli list --json --subfolders FOLDER` for a folder of quillon-media-folder: reads the files as
/// plainly as possible, on one thread, and prints the same lines, in the order in which the folders list the files. It
/// knows the texts from the names.
namespace quillon::benchmarks {
namespace {

constexpr std::size_t kPiece = 1U << 16U;

std::string Line(const std::string& path, std::uint64_t length) {
  const std::size_t start = path.rfind('/') + 1;
  const std::string name = path.substr(start, path.rfind('.') - start);
  const bool midi = path.ends_with(".mid");
  const std::string number = std::to_string(std::stoi(name.substr(4)) - kFirstNumber);
  return R"({"rename_name":")" + name + R"(","title":")" + (midi ? "Tune" : "Song") + " number " + number +
         R"(","artist":")" + (midi ? "Somebody" : "Some artist") + R"(","type":")" + (midi ? "MIDI" : "MP3") +
         R"(","size":")" + FormatThousands(length) + R"(","location":")" + path + "\"}\n";
}

void Print(const std::string& text) {
  if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) std::perror("standard output");
}

}  // namespace
}  // namespace quillon::benchmarks

int main(int argc, char** argv) {
  using namespace quillon::benchmarks;
  if (argc != 2) {
    static_cast<void>(std::fputs("usage: quillon-list-floor FOLDER\n", stderr));
    return 2;
  }
  std::string lines;
  const int count = ReadWithSystemCalls(argv[1], [&](const std::string& path, std::uint64_t length) {
    lines += Line(path, length);
    if (lines.size() < kPiece) return;
    Print(lines);
    lines.clear();
  });
  Print(lines);
  return count > 0 ? 0 : 1;
}
