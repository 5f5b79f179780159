#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "media/MediaInfo.h"
#include "media/basRIFFInfo.h"
#include "support/MediaBuilders.h"
#include "support/ReadBothWays.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

using namespace test;  // builders are what these tests are written in

const RiffInfo kEmpty;

RiffInfo Read(const std::string& bytes) {
  return ReadBothWays(bytes, NeedsForInfo("MP3"), [&](ByteSource& file) { return ReadRiffInfo(file); });
}

/// An "RMP3" file of these chunks.
RiffInfo ReadForm(const std::vector<std::string>& chunks) {
  return Read(RiffList("RIFF", "RMP3", chunks));
}

/// The name of a file whose INAM chunk holds this data.
std::string NameOf(const std::string& data) {
  return ReadForm({RiffList("LIST", "INFO", {RiffChunk("INAM", data)})}).name;
}

TEST(RiffInfo, GivesTheFiveTexts) {
  const RiffInfo info = Read(
      RmpFile({{"INAM", "Song"}, {"IART", "Artist"}, {"IPRD", "Album"}, {"ICMT", "Comment"}, {"ICRD", "2001-02-03"}}));
  EXPECT_EQ(info, (RiffInfo{"Song", "Artist", "Album", "2001-02-03", "Comment"}));
}

TEST(RiffInfo, GivesNameAndArtistInThisOrder) {
  EXPECT_EQ(Read(RmpFile({{"INAM", "Song"}, {"IART", "Artist"}})), (RiffInfo{"Song", "Artist", "", "", ""}));
}

struct OrderCase {
  const char* name;
  std::vector<std::pair<std::string, std::string>> texts;
  RiffInfo info;
};

TEST(RiffInfo, TheSearchOnlyGoesForwardAndEndsWithTheFirstMissingText) {
  const OrderCase cases[] = {
      {"artist before name", {{"IART", "Artist"}, {"INAM", "Song"}}, {"Song", "", "", "", ""}},
      {"no name", {{"IART", "Artist"}, {"IPRD", "Album"}, {"ICMT", "c"}, {"ICRD", "d"}}, kEmpty},
      {"no artist", {{"INAM", "Song"}, {"IPRD", "Album"}}, {"Song", "", "", "", ""}},
      {"date before comment",
       {{"INAM", "n"}, {"IART", "a"}, {"IPRD", "p"}, {"ICRD", "d"}, {"ICMT", "c"}},
       {"n", "a", "p", "", "c"}},
      {"others between", {{"ISFT", "x"}, {"INAM", "n"}, {"IGNR", "y"}, {"IART", "a"}}, {"n", "a", "", "", ""}},
      {"one with a name in bytes that cannot be printed",
       {{"INAM", "n"}, {"IGN\x81", "y"}, {"IART", "a"}},
       {"n", "a", "", "", ""}},
      {"two names", {{"INAM", "first"}, {"INAM", "second"}, {"IART", "a"}}, {"first", "a", "", "", ""}},
      {"letter case", {{"inam", "Song"}}, kEmpty},
      {"no texts", {}, kEmpty},
  };
  for (const OrderCase& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(Read(RmpFile(c.texts)), c.info);
  }
}

TEST(RiffInfo, OtherFormsGiveTheEmptyRecord) {
  const std::string list = InfoList({{"INAM", "Song"}});
  EXPECT_EQ(Read(RiffList("RIFF", "WAVE", {list})), kEmpty);
  EXPECT_EQ(Read(RiffList("RIFF", "AVI ", {list})), kEmpty);
  EXPECT_EQ(Read(RiffList("RIFF", "RMP4", {list})), kEmpty);
  EXPECT_EQ(Read(RiffList("RIFX", "RMP3", {list})), kEmpty);
  EXPECT_EQ(Read(RiffList("LIST", "RMP3", {list})), kEmpty);
  EXPECT_EQ(Read(list), kEmpty);
  EXPECT_EQ(Read(WaveFile(20)), kEmpty);
  EXPECT_EQ(Read(AviFile()), kEmpty);
  EXPECT_EQ(Read(Mp3Audio(2)), kEmpty);
  EXPECT_EQ(Read(""), kEmpty);
}

