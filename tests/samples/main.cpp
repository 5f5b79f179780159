// Makes a folder of small media files with Japanese and English titles, to try the program on.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "platform/Ansi.h"
#include "support/MediaBuilders.h"

namespace quillon::test {
namespace {

std::string Ansi(std::string_view text) {
  return Utf8ToAnsi(text).value();
}

std::string Mp3WithId3v22(std::string_view title, std::string_view artist) {
  Id3v2Parts tag{.major = 2};
  tag.frames = {{"TT2", AnsiText(Ansi(title))}, {"TP1", AnsiText(Ansi(artist))}};
  return Id3v2Tag(tag) + Mp3Audio(40);
}

std::string Mp3WithId3v23(std::u16string_view title, std::u16string_view artist, std::string_view album) {
  Id3v2Parts tag{.major = 3};
  tag.frames = {{"TIT2", Utf16Text(title)},
                {"TPE1", Utf16Text(artist)},
                {"TALB", AnsiText(Ansi(album))},
                {"TYER", AnsiText("1999")}};
  return Id3v2Tag(tag) + Mp3Audio(40);
}

std::vector<std::pair<std::string, std::string>> Samples() {
  return {
      {"001.mid", SimpleMidiFile(Ansi("さくらさくら"), Ansi("日本古謡"), 16)},
      {"track02.MID", SimpleMidiFile("Greensleeves", "Traditional")},
      {"untitled.mid", SimpleMidiFile("", "")},
      {"a1.mp3", Mp3Audio(40) + Id3v1Trailer({.title = Ansi("荒城の月"), .artist = Ansi("滝廉太郎"), .year = "1901"})},
      {"a2.mp3", Mp3WithId3v22("Auld Lang Syne", "Robert Burns")},
      {"a3.MP3", Mp3WithId3v23(u"赤とんぼ", u"山田耕筰", "童謡集")},
      {"a4.mp3", RmpFile({{"INAM", Ansi("ふるさと")}, {"IART", Ansi("岡野貞一")}}, 40)},
      {"a5.mp3", Mp3Audio(40) + Id3v1Trailer({.title = "What is this?", .artist = "Anonymous"})},
      {"notags.mp3", Mp3Audio(40)},
      {"voice.wav", WaveFile(500)},
      {"clip.avi", AviFile()},
      {"clip.mpg", MpegFile()},
      {"page.html", HtmlPage(Ansi("わたしのページ"), "<p>hello</p>")},
      {"readme.txt", Ansi("これはテキストファイルです\r\n")},
      {"サブフォルダ/b1.mid", SimpleMidiFile(Ansi("春の小川"), "")},
  };
}

int Main(const std::vector<std::string>& arguments) {
  if (arguments.size() != 1) {
    std::cerr << "usage: quillon-samples FOLDER\n";
    return 2;
  }
  const std::filesystem::path folder = arguments.front();
  for (const auto& [name, bytes] : Samples()) {
    const std::filesystem::path path = folder / std::u8string(name.begin(), name.end());
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) {
      std::cerr << "error: cannot write " << path << '\n';
      return 1;
    }
  }
  return 0;
}

}  // namespace
}  // namespace quillon::test

int main(int argc, char** argv) {
  return quillon::test::Main(std::vector<std::string>(argv + 1, argv + argc));
}
