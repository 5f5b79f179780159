#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "base/Text.h"
#include "cli/CliProgram.h"
#include "platform/Ansi.h"
#include "platform/Program.h"
#include "settings/Presets.h"
#include "support/MediaBuilders.h"
#include "support/SongBuilders.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

std::string Ansi(std::string_view text) {
  return Utf8ToAnsi(text).value();
}

std::string Mp3(std::string_view title, std::string_view artist = "Artist") {
  return Mp3Audio(2) + Id3v1Trailer({.title = Ansi(title), .artist = Ansi(artist), .year = "1999"});
}

// list

TEST(CliListTest, JsonRowsHoldTheSixFieldsInSearchOrder) {
  const TempFolder folder;
  folder.Write("b.mp3", Mp3("荒城の月", "滝廉太郎"));
  folder.Write("a.mid", SimpleMidiFile(Ansi("さくら"), "Trad."));
  folder.Write("ignored.txt", "text");
  const ProcessResult result = Cli({"list", "--json", folder.Path()});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  const std::vector<Json> rows = JsonLines(result.output);
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0]["rename_name"], "a");
  EXPECT_EQ(rows[0]["title"], "さくら");
  EXPECT_EQ(rows[0]["artist"], "Trad.");
  EXPECT_EQ(rows[0]["type"], "MIDI");
  EXPECT_EQ(rows[0]["location"], folder.At("a.mid"));
  EXPECT_EQ(rows[1]["title"], "荒城の月");
  EXPECT_EQ(rows[1]["size"], FormatThousands(folder.Read("b.mp3").size()));
  EXPECT_EQ(rows[1].size(), 6U);
}

TEST(CliListTest, FiltersAndSubfoldersAreAsAskedFor) {
  const TempFolder folder;
  folder.Write("a.mid", SimpleMidiFile("A", ""));
  folder.Write("b.txt", "");
  folder.Write("noextension", "");
  folder.Write("sub/c.mp3", Mp3("C"));
  const struct {
    const char* name;
    std::vector<std::string> options;
    std::vector<std::string> files;
  } kCases[] = {{"media by default", {}, {"a.mid"}},
                {"subfolders", {"--subfolders"}, {"a.mid", "sub/c.mp3"}},
                {"extensions of one's own", {"--ext", "txt mid"}, {"a.mid", "b.txt"}},
                {"all", {"--all", "--subfolders"}, {"a.mid", "b.txt", "noextension", "sub/c.mp3"}}};
  for (const auto& row : kCases) {
    SCOPED_TRACE(row.name);
    std::vector<std::string> arguments = {"list", "--json"};
    arguments.insert(arguments.end(), row.options.begin(), row.options.end());
    arguments.push_back(folder.Path());
    std::vector<std::string> found;
    for (const Json& object : JsonLines(Cli(arguments).output)) found.push_back(object["location"]);
    std::vector<std::string> expected;
    for (const std::string& file : row.files) expected.push_back(folder.At(file));
    EXPECT_EQ(found, expected);
  }
}

TEST(CliListTest, ANamedFileIsTakenWhateverTheFilter) {
  const TempFolder folder;
  const std::string path = folder.Write("notes.txt", "text");
  const std::vector<Json> rows = JsonLines(Cli({"list", "--json", path}).output);
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0]["title"], "---");
}

TEST(CliListTest, TheTableIsAlignedByDisplayWidth) {
  const TempFolder folder;
  folder.Write("a.mid", SimpleMidiFile(Ansi("さくら"), "X"));
  folder.Write("b.mid", SimpleMidiFile("abcdef", "Y"));
  const std::vector<std::string> lines = Lines(Cli({"list", folder.Path()}).output);
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[0].rfind("リネーム名  タイトル  著作権/アーティスト  種類  サイズ  場所", 0), 0U) << lines[0];
  EXPECT_EQ(lines[1].rfind("a           さくら    X                    MIDI", 0), 0U) << lines[1];
  EXPECT_EQ(lines[2].rfind("b           abcdef    Y                    MIDI", 0), 0U) << lines[2];
}

TEST(CliListTest, NothingLoadedIsStatusThreeWithTheReason) {
  const TempFolder folder;
  const ProcessResult empty = Cli({"list", folder.Path()});
  EXPECT_EQ(empty.exitCode, 3);
  EXPECT_EQ(empty.output, "");
  EXPECT_NE(empty.errors.find("指定されたフォルダ内にファイルが見つかりませんでした"), std::string::npos)
      << empty.errors;
  folder.Write("a.xyz", "");
  folder.MakeFolder("below");
  const ProcessResult leftOut = Cli({"list", folder.Path()});
  EXPECT_EQ(leftOut.exitCode, 3);
  EXPECT_NE(leftOut.errors.find("ほかの拡張子のファイル： 1 個、検索しなかったサブフォルダ： 1 個）"),
            std::string::npos)
      << leftOut.errors;
  const ProcessResult missing = Cli({"list", folder.At("missing")});
  EXPECT_EQ(missing.exitCode, 3);
  EXPECT_NE(missing.errors.find("指定されたパスにアクセスできません"), std::string::npos) << missing.errors;
}