TEST(RiffInfo, TheFormIsSearchedAmongTheFilesOuterChunks) {
  const std::string song = RmpFile({{"INAM", "Song"}});
  EXPECT_EQ(Read(RiffChunk("JUNK", "odd") + WaveFile(1) + song).name, "Song");
  EXPECT_EQ(Read(RiffList("RIFF", "WAVE", {song})), kEmpty);
}

TEST(RiffInfo, TheListIsSearchedBehindOtherChunks) {
  const std::string other = RiffList("LIST", "adtl", {RiffChunk("INAM", "wrong")});
  EXPECT_EQ(ReadForm({RiffChunk("data", std::string(5001, 'x')), other, InfoList({{"INAM", "Song"}})}).name, "Song");
}

TEST(RiffInfo, AFormWithoutInfoListGivesTheEmptyRecord) {
  EXPECT_EQ(ReadForm({RiffChunk("INAM", "Song")}), kEmpty);
  EXPECT_EQ(ReadForm({RiffList("LIST", "adtl", {RiffChunk("INAM", "Song")})}), kEmpty);
  EXPECT_EQ(ReadForm({}), kEmpty);
}

TEST(RiffInfo, SearchesStayInsideTheirParent) {
  const std::string list = InfoList({{"INAM", "Song"}});
  EXPECT_EQ(Read(RiffList("RIFF", "RMP3", {}) + list), kEmpty) << "the list stands behind the form";
  EXPECT_EQ(ReadForm({RiffList("LIST", "INFO", {}), RiffChunk("INAM", "Song")}), kEmpty) << "the name behind the list";
  const std::string twoLists = InfoList({{"INAM", "Song"}}) + InfoList({{"IART", "Artist"}});
  EXPECT_EQ(ReadForm({twoLists}), (RiffInfo{"Song", "", "", "", ""}));
}

TEST(RiffInfo, OddChunksArePadded) {
  EXPECT_EQ(Read(RmpFile({{"INAM", "even"}, {"IART", "odd"}, {"IPRD", "Album"}})),
            (RiffInfo{"even", "odd", "Album", "", ""}));
}

TEST(RiffInfo, OneTerminatingZeroByteIsDropped) {
  using namespace std::string_literals;
  const struct {
    const char* name;
    std::string data, text;
  } cases[] = {{"none", "Song", "Song"}, {"one", "Song\0"s, "Song"}, {"two", "Song\0\0"s, "Song\0"s},
               {"one alone", "\0"s, ""}, {"empty", "", ""},          {"inside", "a\0b\0"s, "a\0b"s}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(NameOf(c.data), c.text);
  }
}

