// Writes the inputs that the fuzzers start from: SeedCorpus FOLDER makes one folder for each fuzzer in it.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "support/MediaBuilders.h"
#include "support/SongBuilders.h"

namespace {

using namespace quillon::test;  // this program only uses the builders

std::vector<std::string> MidiSeeds() {
  const std::string named = MidiTrack(TimedMetaEvent(midi_event::kName, "Song") + MidiNote(60, 480));
  const std::string text = MidiTrack(TimedMetaEvent(midi_event::kText, std::string(200, 'H')));
  return {SimpleMidiFile("Song", "(C) somebody"), MidiFile(1, 480, {text, named}),
          RiffList("RIFF", "RMID", {RiffChunk("data", MidiFile(1, 96, {named, text}))})};
}

std::vector<std::string> Id3Seeds() {
  const Id3v1Texts trailer = {.title = "Song", .artist = "\x89\xCC", .year = "19a9", .comment = "Nice", .track = 7};
  Id3v2Parts flags = {.frames = {{"TIT2", "m" + AnsiText("Song"), id3_frame_flag::kEncrypted},
                                 {"TPE1", "g" + AnsiText("Artist"), id3_frame_flag::kGrouped},
                                 {"TALB", "zip", id3_frame_flag::kCompressed}},
                      .padding = 20,
                      .extendedHeader = true,
                      .crc = 0x1234567};
  const Id3v2Parts four = {.frames = {{"TIT2", Utf16Text(u"\u6B4C\U0001F3B5")},
                                      {"COMM", Utf16Comment(u"about", u"comment")},
                                      {"APIC", std::string(3000, 'x')},
                                      {"TYER", AnsiText("2003")},
                                      {"TPE1", Utf16Text(u"\u4EBA", false)}}};
  const Id3v2Parts three = {.major = 2, .frames = {{"TT2", AnsiText("Song")}, {"COM", AnsiComment("a", "b")}}};
  const Id3v2Parts newer = {.major = 4, .frames = {{"TIT2", AnsiText("Song")}}};
  return {Mp3Audio(1) + Id3v1Trailer(trailer), Id3v2Tag(flags), Id3v2Tag(four), Id3v2Tag(three), Id3v2Tag(newer)};
}

std::vector<std::string> RiffSeeds() {
  const std::string odd =
      RiffList("RIFF", "RMP3", {RiffChunk("JUNK", "odd"), InfoList({{"INAM", "\x83\x65\xB1\x83"}})});
  return {RmpFile({{"INAM", "Song"}, {"IART", "Artist"}, {"IPRD", "Album"}, {"ICMT", "?"}, {"ICRD", "2001"}}, 1), odd,
          WaveFile(10) + odd, AviFile()};
}

std::vector<std::string> HtmlSeeds() {
  return {HtmlPage("Song", "text"), "<TITLE>Song\r\nand dance</TITLE>", "no start</title>", "</title>",
          HtmlPage("\x83\x65\x83\x58\x83\x67", "")};
}

/// In front of each file the byte that chooses its type in TagsFuzzer.
std::vector<std::string> TagsSeeds() {
  const TagTexts comments = {
      {"TITLE", "Song"}, {"ARTIST", "A"}, {"TRACKNUMBER", "3"}, {"DATE", "2003"}, {"GENRE", "17"}};
  const std::string tag = Id3v2Tag({.major = 4,
                                    .frames = {{"TIT2", Utf8Text("Song")},
                                               {"CHAP", std::string("a\0", 2) + std::string(16, '\0') + "TIT2" +
                                                            BigEndian(5, 4) + BigEndian(0, 2) + Utf8Text("Part")},
                                               {"TCON", Utf8Text("17")}}});
  const std::string info = InfoList({{"INAM", "Song"}, {"IART", "A"}});
  return {Bytes({0}) + tag + Mp3Audio(2),
          Bytes({0}) + Mp3Audio(2) + ApeTag({{"Title", "Song"}, {"Year", "2003"}}),
          Bytes({1}) + FlacFile(comments),
          Bytes({1}) + tag + FlacFile(comments),
          Bytes({2}) + OggVorbisFile(comments),
          Bytes({3}) + OggFlacFile(comments),
          Bytes({4}) + OggOpusFile(comments),
          Bytes({5}) + OggSpeexFile(comments),
          Bytes({6}) + M4aFile({{"\xA9nam", "Song"}, {"trkn", "3"}, {"covr", "x"}}),
          Bytes({7}) + WmaFile(u"Song", u"A", {{u"WM/Year", u"2003"}, {u"WM/Picture", u"x"}}),
          Bytes({8}) + AiffFile({AiffChunk("ID3 ", tag)}),
          Bytes({9}) + RiffList("RIFF", "WAVE", {WaveFile(3).substr(12), info, RiffChunk("id3 ", tag)}),
          Bytes({10}) + "MAC " + std::string(80, '\0') + ApeTag({{"Title", "Song"}}),
          Bytes({11}) + "wvpk" + std::string(80, '\0') + ApeTag({{"Title", "Song"}}),
          Bytes({12}) + "MPCK" + std::string(80, '\0') + ApeTag({{"Title", "Song"}}),
          Bytes({13}) + tag + "TTA1" + std::string(80, '\0'),
          Bytes({14}) + ModFile("Song"),
          Bytes({15}) + S3mFile("Song", 2),
          Bytes({16}) + ItFile("Song", 1, 1),
          Bytes({17}) + XmFile("Song", 1, 1),
          Bytes({20}) + SimpleMidiFile("Song", "A")};
}

std::vector<std::string> PlanSeeds() {
  const std::string rename = R"({"old":"/a.mid","new":"/b.mid","device":1,"file":2,"size":3,"mtime":-4})";
  return {rename + "\n" + R"({"old":"/a.mid","new":"/b.mid","device":5,"file":6,"size":3,"mtime":4,"copied":true})" +
              "\n" + rename + "\n" + R"({"old":"/a.mid","new":"/b.mid","failed":75})" + "\n",
          R"({"old":"?","old_bytes":"2fff","new":"b"})"
          "\r\n\r\n"
          R"({"new":"c","old":"b"})",
          "\xEF\xBB\xBF{\"path\":\"/a\",\"name\":\"b\"}\n", "one\ntwo\n\n"};
}

bool WriteSeeds(const std::filesystem::path& folder, const std::vector<std::string>& seeds) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  for (std::size_t i = 0; i < seeds.size(); ++i) {
    std::ofstream file(folder / ("seed" + std::to_string(i)), std::ios::binary);
    file.write(seeds[i].data(), static_cast<std::streamsize>(seeds[i].size()));
    file.close();
    if (!file) return false;
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: SeedCorpus FOLDER\n";
    return 2;
  }
  const std::filesystem::path folder(argv[1]);
  const bool written = WriteSeeds(folder / "MidiFuzzer", MidiSeeds()) && WriteSeeds(folder / "Id3Fuzzer", Id3Seeds()) &&
                       WriteSeeds(folder / "RiffFuzzer", RiffSeeds()) &&
                       WriteSeeds(folder / "HtmlFuzzer", HtmlSeeds()) &&
                       WriteSeeds(folder / "TagsFuzzer", TagsSeeds()) && WriteSeeds(folder / "PlanFuzzer", PlanSeeds());
  return written ? 0 : 1;
}