/// A file whose tag of version 2.4 the program's own reader leaves out.
std::string NewerMp3() {
  return Id3v2Tag({.major = 4,
                   .frames = {{"TIT2", Utf8Text("歌")},
                              {"TPE1", Utf8Text("人")},
                              {"TALB", Utf8Text("アルバム")},
                              {"TRCK", Utf8Text("3/12")},
                              {"TDRC", Utf8Text("2003")},
                              {"TCON", Utf8Text("17")}}}) +
         Mp3Audio(116);
}

TEST(CliListTest, TheTagsAskedForAreRead) {
  const TempFolder folder;
  folder.Write("a.mp3", NewerMp3());
  folder.Write("b.flac", FlacFile({{"TITLE", "歌"}}));
  const auto titles = [&](std::vector<std::string> options) {
    std::vector<std::string> arguments = {"list", "--json", "--all"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    arguments.push_back(folder.Path());
    std::vector<std::string> found;
    for (const Json& row : JsonLines(Cli(arguments).output)) found.push_back(row["title"]);
    return found;
  };
  const std::vector<std::string> standard = {"", "---"};
  const std::vector<std::string> all = {"歌", "歌"};
  EXPECT_EQ(titles({}), standard);
  EXPECT_EQ(titles({"--tags", "standard"}), standard);
  EXPECT_EQ(titles({"--tags", "all"}), all);
}

// info

TEST(CliInfoTest, GivesWhatTheTagsAskedForSay) {
  const TempFolder folder;
  const std::string path = folder.Write("a.mp3", NewerMp3());
  const Json all = Json::parse(Cli({"info", "--json", "--tags", "all", path}).output);
  EXPECT_EQ(all["title"], "歌");
  EXPECT_EQ(all["artist"], "人");
  EXPECT_EQ(all["album"], "アルバム");
  EXPECT_EQ(all["track"], 3);
  EXPECT_EQ(all["year"], 2003);
  EXPECT_EQ(all["genre"], "Rock");
  EXPECT_EQ(all["length"], 3023);
  EXPECT_EQ(all["detail"],
            "アーティスト： 人 / アルバム： アルバム / トラック： 3 / 年： 2003 / ジャンル： Rock / 演奏時間： 0:03");
  const Json standard = Json::parse(Cli({"info", "--json", path}).output);
  EXPECT_EQ(standard["title"], "");
  EXPECT_EQ(standard["album"], "");
  EXPECT_EQ(standard["track"], 0);
  EXPECT_TRUE(standard["length"].is_null());
  const std::string older = folder.Write("b.mp3", Mp3Audio(116) + Mp3("Song", "Someone"));
  const Json own = Json::parse(Cli({"info", "--json", "--tags", "all", older}).output);
  EXPECT_EQ(own["title"], "Song");
  EXPECT_TRUE(own["length"].is_number()) << "also where the title is not TagLib's";
  const std::string text = Cli({"info", "--tags", "all", path}).output;
  EXPECT_NE(text.find("album: アルバム\ntrack: 3\nyear: 2003\ngenre: Rock\nlength: 3023\n"), std::string::npos) << text;
}

TEST(CliInfoTest, GivesTheRowAndThePanelLines) {
  const TempFolder folder;
  const std::string path = folder.Write("a.mp3", Mp3("Song", "Someone"));
  const ProcessResult result = Cli({"info", "--json", path});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  const Json object = Json::parse(result.output);
  EXPECT_EQ(object["location"], path);
  EXPECT_EQ(object["type"], "MP3");
  EXPECT_EQ(object["tag_kind"], 0);
  EXPECT_EQ(object["title"], "Song");
  EXPECT_EQ(object["artist"], "Someone");
  EXPECT_EQ(object["album"], "");
  EXPECT_EQ(object["year"], 1999);
  EXPECT_TRUE(object["length"].is_null());
  EXPECT_EQ(object["summary"],
            "サイズ： " + FormatThousands(folder.Read("a.mp3").size()) + " バイト / 種類： MP3 (ID3v1)");
  EXPECT_EQ(object["detail"], "アーティスト： Someone / アルバム： --- / コメント： --- / 年： 1999");
}

TEST(CliInfoTest, TagKindIsGivenForMp3Only) {
  const TempFolder folder;
  const std::string path = folder.Write("a.mid", SimpleMidiFile("Song", ""));
  EXPECT_FALSE(Json::parse(Cli({"info", "--json", path}).output).contains("tag_kind"));
}

TEST(CliInfoTest, EachReaderGivesItsRecord) {
  const TempFolder folder;
  const std::string midi = folder.Write("a.mid", SimpleMidiFile("Song", "Me"));
  const std::string id3v1 = folder.Write("1.mp3", Mp3("Song"));
  Id3v2Parts tag{.major = 3};
  tag.frames = {{"TIT2", AnsiText("Song")}};
  const std::string id3v2 = folder.Write("2.mp3", Id3v2Tag(tag) + Mp3Audio(2));
  const std::string riff = folder.Write("3.mp3", RmpFile({{"INAM", "Song"}}));
  const std::string html = folder.Write("page.html", HtmlPage("Song", ""));
  const struct {
    const char* reader;
    std::string path;
    std::vector<std::string> fields;
    const char* titleField;
  } kCases[] = {
      {"midi", midi, {"format", "track_count", "division", "title", "copyright"}, "title"},
      {"id3v1", id3v1, {"version_1_1", "title", "artist", "album", "year", "comment", "track", "genre"}, "title"},
      {"id3v2",
       id3v2,
       {"major_version",
        "revision",
        "unsynchronisation",
        "extended_header",
        "experimental",
        "crc_present",
        "tag_size",
        "crc",
        "content_group",
        "title",
        "subtitle",
        "artist",
        "band",
        "conductor",
        "remixer",
        "album",
        "year",
        "comment_description",
        "comment",
        "track",
        "genre"},
       "title"},
      {"riff", riff, {"name", "artist", "product", "creation_date", "comment"}, "name"},
      {"html", html, {"title"}, "title"}};
  for (const auto& row : kCases) {
    SCOPED_TRACE(row.reader);
    const ProcessResult result = Cli({"info", "--json", "--reader", row.reader, row.path});
    const auto object = nlohmann::ordered_json::parse(result.output);
    std::vector<std::string> names;
    for (const auto& [name, value] : object.items()) names.push_back(name);
    std::vector<std::string> expected = {"location", "reader"};
    expected.insert(expected.end(), row.fields.begin(), row.fields.end());
    EXPECT_EQ(names, expected);
    EXPECT_EQ(object["reader"], row.reader);
    EXPECT_EQ(object[row.titleField], "Song");
  }
}

TEST(CliInfoTest, AMissingFileIsReportedAndTheOthersAreShown) {
  const TempFolder folder;
  const std::string path = folder.Write("a.mid", SimpleMidiFile("Song", ""));
  const ProcessResult result = Cli({"info", "--json", folder.At("missing.mid"), path});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(JsonLines(result.output).size(), 1U);
  EXPECT_NE(result.errors.find("missing.mid"), std::string::npos);
}

TEST(CliInfoTest, AReaderThatFailsSaysSo) {
  const TempFolder folder;
  const std::string path = folder.Write("page.html", "</title>");
  EXPECT_TRUE(Json::parse(Cli({"info", "--json", "--reader", "html", path}).output).contains("error"));
}

// modify

TEST(CliModifyTest, TransformsEachLineByTheRulesOfTheSettings) {
  const TempFolder folder;
  const std::string settings = folder.Write(
      "q.ini",
      "[Modify]\r\nReviceFlag=1\r\nReviceText=_\r\n0ReplaceFlag=1\r\n0ReplaceObject=x\r\n0ReplaceRepace=y\r\n");
  const ProcessResult result = Cli({"modify", "--settings", settings}, "a:b?c\nxx\n\nさくら");
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_EQ(result.output, "a_b_c\nyy\n\nさくら\n");
}

TEST(CliModifyTest, AListCountThatIsNoCountIsWrongUsage) {
  const TempFolder folder;
  const std::string settings = folder.Write("q.ini", "[Modify]\n");
  for (const char* const count : {"-1", "99999999999999999999", "abc", "1.5"}) {
    EXPECT_EQ(Cli({"modify", "--settings", settings, "--list-count", count}, "a\n").exitCode, 2) << count;
  }
}

TEST(CliModifyTest, ARuleIsAppliedOncePerRowOfTheList) {
  const TempFolder folder;
  const std::string settings = folder.Write("q.ini", "[Modify]\n0ReplaceFlag=1\n0ReplaceObject=a\n0ReplaceRepace=aa\n");
  EXPECT_EQ(Cli({"modify", "--settings", settings, "--list-count", "3"}, "a\n").output, "aaaaaaaa\n");
  EXPECT_EQ(Cli({"modify", "--settings", settings}, "a\nb\n").output, "aaaa\nb\n");
}

TEST(CliModifyTest, ARuleIsAppliedOnceOnDemand) {
  const TempFolder folder;
  const std::string rules = "[Modify]\n0ReplaceFlag=1\n0ReplaceObject=a\n0ReplaceRepace=aa\n";
  const std::string settings = folder.Write("q.ini", rules);
  EXPECT_EQ(Cli({"modify", "--settings", settings, "--once"}, "a\nb\n").output, "aa\nb\n");
  const std::string once = folder.Write("once.ini", rules + "[Extra]\nRunRulesOnce=1\n");
  EXPECT_EQ(Cli({"modify", "--settings", once}, "a\nb\n").output, "aa\nb\n");
  EXPECT_EQ(Cli({"modify", "--settings", once, "--list-count", "3"}, "a\n").output, "aa\n");
}

TEST(CliModifyTest, RegularExpressionsGoThroughTheLoadedLibrary) {
  const TempFolder folder;
  const std::string settings =
      folder.Write("q.ini",
                   "[Modify]\nFindCtrl=1\n0ReplaceFlag=1\n0ReplaceObject=^\\d+\\s\n0ReplaceRepace=\n"
                   "1ReplaceFlag=1\n1ReplaceObject=(.+)-(.+)\n1ReplaceRepace=$2+$1\n");
  EXPECT_EQ(Cli({"modify", "--settings", settings, "--list-count", "1"}, "01 さくら-春\n").output, "春+さくら\n");
}

TEST(CliModifyTest, ANameThatWouldGrowWithoutEndStaysAsItWas) {
  const TempFolder folder;
  const std::string settings = folder.Write("q.ini", "[Modify]\n0ReplaceFlag=1\n0ReplaceObject=a\n0ReplaceRepace=aa\n");
  const ProcessResult result = Cli({"modify", "--settings", settings, "--list-count", "100000"}, "banana\nbbb\n");
  EXPECT_EQ(result.output, "banana\nbbb\n");
  EXPECT_NE(result.errors.find("1 個のリネーム名"), std::string::npos) << result.errors;
}

TEST(CliModifyTest, ADamagedOrMissingSettingsFileIsAnError) {
  const TempFolder folder;
  const std::string damaged = folder.Write("q.ini", "[Player]\nRepeat=40000\n");
  const ProcessResult result = Cli({"modify", "--settings", damaged}, "a\n");
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_EQ(result.output, "");
  EXPECT_NE(result.errors.find("設定ファイルが壊れている可能性があります"), std::string::npos) << result.errors;
  EXPECT_EQ(Cli({"modify", "--settings", folder.At("missing.ini")}, "a\n").exitCode, 2);
}

TEST(CliModifyTest, ASettingsFileThatCannotBeReadIsAnError) {
  const TempFolder folder;
  const std::string large = folder.Write("large.ini", std::string((1u << 20u) + 1, '\n'));
  for (const std::string& path : {large, folder.MakeFolder("folder.ini"), folder.At("missing.ini")}) {
    const ProcessResult result = Cli({"modify", "--settings", path}, "a\n");
    EXPECT_EQ(result.exitCode, 2) << path;
    EXPECT_EQ(result.output, "") << path;
    EXPECT_NE(result.errors.find("設定ファイルを読み込めません: " + path), std::string::npos) << result.errors;
  }
}

TEST(CliModifyTest, APresetOfTheSettingsOrOfTheProgramGivesTheRules) {
  const TempFolder folder;
  const std::string settings =
      folder.Write("q.ini", "[Modify]\nUpper=1\n[Preset mine]\n0ReplaceFlag=1\n0ReplaceObject=a\n0ReplaceRepace=b\n");
  EXPECT_EQ(Cli({"modify", "--settings", settings, "--preset", "Mine"}, "aA\n").output, "bA\n");
  EXPECT_EQ(Cli({"modify", "--settings", settings, "--preset", "全角を半角にする"}, "Ａ１\n").output, "A1\n");
  EXPECT_EQ(Cli({"modify", "--preset", "全角を半角にする"}, "Ａ１\n").output, "A1\n") << "without a settings file";
  const std::string own = folder.Write("own.ini", "\xEF\xBB\xBF[Preset 全角を半角にする]\nLower=1\n");
  EXPECT_EQ(Cli({"modify", "--settings", own, "--preset", "全角を半角にする"}, "Ａ１\n").output, "ａ１\n")
      << "one's own comes first";
}

TEST(CliModifyTest, AWrongPresetIsWrongUsageThatNamesThoseThereAre) {
  const TempFolder folder;
  const std::string settings = folder.Write("q.ini", "[Preset mine]\n[Preset bad]\nUpper=40000\n");
  const ProcessResult wrong = Cli({"modify", "--settings", settings, "--preset", "min"}, "a\n");
  EXPECT_EQ(wrong.exitCode, 2);
  EXPECT_EQ(wrong.output, "");
  const std::vector<std::string> lines = Lines(wrong.errors);
  ASSERT_EQ(lines.size(), 13u) << wrong.errors;
  EXPECT_NE(lines[0].find("min"), std::string::npos);
  EXPECT_EQ(lines[1], "  mine");
  EXPECT_EQ(lines[3], "  先頭のトラック番号を取り除く");
  const ProcessResult bad = Cli({"modify", "--settings", settings, "--preset", "bad"}, "a\n");
  EXPECT_EQ(bad.exitCode, 2);
  EXPECT_NE(bad.errors.find("[Preset bad] Upper=40000"), std::string::npos) << bad.errors;
  ExpectWrongUsage({"modify", "--preset", ""});
  ExpectWrongUsage({"modify", "--preset", "mine"});
}

TEST(CliModifyTest, AnExportedPresetIsASettingsFile) {
  const TempFolder folder;
  OptionValues::Modify rules;
  rules.rules[0] = {true, "a", "音"};
  const std::string path = folder.At("out.ini");
  ASSERT_EQ(WritePresetFile(path, {"私の規則", rules}), std::nullopt);
  EXPECT_EQ(Cli({"modify", "--settings", path}, "aa\n").output, "音音\n");
  EXPECT_EQ(Cli({"modify", "--settings", path, "--preset", "私の規則"}, "aa\n").output, "音音\n");
  folder.Write("files/a.mid");
  const ProcessResult result = Cli({"rename", "--modify", "--settings", path, "--apply", folder.At("files")});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_TRUE(folder.Exists("files/音.mid"));
}

// rename

TEST(CliRenameTest, APresetEditsTheNamesByItself) {
  const TempFolder folder;
  folder.Write("files/01 - song.mid");
  const ProcessResult result =
      Cli({"rename", "--preset", "先頭のトラック番号を取り除く", "--apply", folder.At("files")});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_TRUE(folder.Exists("files/song.mid"));
  ExpectWrongUsage({"rename", "--preset", "none", folder.At("files")});
  const std::string plan =
      folder.Write("plan", Json({{"old", folder.At("files/song.mid")}, {"new", folder.At("files/other.mid")}}).dump());
  EXPECT_EQ(Cli({"rename", "--plan", plan}).exitCode, 0);
  ExpectWrongUsage({"rename", "--preset", "全角を半角にする", "--plan", plan});
}

TEST(CliRenameTest, TheDryRunShowsExactlyWhatApplyingThenDoes) {
  const TempFolder folder;
  folder.Write("1.MP3", Mp3("さくら "));
  folder.Write("2.mp3", Mp3("Second"));
  folder.Write("untitled.mp3", Mp3Audio(2));
  folder.Write("invalid.mp3", Mp3("what?"));
  const ProcessResult plan = Cli({"rename", "--to-title", folder.Path()});
  EXPECT_EQ(plan.exitCode, 1) << plan.errors;
  EXPECT_TRUE(folder.Exists("1.MP3"));
  EXPECT_EQ(Lines(plan.output),
            (std::vector<std::string>{folder.At("1.MP3") + " -> " + folder.At("さくら.mp3"),
                                      folder.At("2.mp3") + " -> " + folder.At("Second.mp3"),
                                      folder.At("invalid.mp3") + ": リネーム名に不正な文字が含まれています"}));
  const ProcessResult done = Cli({"rename", "--to-title", "--apply", folder.Path()});
  EXPECT_EQ(done.exitCode, 1);
  EXPECT_EQ(Lines(done.output),
            (std::vector<std::string>{folder.At("invalid.mp3") + ": リネーム名に不正な文字が含まれています",
                                      "3 個のファイルを適応しました", "1 個のファイルがエラーでスキップされました"}));
  for (const char* name : {"さくら.mp3", "Second.mp3", "untitled.mp3", "invalid.mp3"}) {
    EXPECT_TRUE(folder.Exists(name)) << name;
  }
}

TEST(CliRenameTest, NothingIsEverReplaced) {
  const TempFolder folder;
  folder.Write("1.mp3", Mp3("same") + "");
  folder.Write("2.mp3", Mp3("same", "Other"));
  const std::string second = folder.Read("2.mp3");
  const ProcessResult plan = Cli({"rename", "--to-title", folder.Path()});
  const ProcessResult done = Cli({"rename", "--to-title", "--apply", folder.Path()});
  for (const ProcessResult& result : {plan, done}) {
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.output.find(folder.At("2.mp3") + ": リネーム名と同名のファイルが存在します"), std::string::npos)
        << result.output;
  }
  EXPECT_TRUE(folder.Exists("same.mp3"));
  EXPECT_EQ(folder.Read("2.mp3"), second);
}