TEST(RiffInfo, BytesFrom128OnAreDecodedInPairs) {
  const struct {
    const char* name;
    std::string data, text;
  } cases[] = {
      {"two characters of two bytes", "\x83\x65\x83\x58", "テス"},
      {"between letters", "a\x83\x65z", "aテz"},
      {"a pair of half-width characters", "\xB1\xB2z", "ｱｲz"},
      {"a half-width character takes a letter along", "\xB1z", "ｱz"},
      {"a half-width character takes half a pair along", "\xB1\x83\x65z", "ｱ・ez"},
      {"twice", "\xB1\x83\xB1\x83\x65", "ｱ・ｱ・e"},
      {"a second byte that cannot be one", "\x83\x20z", "・ z"},
      {"half a pair at the end", "a\x83", "a・"},
      {"one half-width character at the end", "a\xB1", "aｱ"},
      {"unassigned pair", "\x85\x9F", "・"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(NameOf(c.data), c.text);
  }
}

TEST(RiffInfo, ATextThatTheFileCutsOffIsKept) {
  const std::string head = "RIFF" + LittleEndian(40, 4) + "RMP3LIST" + LittleEndian(28, 4) + "INFOINAM";
  EXPECT_EQ(Read(head + LittleEndian(20, 4) + "Song"), (RiffInfo{"Song", "", "", "", ""}));
  EXPECT_EQ(Read(head + LittleEndian(0xFFFFFFFF, 4) + "Song"), (RiffInfo{"Song", "", "", "", ""}));
}

TEST(RiffInfo, EveryTruncationGivesBeginningsOfTheTexts) {
  const std::string file = RmpFile({{"INAM", "Song"}, {"IART", "\x89\xCC\x8E\xE8"}, {"IPRD", "Album"}});
  const RiffInfo whole = Read(file);
  for (std::size_t length = 0; length < file.size(); ++length) {
    SCOPED_TRACE(length);
    const RiffInfo cut = Read(file.substr(0, length));
    EXPECT_TRUE(whole.name.starts_with(cut.name));
    EXPECT_TRUE(whole.product.starts_with(cut.product));
    EXPECT_LE(cut.artist.size(), whole.artist.size());
  }
}

TEST(RiffInfo, SearchesWithInvalidSizesEnd) {
  const std::string tiny = RiffChunk("JUNK", "");
  std::string many;
  for (int i = 0; i < 50'000; ++i) many += tiny;
  MemorySource file(many);
  EXPECT_EQ(ReadRiffInfo(file), kEmpty);
  EXPECT_LE(file.bytesRead, 2 * file.Size());
  EXPECT_EQ(Read("RIFF\xFF\xFF\xFF\xFFRMP3LIST\xFF\xFF\xFF\xFFINFOINAM\xFF\xFF\xFF\xFFSong").name, "Song");
}

TEST(RiffInfo, SkippedChunksAreNotRead) {
  MemorySource file(RiffList("RIFF", "RMP3", {RiffChunk("data", Mp3Audio(5000)), InfoList({{"INAM", "Song"}})}));
  EXPECT_EQ(ReadRiffInfo(file).name, "Song");
  EXPECT_LT(file.bytesRead, 10'000u);
}

TEST(RiffInfo, ATextIsReadUpTo64KiB) {
  const std::string whole(kLongestText, 'x');
  EXPECT_EQ(NameOf(whole), whole);
  EXPECT_EQ(NameOf(whole + '\0'), whole);
  EXPECT_EQ(NameOf(whole + "yz"), whole);
  EXPECT_EQ(NameOf(whole.substr(1) + "\x89\xCC"), whole.substr(1) + "・") << "half a character at the cut";
  EXPECT_EQ(Read(RmpFile({{"INAM", whole + "yz"}, {"IART", "Artist"}})).artist, "Artist");
}

TEST(RiffInfo, TheNumberOfExaminedChunksIsLimited) {
  const auto nameBehind = [](int count) {
    std::string file;
    for (int i = 0; i < count; ++i) file += RiffChunk("JUNK", "");
    return Read(file + RmpFile({{"INAM", "Song"}})).name;
  };
  EXPECT_EQ(nameBehind(kMostRiffChunks - 1), "Song");
  EXPECT_EQ(nameBehind(kMostRiffChunks), "");
}

TEST(RiffInfo, NameAndArtistAloneAreTheSameAsWithAllFields) {
  MemorySource file(RmpFile({{"INAM", "Song"}, {"IART", "Artist"}, {"IPRD", "Album"}}));
  BlockReader reader(file);
  EXPECT_EQ(ReadRiffInfo(reader, TagFields::kTitleAndArtist), (RiffInfo{"Song", "Artist", "", "", ""}));
}

TEST(RiffInfo, ReadsByPath) {
  const TempFolder folder;
  EXPECT_EQ(ReadRiffInfo(folder.Write("a.mp3", RmpFile({{"INAM", "Song"}}))).name, "Song");
  EXPECT_EQ(ReadRiffInfo(folder.At("none.mp3")), kEmpty);
}

TEST(RiffInfo, AFileThatIsNoRiffFileIsNotSearched) {
  MemorySource zeros(std::string(1000000, '\0'));
  EXPECT_EQ(ReadRiffInfo(zeros), RiffInfo());
  EXPECT_LE(zeros.reads, 50);
  std::string emptyChunks;
  for (int i = 0; i < 200000; ++i) emptyChunks += RiffChunk("JUNK", "");
  const std::string song = RiffList("RIFF", "RMP3", {InfoList({{"INAM", "Song"}})});
  MemorySource tooMany(emptyChunks + song);
  EXPECT_EQ(ReadRiffInfo(tooMany), RiffInfo());
  MemorySource some(RiffChunk("JUNK", "x") + song);
  EXPECT_EQ(ReadRiffInfo(some).name, "Song");
}

}  // namespace
}  // namespace quillon
