#include "Files.h"

#include <dirent.h>
#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>

#include "support/MediaBuilders.h"
#include "support/SongBuilders.h"

namespace quillon::benchmarks {
namespace {

using test::AnsiText;
using test::Id3v1Trailer;
using test::Id3v2Parts;
using test::Id3v2Tag;
using test::Mp3Audio;
using test::SimpleMidiFile;

constexpr int kFilesPerFolder = 1000;

std::string Mp3(int number) {
  const std::string title = "Song number " + std::to_string(number);
  if (number % 3 == 0) return Mp3Audio(10) + Id3v1Trailer({.title = title, .artist = "Some artist", .year = "1999"});
  Id3v2Parts tag{.major = number % 3 == 1 ? 3U : 2U};
  if (tag.major == 3) {
    tag.frames = {{"TIT2", AnsiText(title)}, {"TPE1", AnsiText("Some artist")}, {"TALB", AnsiText("Some album")}};
  } else {
    tag.frames = {{"TT2", AnsiText(title)}, {"TP1", AnsiText("Some artist")}, {"TAL", AnsiText("Some album")}};
  }
  tag.padding = 512;
  return Id3v2Tag(tag) + Mp3Audio(10);
}

std::string NewerMp3(const std::string& title) {
  return Id3v2Tag({.major = 4,
                   .frames = {{"TIT2", test::Utf8Text(title)},
                              {"TPE1", test::Utf8Text("Some artist")},
                              {"TALB", test::Utf8Text("Some album")}},
                   .padding = 512}) +
         Mp3Audio(50);
}

/// What a file of this kind with this number is called and holds.
std::pair<const char*, std::string> NameAndBytes(Files::Kind kind, int number) {
  const std::string title = "Song number " + std::to_string(number);
  const test::TagTexts comments = {{"TITLE", title}, {"ARTIST", "Some artist"}, {"ALBUM", "Some album"}};
  const std::string sound(20000, 'x');
  switch (kind) {
    case Files::Kind::kMixed: return NameAndBytes(number % 2 == 0 ? Files::Kind::kMidi : Files::Kind::kMp3, number);
    case Files::Kind::kMidi: return {".mid", SimpleMidiFile("Tune number " + std::to_string(number), "Somebody")};
    case Files::Kind::kNewerMp3: return {".mp3", NewerMp3(title)};
    case Files::Kind::kFlac: return {".flac", test::FlacFile(comments) + sound};
    case Files::Kind::kM4a:
      return {".m4a", test::M4aFile({{"\xA9nam", title},
                                     {"\xA9"
                                      "ART",
                                      "Some artist"}}) +
                          test::Mp4Atom("free", sound)};
    case Files::Kind::kOgg: return {".ogg", test::OggVorbisFile(comments) + sound};
    case Files::Kind::kMp3: break;
  }
  return {".mp3", Mp3(number)};
}

std::string NewFolder() {
  const char* place = getenv("TMPDIR");
  std::string name = std::string(place != nullptr ? place : "/var/tmp") + "/quillon-benchmark-XXXXXX";
  if (mkdtemp(name.data()) == nullptr) {
    std::perror(name.c_str());
    exit(1);
  }
  return name + "/";
}

int ReadFile(const std::string& path, const FileRead& read) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return 0;
  struct stat status {};
  fstat(file, &status);
  const auto length = static_cast<std::size_t>(status.st_size);
  std::array<char, 4096> block;
  if (path.compare(path.size() - 3, 3, "mid") == 0) {
    const std::unique_ptr<char[]> whole(new char[length]);
    static_cast<void>(!pread(file, whole.get(), length, 0));
  } else {
    static_cast<void>(!pread(file, block.data(), block.size(), 0));
    if (std::memcmp(block.data(), "ID3", 3) != 0) {
      static_cast<void>(!pread(file, block.data(), 128, static_cast<off_t>(length) - 128));
    }
  }
  close(file);
  if (read) read(path, length);
  return 1;
}

}  // namespace

Files::Files(Kind kind, int count) : folder_(NewFolder()) {
  for (int i = 0; i < count; ++i) {
    const std::string folder = folder_ + std::to_string(1000 + i / kFilesPerFolder) + "/";
    if (i % kFilesPerFolder == 0) std::filesystem::create_directory(folder);
    const auto [extension, bytes] = NameAndBytes(kind, i);
    paths_.push_back(folder + "file" + std::to_string(kFirstNumber + i) + extension);
    std::ofstream(paths_.back(), std::ios::binary) << bytes;
  }
}

Files::~Files() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

Files& SharedFiles(Files::Kind kind, int count) {
  static std::map<std::pair<Files::Kind, int>, std::unique_ptr<Files>> made;
  std::unique_ptr<Files>& files = made[{kind, count}];
  if (!files) files = std::make_unique<Files>(kind, count);
  return *files;
}

int ReadWithSystemCalls(const std::string& folder, const FileRead& read) {
  int count = 0;
  std::vector<std::string> below;
  DIR* const directory = opendir(folder.c_str());
  if (directory == nullptr) return 0;
  std::vector<std::string> names;
  while (const dirent* const entry = readdir(directory)) {
    if (entry->d_name[0] == '.') continue;
    (entry->d_type == DT_DIR ? below : names).emplace_back(entry->d_name);
  }
  closedir(directory);
  for (const std::string& name : names) count += ReadFile(folder + name, read);
  for (const std::string& name : below) count += ReadWithSystemCalls(folder + name + "/", read);
  return count;
}

int RenameWithSystemCalls(const std::vector<std::string>& from, const std::vector<std::string>& to) {
  int count = 0;
  for (std::size_t i = 0; i < from.size(); ++i) {
    if (renameat2(AT_FDCWD, from[i].c_str(), AT_FDCWD, to[i].c_str(), RENAME_NOREPLACE) == 0) ++count;
  }
  return count;
}

}  // namespace quillon::benchmarks