TEST(CliRenameTest, AllAppliedIsStatusZero) {
  const TempFolder folder;
  folder.Write("1.mp3", Mp3("One"));
  const ProcessResult result = Cli({"rename", "--to-title", "--apply", folder.Path()});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.output, "1 個のファイルを適応しました\nエラーでスキップされたファイルはありません\n");
}

TEST(CliRenameTest, ModifiesByTheSettings) {
  const TempFolder folder;
  folder.Write("files/01 a.mp3", Mp3("x"));
  const std::string settings = folder.Write(
      "q.ini", "[Modify]\nFindCtrl=1\n0ReplaceFlag=1\n0ReplaceObject=^\\d+\\s\n0ReplaceRepace=\nUpper=1\n");
  const ProcessResult result = Cli({"rename", "--modify", "--settings", settings, "--apply", folder.At("files")});
  EXPECT_EQ(result.exitCode, 0) << result.output << result.errors;
  EXPECT_TRUE(folder.Exists("files/A.mp3"));
}

TEST(CliRenameTest, AppliesARuleOnceOnDemand) {
  const TempFolder folder;
  folder.Write("files/a.mp3", Mp3("x"));
  folder.Write("files/b.mp3", Mp3("ax"));
  const std::string rules = "[Modify]\n0ReplaceFlag=1\n0ReplaceObject=a\n0ReplaceRepace=aa\n[Rename]\nRenameModify=1\n";
  const std::string settings = folder.Write("q.ini", rules);
  const std::string once = folder.Write("once.ini", rules + "[Extra]\nRunRulesOnce=1\n");
  const auto names = [&](std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "rename");
    arguments.push_back(folder.At("files"));
    return Cli(arguments).output;
  };
  EXPECT_THAT(names({"--modify", "--settings", settings}), testing::HasSubstr("aaaa.mp3"));
  for (const auto& how : {std::vector<std::string>{"--settings", settings, "--once"}, {"--settings", once}}) {
    for (const auto& [command, expected] : {std::pair{"--modify", "aa.mp3"}, std::pair{"--to-title", "aax.mp3"}}) {
      std::vector<std::string> arguments = how;
      arguments.insert(arguments.begin(), command);
      const std::string output = names(arguments);
      EXPECT_THAT(output, testing::HasSubstr(expected)) << command;
      EXPECT_THAT(output, testing::Not(testing::HasSubstr("aaa"))) << command;
    }
  }
}

