#include "fuzz/Seeds.h"

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

/// The length of the pattern, the pattern, the text of every field.
std::vector<std::string> PatternSeeds() {
  return {Bytes({14}) + "{title} {n:03}Song", Bytes({20}) + "{artist|x}-{date:%Y}A", Bytes({13}) + "{title?{n} }?"};
}

/// Flags, the lengths of pattern and replacement, these two, and the target.
std::vector<std::string> RegexSeeds() {
  return {Bytes({1, 4, 4}) + "(.)b$1\\Uabcb", Bytes({3, 5, 2}) + "[a-c]$&Abc"};
}

std::vector<std::string> SettingsSeeds() {
  const auto seed = [](char place, const std::string& content) {
    return std::string(1, place) + "\3Sec\2va" + content;
  };
  return {seed(0, "[Window]\r\nWidth=9000\r\n; a comment\r\n[Modify]\r\nReplace1=a\r\n"),
          seed(1, "\xEF\xBB\xBF[Window]\nLeft=-5\n[List]\nSubFolder=1\n[Sec]\nKey=\xE6\x9B\xB2\n"),
          seed(1, "[Find]\nExtMedia=mid  mp3\n[FIND]\nmediaon=True\nmediaon=2.5\n\x83")};
}

std::vector<std::string> ArgumentsSeeds() {
  return {"a.mid \"C:\\My songs\\b.mid\" c", "\"unclosed  run", "--help", "--version x", "--other", "\"\" a\"b\""};
}

std::vector<std::string> AnsiSeeds() {
  return {"\x83\x65\x83\x58\x83\x67", "\xB1\xB2\x81", "\x81\x5C\x81\x60\xFA\x40\xED\x40\x81\xAD",
          "\xE6\x9B\xB2\xE2\x80\x95\xE3\x83\xBB"};
}

std::vector<std::string> CommandSeeds() {
  return {"open \"/a b.mid\" type sequencer alias Song",
          "seek Song to 1200",
          "seek song to start",
          "status song length",
          "play song from 20",
          "put song destination at 0 0 160 120",
          "window song handle 1234",
          "close all",
          "set song time format ms",
          "where song source"};
}

/// Flags, active rules, two factors of the number of rows, then texts, each behind its length, and the name.
std::vector<std::string> ModifySeeds() {
  const auto text = [](const std::string& t) { return std::string(1, static_cast<char>(t.size())) + t; };
  const auto rules = [&](const std::string& find, const std::string& replacement) {
    std::string texts = text("_");
    for (int i = 0; i < 5; ++i) texts += text(i == 0 ? find : "") + text(i == 0 ? replacement : "");
    return texts;
  };
  return {Bytes({3, 5, 1, 1}) + rules("a", "bb") + "banana?",
          Bytes({9, 9, 2, 1}) + rules("(\\w+) (\\w+)", "$2 $1") + "one two",
          Bytes({0, 0, 0x44, 1}) + rules(" ", "") + "\xEF\xBD\xB1 song",
          Bytes({40, 40, 0x20, 1}) + rules("x", "xx") + "xyx"};
}

/// A byte that chooses the extension, and the file.
std::vector<std::string> DeviceSeeds() {
  return {Bytes({0}) + SimpleMidiFile("Song", "A"), Bytes({1}) + Mp3Audio(3), Bytes({2}) + WaveFile(10),
          Bytes({4}) + AviFile()};
}

}  // namespace

namespace quillon::test {

std::map<std::string, std::vector<std::string>> FuzzerSeeds() {
  return {{"AnsiFuzzer", AnsiSeeds()},       {"ArgumentsFuzzer", ArgumentsSeeds()}, {"CommandFuzzer", CommandSeeds()},
          {"DeviceFuzzer", DeviceSeeds()},   {"HtmlFuzzer", HtmlSeeds()},           {"Id3v1Fuzzer", Id3Seeds()},
          {"Id3v2Fuzzer", Id3Seeds()},       {"MidiFuzzer", MidiSeeds()},           {"ModifyFuzzer", ModifySeeds()},
          {"PatternFuzzer", PatternSeeds()}, {"PlanFuzzer", PlanSeeds()},           {"RegexFuzzer", RegexSeeds()},
          {"RiffFuzzer", RiffSeeds()},       {"SettingsFuzzer", SettingsSeeds()},   {"TagsFuzzer", TagsSeeds()}};
}

}  // namespace quillon::test
