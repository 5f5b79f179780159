#include "tags/HostileSongs.h"

#include "support/MediaBuilders.h"
#include "support/SongBuilders.h"

namespace quillon::test {
namespace {

using namespace std::string_literals;

constexpr std::uint64_t kMiB = 1U << 20U;
constexpr std::uint64_t kHuge = 1024 * kMiB;

std::string SevenBits(std::size_t number) {
  const auto bits = static_cast<unsigned>(number);
  return Bytes({bits >> 21u & 0x7Fu, bits >> 14u & 0x7Fu, bits >> 7u & 0x7Fu, bits & 0x7Fu});
}

std::string Frame(const std::string& id, const std::string& data, unsigned flags = 0) {
  return id + SevenBits(data.size()) + Bytes({0, flags}) + data;
}

std::string Tag(const std::string& frames) {
  return "ID3" + Bytes({4, 0, 0}) + SevenBits(frames.size()) + frames;
}

/// Frames that each hold the next one. Built from the outside, because each copy of the inside would take long.
std::string NestedFrames(const std::string& id, const std::string& head, std::size_t depth) {
  const std::size_t each = 10 + head.size();
  std::string frames;
  for (std::size_t level = depth; level > 0; --level) {
    frames += id + SevenBits(level * each - 10) + Bytes({0, 0}) + head;
  }
  return frames;
}

/// A zlib stream that repeats a zero byte: a literal, then copies of 258 bytes in 13 bits each.
std::string Bomb(std::size_t copies) {
  std::string bytes = "\x78\x01";
  unsigned held = 0;
  unsigned count = 0;
  const auto put = [&](unsigned bits, unsigned length) {
    for (unsigned i = 0; i < length; ++i) {
      held |= (bits >> i & 1u) << count;
      if (++count < 8) continue;
      bytes += static_cast<char>(static_cast<unsigned char>(held));
      held = count = 0;
    }
  };
  put(1, 1);  // the last block
  put(1, 2);  // with the fixed codes
  put(0x0C, 8);
  for (std::size_t i = 0; i < copies; ++i) {
    put(0xA3, 8);
    put(0, 5);
  }
  put(0, 7);
  put(0, 7);
  return bytes;
}

std::string Repeat(const std::string& bytes, std::size_t times) {
  std::string all;
  all.reserve(bytes.size() * times);
  for (std::size_t i = 0; i < times; ++i) all += bytes;
  return all;
}

/// Flags: 1 for a page that goes on with the packet of the page before.
std::string RawOggPage(unsigned flags, const std::string& sizes, const std::string& data) {
  return "OggS" + Bytes({0, flags}) + std::string(20, '\0') + Bytes({static_cast<unsigned>(sizes.size())}) + sizes +
         data;
}

std::string Id3Title() {
  return Frame("TIT2", Utf8Text("Song"));
}

void AddId3(std::vector<HostileSong>& songs) {
  const std::string chapter = "a\0"s + std::string(16, '\0');
  const std::string contents = "a\0"s + Bytes({0, 0});
  const std::string compressed = Frame("TALB", SevenBits(100) + Bomb(1'500'000), 9);
  const std::string unknown = Frame("XYZW", SevenBits(100) + Bomb(1'500'000), 9);
  const std::string longText = Frame("TIT2", Utf8Text(std::string(65000, 'x')));
  const std::string split = Frame("TPE1", Utf8Text(Repeat("a\0"s, 32000)));
  const auto add = [&songs](const char* name, const std::string& frames, const char* title) {
    const std::string tag = Tag(frames);
    const auto plus = [&tag](const std::string& more) { return tag.size() + more.size(); };
    songs.push_back({name, "MP3", plus(Mp3Audio(2)), tag + Mp3Audio(2), "\0"s, title});
#ifndef QUILLON_SANITIZED  // where each of these takes seconds
    songs.push_back({name, "flac", plus(FlacFile({})), tag + FlacFile({}), "\0"s, title});
    songs.push_back({name, "tta", plus("TTA1"), tag + "TTA1", "\0"s, title});
    const std::string aiff = AiffFile({AiffChunk("ID3 ", tag)});
    songs.push_back({name, "aif", aiff.size(), aiff, "\0"s, title});
#endif
    const std::string wave = RiffList("RIFF", "WAVE", {RiffChunk("id3 ", tag)});
    songs.push_back({name, "WAVE", wave.size(), wave, "\0"s, title});
  };
  add("nested chapters", Id3Title() + NestedFrames("CHAP", chapter, 100'000), "Song");
  add("nested contents", Id3Title() + NestedFrames("CTOC", contents, 100'000), "Song");
  add("a compressed text", Id3Title() + compressed, "Song");
  add("a compressed frame without a meaning", Id3Title() + unknown, "Song");
  std::string small;
  for (int i = 0; i < 100; ++i) small += Frame("TALB", SevenBits(100) + Bomb(38'000), 9);
  add("many compressed texts", Id3Title() + small, "Song");
  add("many empty frames", Id3Title() + Repeat(Frame("XXXX", "x"), 1'000'000), "Song");
  add("many titles", Id3Title() + Repeat(longText, 200), "Song");
  add("many artists in each of many frames", Id3Title() + Repeat(split, 200), "Song");
  songs.push_back({"zeros", "MP3", kHuge, "", "\0"s});
  songs.push_back({"tags behind each other", "MP3", kHuge, Tag(Id3Title()), Tag(""), "Song"});
  songs.push_back({"a tag of the largest size", "MP3", kHuge,
                   "ID3" + Bytes({4, 0, 0, 0x7F, 0x7F, 0x7F, 0x7F}) + Id3Title(), "XXXX\0\0\0\1\0\0x"s, "Song"});
  songs.push_back({"beginnings of frames", "MP3", kHuge, "", "\xFF"});
  songs.push_back({"frames in the wrong places", "MP3", kHuge, "", "\xFF\xFB\x90"});
}

void AddOthers(std::vector<HostileSong>& songs) {
  songs.push_back({"nested atoms", "m4a", kHuge, Mp4Atom("ftyp", "M4A "), "\0\0\0\0moov"s});
  songs.push_back({"nested atoms of stated sizes", "m4a", kHuge, Mp4Atom("ftyp", "M4A "), "\x3F\xFF\xFF\xFFmoov"});
  songs.push_back(
      {"nested atoms of long sizes", "m4a", kHuge, Mp4Atom("ftyp", "M4A "), "\0\0\0\1moov\0\0\0\0\x3F\xFF\xFF\xFF"s});
  songs.push_back({"nested meta atoms", "m4a", kHuge, Mp4Atom("ftyp", "M4A "), "\0\0\0\0meta\0\0\0\0"s});
  songs.push_back({"empty atoms", "m4a", kHuge, "", Mp4Atom("free", "")});
  songs.push_back({"atoms that lead back", "m4a", kHuge, "", "\0\0\0\1free\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF"s});
  const std::string items = Repeat(Mp4Atom("\xA9nam", Mp4Atom("data", std::string(8, '\0') + "x")), 200'000);
  const std::string ilst = Mp4Atom("moov", Mp4Atom("udta", Mp4Atom("meta", BigEndian(0, 4) + Mp4Atom("ilst", items))));
  songs.push_back({"many items", "m4a", ilst.size(), ilst, "\0"s});

  const std::string entry = LittleEndian(3, 4) + "A=x";
  const std::string comments =
      LittleEndian(0, 4) + LittleEndian(2'000'000, 4) + LittleEndian(10, 4) + "TITLE=Song" + Repeat(entry, 2'000'000);
  const std::string flac = FlacStart() + FlacBlock(4, comments, true);
  songs.push_back({"many comments", "flac", flac.size(), flac, "\0"s, "Song"});
  const std::string picture = LittleEndian(0, 4) + std::string(0xFFFFF0, 'x');
  const std::string pictures = FlacStart() + FlacBlock(4, VorbisComment({{"TITLE", "Song"}})) + FlacBlock(6, picture) +
                               FlacBlock(6, picture) + FlacBlock(6, picture);
  songs.push_back({"huge pictures", "flac", pictures.size(), pictures, "\0"s});
  songs.push_back({"empty blocks", "flac", kHuge, FlacStart(), FlacBlock(1, "")});
  songs.push_back({"zeros", "flac", kHuge, "", "\0"s});

  const std::vector<std::pair<const char*, std::string>> oggs = {
      {"ogg", OggVorbisFile({})}, {"oga", OggFlacFile({})}, {"opus", OggOpusFile({})}, {"spx", OggSpeexFile({})}};
  for (const auto& [type, song] : oggs) {
    const std::string first = song.substr(0, song.find("OggS", 4));
    const std::string full = std::string(255, '\xFF');
    songs.push_back({"a packet without an end", type, kHuge, first, RawOggPage(1, full, std::string(65025, 'x'))});
    songs.push_back(
        {"a packet without an end in small pages", type, kHuge, first, RawOggPage(1, "\xFF", std::string(255, 'x'))});
    songs.push_back(
        {"a packet without an end from the start", type, kHuge, "", RawOggPage(1, "\xFF", std::string(255, 'x'))});
    songs.push_back({"pages without packets", type, kHuge, first, RawOggPage(0, "", "")});
    songs.push_back({"continued pages without packets", type, kHuge, first, RawOggPage(1, "", "")});
    songs.push_back({"empty packets", type, kHuge, first, RawOggPage(0, std::string(255, '\0'), "")});
    songs.push_back({"empty continued packets", type, kHuge, first, RawOggPage(1, std::string(1, '\0'), "")});
    songs.push_back({"packets that are torn and never continued", type, kHuge, first,
                     RawOggPage(0, "\1\xFF"s, std::string(256, 'x'))});
    songs.push_back({"zeros", type, kHuge, "", "\0"s});
  }

  const std::string header = AsfHeader(0xFFFFFFFF, {});
  songs.push_back({"objects without end", "wma", kHuge, header, AsfObject(std::string(16, 'x'), "")});
  songs.push_back({"objects of no size", "wma", kHuge, header, std::string(16, 'x') + std::string(8, '\0')});
  const std::string metadata =
      Bytes({0xEA, 0xCB, 0xF8, 0xC5, 0xAF, 0x5B, 0x77, 0x48, 0x84, 0x67, 0xAA, 0x8C, 0x44, 0xFA, 0x4C, 0xCA});
  const std::string extension =
      Bytes({0xB5, 0x03, 0xBF, 0x5F, 0x2E, 0xA9, 0xCF, 0x11, 0x8E, 0xE3, 0x00, 0xC0, 0x0C, 0x20, 0x53, 0x65});
  songs.push_back({"attributes without end", "wma", kHuge,
                   header + extension + std::string(26, '\0') + "\xFF\xFF\xFF\x7F",
                   metadata + std::string(8, '\0') + "\xFF\xFF"});

  const std::string few = metadata + std::string(8, '\0') + "\xFF\xFF";
  const std::string ended = AsfHeader(1, {AsfObject(extension, std::string(18, '\0') + "\xFF\xFF\xFF\x7F" + few)});
  songs.push_back({"attributes behind the end", "wma", ended.size(), ended, "\0"s});

  std::string apeItems;
  for (unsigned i = 0; i < 600'000; ++i)
    apeItems += LittleEndian(0, 4) + LittleEndian(0, 4) + "k" + std::to_string(i) + '\0';
  const std::string footer = "APETAGEX" + LittleEndian(2000, 4) +
                             LittleEndian(static_cast<std::uint32_t>(apeItems.size()) + 32, 4) +
                             LittleEndian(0xFFFFFFFF, 4) + std::string(12, '\0');
  songs.push_back({"many items", "ape", apeItems.size() + footer.size() - 0, apeItems + footer, "\0"s});
  songs.push_back({"many items", "MP3", apeItems.size() + footer.size(), apeItems + footer, "\0"s});
  songs.push_back({"many items", "wv", apeItems.size() + footer.size(), apeItems + footer, "\0"s});
  songs.push_back({"many items", "mpc", apeItems.size() + footer.size(), apeItems + footer, "\0"s});

  songs.push_back({"many instruments", "it", kHuge, ItFile("Song", 65535, 65535), "IMPI"});
  songs.push_back({"many patterns", "xm", kHuge, XmFile("Song", 65535, 65535), "\4\0\0\0"s});
  songs.push_back({"many samples", "s3m", kHuge, S3mFile("Song", 65535), "x"});
  songs.push_back({"chunks without end", "WAVE", kHuge, "RIFF\xFF\xFF\xFF\x7FWAVE", "JUNK\0\0\0\0"s});
  songs.push_back({"lists without end", "WAVE", kHuge, "RIFF\xFF\xFF\xFF\x7FWAVE", "LIST\4\0\0\0INFO"s});
  const std::string info = "INFO" + Repeat("INAM\1\0\0\0x\0"s, 1'000'000);
  const std::string list = RiffList("RIFF", "WAVE", {RiffChunk("LIST", info)});
  songs.push_back({"many texts", "WAVE", list.size(), list, "\0"s, "x"});
  songs.push_back({"chunks without end", "aif", kHuge,
                   "FORM\x7F\xFF\xFF\xFF"
                   "AIFF",
                   "JUNK\0\0\0\0"s});
  for (const char* type : {"wv", "mpc", "ape", "mod", "wma", "m4a", "aif"})
    songs.push_back({"zeros", type, kHuge, "", "\0"s});
}

}  // namespace

std::vector<HostileSong> HostileSongs() {
  std::vector<HostileSong> songs;
  AddId3(songs);
  AddOthers(songs);
  return songs;
}

}  // namespace quillon::test