TEST(CliRenameTest, MakesNamesByAPattern) {
  const TempFolder folder;
  folder.Write("1.mp3", Mp3("One", "Taki"));
  folder.Write("2.mp3", Mp3("Two", ""));
  folder.Write("3.wav", WaveFile(10));
  const ProcessResult plan = Cli({"rename", "--format", "{title?{n:02} {artist}{artist? - }{title}}", folder.Path()});
  EXPECT_EQ(Lines(plan.output), (std::vector<std::string>{folder.At("1.mp3") + " -> " + folder.At("01 Taki - One.mp3"),
                                                          folder.At("2.mp3") + " -> " + folder.At("02 Two.mp3")}))
      << "the row without a title keeps its name";
  EXPECT_EQ(plan.exitCode, 0) << plan.errors;
  const ProcessResult done =
      Cli({"rename", "--format", "{n}", "--start", "-10", "--step", "20", "--apply", folder.Path()});
  EXPECT_EQ(done.exitCode, 0) << done.errors;
  for (const char* name : {"-10.mp3", "10.mp3", "30.wav"}) EXPECT_TRUE(folder.Exists(name)) << name;
}

TEST(CliRenameTest, ThePatternsNamesArePassedToTheRulesAndTreatedAsTheSettingsSay) {
  const TempFolder folder;
  folder.Write("files/1.mp3", Mp3("AC/DC"));
  folder.Write("files/2.wav", WaveFile(10));
  const std::string settings = folder.Write(
      "q.ini",
      "[Modify]\nLower=1\n[Rename]\nNoTitleSkip=0\n[Extra]\nPatternInvalid=3\nPatternStart=7\nPatternWidth=3\n");
  const ProcessResult result =
      Cli({"rename", "--format", "{title?{title} {n}}", "--modify", "--settings", settings, folder.At("files")});
  EXPECT_EQ(Lines(result.output),
            (std::vector<std::string>{folder.At("files/1.mp3") + " -> " + folder.At("files/ac／dc 007.mp3"),
                                      folder.At("files/2.wav") + ": リネーム名が存在しません"}));
}

TEST(CliRenameTest, APatternReadsTagsThatNoRowShows) {
  const TempFolder folder;
  folder.Write("1.mp3", Id3v2Tag({.frames = {{"TIT2", AnsiText("One")}, {"TALB", AnsiText("Spring")}}}) + Mp3Audio(1));
  const ProcessResult plan = Cli({"rename", "--format", "{album|none} {title}", folder.Path()});
  EXPECT_EQ(Lines(plan.output), (std::vector<std::string>{folder.At("1.mp3") + " -> " + folder.At("Spring One.mp3")}));
}

TEST(CliRenameTest, AWrongPatternIsWrongUsage) {
  const TempFolder folder;
  folder.Write("1.mp3", Mp3("One"));
  const ProcessResult wrong = Cli({"rename", "--format", "曲 {titel}", "--apply", folder.Path()});
  EXPECT_EQ(wrong.exitCode, 2);
  EXPECT_EQ(wrong.errors, "--format: 4 文字目： 「titel」というフィールドはありません\n");
  EXPECT_EQ(Cli({"rename", "--format", "", folder.Path()}).exitCode, 2);
  EXPECT_EQ(Cli({"rename", "--format", "{title}", "--to-title", folder.Path()}).exitCode, 2);
  EXPECT_EQ(Cli({"rename", "--start", "1", folder.Path()}).exitCode, 2) << "there is nothing to count";
  EXPECT_EQ(Cli({"rename", "--format", "{n}", "--step", "x", folder.Path()}).exitCode, 2);
  EXPECT_EQ(Cli({"rename", "--format", "{n}", "--step", "1000000000", folder.Path()}).exitCode, 2);
  EXPECT_TRUE(folder.Exists("1.mp3"));
}

TEST(CliRenameTest, TitlesAreSkippedAsTheSettingsSay) {
  const TempFolder folder;
  folder.Write("files/clip.wav", WaveFile(10));
  const std::string settings = folder.Write("q.ini", "[Rename]\nNoTitleSkip=0\n");
  EXPECT_EQ(Cli({"rename", "--to-title", folder.At("files")}).output, "");
  const ProcessResult result = Cli({"rename", "--to-title", "--settings", settings, folder.At("files")});
  EXPECT_EQ(result.output, folder.At("files/clip.wav") + " -> " + folder.At("files/---.wav") + "\n");
}

TEST(CliRenameTest, JsonGivesOneObjectPerFileAndTheSummary) {
  const TempFolder folder;
  folder.Write("1.mp3", Mp3("One"));
  folder.Write("2.mp3", Mp3("a|b"));
  const std::vector<Json> objects = JsonLines(Cli({"rename", "--json", "--to-title", "--apply", folder.Path()}).output);
  ASSERT_EQ(objects.size(), 3U);
  EXPECT_EQ(objects[0]["old"], folder.At("1.mp3"));
  EXPECT_EQ(objects[0]["new"], folder.At("One.mp3"));
  EXPECT_EQ(objects[1]["code"], 2);
  EXPECT_EQ(objects[1]["reason"], "リネーム名に不正な文字が含まれています");
  EXPECT_EQ(objects[2]["applied"], 1);
  EXPECT_EQ(objects[2]["skipped"], 1);
}

TEST(CliRenameTest, NothingLoadedIsStatusThree) {
  const TempFolder folder;
  EXPECT_EQ(Cli({"rename", "--to-title", "--apply", folder.Path()}).exitCode, 3);
}

TEST(CliRenameTest, TitlesAreThoseOfTheTagsAskedFor) {
  const TempFolder folder;
  const std::string path = folder.Write("a.mp3", NewerMp3());
  const auto names = [&](const char* tags) {
    return JsonLines(Cli({"rename", "--json", "--to-title", "--tags", tags, folder.Path()}).output);
  };
  EXPECT_TRUE(names("standard").empty());
  const std::vector<Json> renamed = names("all");
  ASSERT_EQ(renamed.size(), 1U);
  EXPECT_EQ(renamed[0]["new"], folder.At("歌.mp3"));
}

// usage

TEST(CliUsageTest, WrongUsageIsStatusTwoWithAMessage) {
  const TempFolder folder;
  const std::vector<std::string> kCases[] = {{},
                                             {"list"},
                                             {"unknown"},
                                             {"list", "--unknown", folder.Path()},
                                             {"info", "--reader", "ogg", folder.Path()},
                                             {"info", "--reader", "5", folder.Path()},
                                             {"list", "--tags", "some", folder.Path()},
                                             {"move", "--tags", "all", "--to", "x", folder.Path()},
                                             {"modify"},
                                             {"list", "--all", "--ext", "mid", folder.Path()},
                                             {"modify", "--settings", "x", "--list-count", "-1"},
                                             {"modify", "--settings", "x", "--list-count", "3", "--once"},
                                             {"rename", "--plan", "x", "--once"}};
  for (const std::vector<std::string>& arguments : kCases) ExpectWrongUsage(arguments);
}

TEST(CliUsageTest, HelpAndVersionGoToStandardOutput) {
  const ProcessResult help = Cli({"--help"});
  EXPECT_EQ(help.exitCode, 0);
  EXPECT_NE(help.output.find("rename"), std::string::npos);
  const ProcessResult version = Cli({"--version"});
  EXPECT_EQ(version.exitCode, 0);
  EXPECT_EQ(version.output.substr(0, 4), "1.01");
}

TEST(CliUsageTest, TheHelpIsInTheUsersLanguage) {
  const std::string first = UserReadsJapanese() ? "使い方: quillon-cli list" : "Usage: quillon-cli list";
  EXPECT_NE(Cli({"list", "--help"}).output.find(first), std::string::npos);
}

// mci

std::string OpenLine(const std::string& path) {
  return "Open \"" + path + "\" alias X";
}

TEST(CliMciTest, EveryCommandIsAnsweredByALine) {
  const TempFolder folder;
  const std::string path = folder.Write("荒城の月 1.wav", WaveFile(1000));
  const ProcessResult result = Cli({"mci"}, OpenLine(path) +
                                                "\nset X time format milliseconds\nstatus X length\nstatus X mode\n"
                                                "Close X\nClose X\n");
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  const std::vector<std::string> lines = Lines(result.output);
  ASSERT_EQ(lines.size(), 6U);
  EXPECT_EQ(lines[0].find("error"), std::string::npos) << lines[0];
  EXPECT_EQ(lines[1], "");
  EXPECT_EQ(lines[2], "1000");
  EXPECT_EQ(lines[3], "stopped");
  EXPECT_EQ(lines[4], "");
  EXPECT_EQ(lines[5], "error 263");
}

TEST(CliMciTest, EmptyLinesAndCommentsAreSkipped) {
  const ProcessResult result = Cli({"mci"}, "\n# Close X\n\r\n");
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_EQ(result.output, "");
}

TEST(CliMciTest, LinesMayEndAsOnWindowsAndTheLastMayHaveNoEnd) {
  EXPECT_EQ(Lines(Cli({"mci"}, "Close X\r\nClose X").output), (std::vector<std::string>{"error 263", "error 263"}));
}

TEST(CliMciTest, WaitTakesItsTimeAndAnswersNothing) {
  const auto start = std::chrono::steady_clock::now();
  const ProcessResult result = Cli({"mci"}, "wait 300\nClose X\n");
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(300));
  EXPECT_EQ(result.output, "error 263\n");
}

TEST(CliMciTest, AwaitAnswersTheModeThatItEndsWith) {
  const TempFolder folder;
  const std::string open = OpenLine(folder.Write("a.wav", WaveFile(1000)));
  const ProcessResult result = Cli({"mci"}, open + "\nawait X stopped 60000\nawait X playing 100\n");
  const std::vector<std::string> lines = Lines(result.output);
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[1], "stopped");
  EXPECT_EQ(lines[2], "stopped");
}

TEST(CliMciTest, TwoHundredFilesAtOnceAreEachAnsweredAndTheProgramEnds) {
  const TempFolder folder;
  const std::string path = folder.Write("a.wav", WaveFile(1000));
  std::string commands;
  for (int i = 0; i < 200; ++i) commands += "open \"" + path + "\" alias N" + std::to_string(i) + "\n";
  const ProcessResult result = Cli({"mci"}, commands + "close all\nstatus N0 mode\n");
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  const std::vector<std::string> lines = Lines(result.output);
  ASSERT_EQ(lines.size(), 202U);
  EXPECT_EQ(lines[200], "");
  EXPECT_TRUE(lines[201].starts_with("error ")) << lines[201];
}

TEST(CliMciTest, AwaitOfAnAliasThatIsNotOpenEndsAtOnce) {
  EXPECT_EQ(Cli({"mci"}, "await X stopped 60000\n").output.rfind("error ", 0), 0U);
}

}  // namespace
}  // namespace quillon::test
