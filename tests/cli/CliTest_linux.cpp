// Features of Linux only: names of any bytes, signals, pipes.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "support/MediaBuilders.h"
#include "support/Process.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

TEST(CliBytesTest, ANameThatIsNotUtf8IsListedWithItsBytesAndRenamedWithoutDamage) {
  const TempFolder folder;
  folder.Write("a\xFF.mp3", Mp3Audio(2) + Id3v1Trailer({.title = "Song"}));
  const ProcessResult listed = RunProcess(QUILLON_CLI, {"list", "--json", folder.Path()});
  const Json row = Json::parse(listed.output);
  EXPECT_EQ(row["rename_name"], "a\uFFFD");
  EXPECT_EQ(row["location"], folder.At("a\uFFFD.mp3"));
  const std::string bytes = row["location_bytes"];
  EXPECT_EQ(bytes.substr(bytes.size() - 12), "61ff2e6d7033");
  EXPECT_EQ(RunProcess(QUILLON_CLI, {"rename", "--apply", "--to-title", folder.Path()}).exitCode, 0);
  EXPECT_TRUE(folder.Exists("Song.mp3"));
}

TEST(CliBytesTest, EachNameIsListedAsTheJsonLibraryWritesIt) {
  const TempFolder folder;
  for (const char* const name :
       {"\x01", "back\\slash", "line\nfeed", "del\x7F", "\"quoted\"", "\U0001F3B5", "さくら", "\xE3\x81", "\xFF\xFE"}) {
    folder.Write(std::string(name) + ".wav");
  }
  std::istringstream lines(RunProcess(QUILLON_CLI, {"list", "--json", folder.Path()}).output);
  int count = 0;
  for (std::string line; std::getline(lines, line); ++count)
    EXPECT_EQ(nlohmann::ordered_json::parse(line).dump(), line);
  EXPECT_EQ(count, 9);
}

TEST(CliBytesTest, NamesThatAreNotUtf8ChangePlacesAndComeBack) {
  const TempFolder folder;
  const TempFolder files;
  folder.Write("a\xFF.mid", "a");
  folder.Write("b.mid", "b");
  const auto hexadecimal = [](const std::string& text) {
    std::string digits;
    for (const char c : text) {
      constexpr std::string_view kDigits = "0123456789abcdef";
      digits += kDigits[static_cast<unsigned char>(c) / 16];
      digits += kDigits[static_cast<unsigned char>(c) % 16];
    }
    return digits;
  };
  const std::string bytes = hexadecimal(folder.At("a\xFF.mid"));
  const std::string plan =
      files.Write("plan", Json{{"old", "?"}, {"old_bytes", bytes}, {"new", "b.mid"}}.dump() + "\n" +
                              Json{{"old", folder.At("b.mid")}, {"new", "?"}, {"new_bytes", bytes}}.dump() + "\n");
  const ProcessResult done = RunProcess(QUILLON_CLI, {"rename", "--plan", plan, "--apply", "--log", files.At("log")});
  EXPECT_EQ(done.exitCode, 0) << done.errors;
  EXPECT_EQ(folder.Read("a\xFF.mid") + folder.Read("b.mid"), "ba");
  EXPECT_EQ(RunProcess(QUILLON_CLI, {"undo", "--apply", files.At("log")}).exitCode, 0);
  EXPECT_EQ(folder.Read("a\xFF.mid") + folder.Read("b.mid"), "ab");
}

TEST(CliBytesTest, EachFileHasOneLineWhateverItsTitleHolds) {
  const TempFolder folder;
  folder.Write("1.mp3", Mp3Audio(2) + Id3v1Trailer({.title = "one\ntwo"}));
  EXPECT_EQ(RunProcess(QUILLON_CLI, {"rename", "--to-title", folder.Path()}).output,
            folder.At("1.mp3") + " -> " + folder.At("one\uFFFDtwo.mp3") + "\n");
}

TEST(CliBytesTest, ALinkThatLeadsNowhereIsInTheWayInTheDryRunToo) {
  const TempFolder folder;
  folder.Write("1.mp3", Mp3Audio(2) + Id3v1Trailer({.title = "Song"}));
  ASSERT_EQ(symlink("nowhere", folder.At("Song.mp3").c_str()), 0);
  for (const char* option : {"--to-title", "--apply"}) {
    SCOPED_TRACE(option);
    const ProcessResult result = RunProcess(QUILLON_CLI, {"rename", "--to-title", option, folder.At("1.mp3")});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.output.find("リネーム名と同名のファイルが存在します"), std::string::npos) << result.output;
  }
  EXPECT_TRUE(folder.Exists("1.mp3"));
}

TEST(CliListTest, AFolderBelowTheDepthLimitIsReportedAndCountsAsFailed) {
  const TempFolder folder;
  folder.Write("a.wav");
  std::string deep;
  for (int i = 0; i < 1001; ++i) {
    deep += "d/";
    ASSERT_EQ(mkdir(folder.At(deep).c_str(), 0700), 0);
  }
  const ProcessResult result = RunProcess(QUILLON_CLI, {"list", "--json", "--subfolders", folder.Path()});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.errors, "フォルダ参照: 階層が深すぎます: " + folder.At(deep) + "\n");
  EXPECT_EQ(Json::parse(result.output)["rename_name"], "a");
}

TEST(CliUsageTest, RunningOutOfMemoryIsReportedAsAFailure) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer reserves more memory than the limit";
#endif
  const ProcessResult result =
      RunProcess("/bin/sh", {"-c", "head -c 400000000 /dev/zero | (ulimit -v 200000; exec " QUILLON_CLI " mci)"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.errors, "予期しないエラーが発生しました: メモリが足りません\n");
}

TEST(CliPipeTest, AClosedPipeEndsTheProgramQuietly) {
  const TempFolder folder;
  for (int i = 0; i < 2000; ++i) folder.Write("a long enough file name " + std::to_string(i) + ".wav");
  const ProcessResult result = RunProcess(
      "/bin/sh", {"-c", std::string(QUILLON_CLI) + " list --json " + folder.Path() + " | head -n 1 | wc -l"});
  EXPECT_EQ(result.output, "1\n");
  EXPECT_EQ(result.errors, "");
}

TEST(CliPipeTest, OutputThatCannotBeWrittenIsAFailure) {
  const TempFolder folder;
  folder.Write("a.wav");
  const ProcessResult result =
      RunProcess("/bin/sh", {"-c", std::string(QUILLON_CLI) + " list " + folder.Path() + " >/dev/full"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.errors, "標準出力に書き込めません\n");
}

// Runs the program with only these locale settings.
ProcessResult CliIn(std::vector<std::string> locale, const std::vector<std::string>& arguments) {
  std::vector<std::string> words = {"-u", "LC_ALL", "-u", "LC_MESSAGES", "-u", "LANG"};
  words.insert(words.end(), locale.begin(), locale.end());
  words.emplace_back(QUILLON_CLI);
  words.insert(words.end(), arguments.begin(), arguments.end());
  return RunProcess("/usr/bin/env", words);
}

bool HasJapanese(const std::string& text) {
  return std::any_of(text.begin(), text.end(), [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; });
}

TEST(CliPortable, AFileWithoutAnExtensionGetsItToo) {
  const TempFolder folder;
  folder.Write("end...");
  folder.Write("plain");
  const ProcessResult result = CliIn({"LC_ALL=ja_JP.UTF-8"}, {"rename", "--portable", "--all", folder.Path()});
  EXPECT_EQ(result.output, folder.At("end...") + " -> " + folder.At("end") + "\n") << "plain is no mistake";
  EXPECT_EQ(result.exitCode, 0) << result.output;
}

TEST(CliLocaleTest, TheFirstVariableThatIsSetChoosesTheLanguage) {
  const struct {
    std::vector<std::string> locale;
    bool japanese;
  } kCases[] = {{{"LC_ALL=ja_JP.UTF-8"}, true},
                {{"LC_ALL=C.UTF-8"}, false},
                {{}, false},
                {{"LANG=ja_JP.UTF-8"}, true},
                {{"LANG=ja"}, true},
                {{"LANG=jam_JM.UTF-8"}, false},
                {{"LC_MESSAGES=en_US.UTF-8", "LANG=ja_JP.UTF-8"}, false},
                {{"LC_ALL=", "LC_MESSAGES=ja_JP.UTF-8", "LANG=en_US.UTF-8"}, true},
                {{"LC_ALL=C", "LC_MESSAGES=ja_JP.UTF-8", "LANG=ja_JP.UTF-8"}, false}};
  for (const auto& row : kCases) {
    SCOPED_TRACE(testing::PrintToString(row.locale));
    const ProcessResult result = CliIn(row.locale, {"--help"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(HasJapanese(result.output), row.japanese) << result.output;
  }
}

TEST(CliLocaleTest, EveryLineOfTheHelpIsInTheLocalesLanguage) {
  for (const char* const command :
       {"", "list", "info", "modify", "rename", "move", "undo", "delete", "mci", "completion"}) {
    SCOPED_TRACE(command);
    std::vector<std::string> arguments = {"--help"};
    if (*command != '\0') arguments.insert(arguments.begin(), command);
    EXPECT_FALSE(HasJapanese(CliIn({"LC_ALL=C.UTF-8"}, arguments).output));
    std::istringstream lines(CliIn({"LC_ALL=ja_JP.UTF-8"}, arguments).output);
    for (std::string line; std::getline(lines, line);) {
      // An option whose value is too wide for the left column has a line without words.
      const bool words = line.find_first_not_of(' ') != std::string::npos && line.find(":{") == std::string::npos;
      EXPECT_TRUE(!words || HasJapanese(line)) << line;
    }
  }
}

// Each message is provoked in both languages, and so is every line of what is written to standard output.
TEST(CliLocaleTest, EveryMessageIsInTheLocalesLanguage) {
  const TempFolder folder;
  folder.Write("A.MID", "a");
  folder.Write("b.mid", "b");
  folder.Write("other/b.mid", "c");
  const std::string damaged = folder.Write("damaged.ini", "[Player]\nRepeat=32768\n");
  const std::string names = folder.Write("names", "b\n");
  const std::string plan = folder.Write("plan", "{\"old\":\"" + folder.At("absent") + "\",\"new\":\"x\"}\n{\"old\":\"" +
                                                    folder.At("b.mid") + "\",\"new\":\"?\"}\n");
  const std::string log = folder.Write("log",
                                       "{\"old\":\"/x\",\"new\":\"/y\",\"device\":1,\"file\":2,\"size\":3,"
                                       "\"mtime\":4}\n{");
  const std::string empty = folder.MakeFolder("empty");
  const std::string a = folder.At("A.MID");
  const std::string b = folder.At("b.mid");
  std::vector<std::vector<std::string>> commands = {{"list", b},
                                                    {"list", empty},
                                                    {"list", folder.At("absent")},
                                                    {"rename", a, a},
                                                    {"info", folder.At("absent")},
                                                    {"rename", "--settings", folder.At("absent.ini"), b},
                                                    {"rename", "--settings", damaged, b},
                                                    {"rename", "--names", names, a, b},
                                                    {"rename", "--names", names, a},
                                                    {"rename", "--names", folder.At("absent"), a},
                                                    {"rename", "--apply", "--names", names, a},
                                                    {"rename", "--apply", "--json", "--names", names, a},
                                                    {"rename", "--apply", "--log", names, b},
                                                    {"rename", "--apply", "--log", b, b},
                                                    {"rename", "--apply", "--log", folder.At("absent/log"), b},
                                                    {"rename", "--plan", plan},
                                                    {"rename", "--plan", names},
                                                    {"rename", "--ask", b},
                                                    {"move", "--to", "", b},
                                                    {"move", "--to", folder.At("absent"), b},
                                                    {"move", "--to", b, b},
                                                    {"move", "--to", folder.At("other"), "--apply", b},
                                                    {"move", "--to", folder.At("other"), "--apply", "--json", b},
                                                    {"delete", "--for-good", folder.At("absent"), a},
                                                    {"undo", "--apply", log},
                                                    {"undo", names},
                                                    {"undo", folder.At("absent")}};
  std::string deep = "x";
  for (int i = 0; i < 17; ++i) deep.insert(0, "{n|").append("}");
  for (const std::string& pattern :
       {std::string("{titel}"), std::string("{}"), std::string("{title"), std::string("{title{n}}"),
        std::string("{title:02}"), std::string("{n:x}"), std::string("{date:}"), std::string("{date:yyyy}"),
        std::string("{n:02?x}"), std::string(" "), deep}) {
    commands.push_back({"rename", "--format", pattern, b});
  }
  for (const std::vector<std::string>& command : commands) {
    SCOPED_TRACE(testing::PrintToString(command));
    const ProcessResult english = CliIn({"LC_ALL=C.UTF-8"}, command);
    EXPECT_FALSE(HasJapanese(english.output + english.errors)) << english.output << english.errors;
    const ProcessResult japanese = CliIn({"LC_ALL=ja_JP.UTF-8"}, command);
    EXPECT_TRUE(HasJapanese(japanese.output + japanese.errors)) << japanese.output << japanese.errors;
    EXPECT_EQ(english.exitCode, japanese.exitCode);
  }
}

TEST(CliLocaleTest, WrongUsageIsExplainedInTheLocalesLanguage) {
  const struct {
    std::vector<std::string> arguments;
    const char* english;
    const char* japanese;
  } kCases[] = {{{"list"}, "PATH is required", "必要な引数が足りません (PATH is required)"},
                {{}, "A subcommand is required", "必要な引数が足りません (A subcommand is required)"},
                {{"rename", "--start", "1", "x"},
                 "--start requires --format",
                 "必要な引数が足りません (--start requires --format)"},
                {{"list", ""}, "PATH: an empty PATH names nothing", "値が正しくありません (PATH: PATH が空です)"},
                {{"list", "--none", "x"},
                 "The following argument was not expected: --none",
                 "使えない引数があります (The following argument was not expected: --none)"},
                {{"list", "--all", "--ext", "mid", "x"},
                 "--ext excludes --all",
                 "一緒に使えないオプションがあります (--ext excludes --all)"}};
  for (const auto& row : kCases) {
    SCOPED_TRACE(testing::PrintToString(row.arguments));
    EXPECT_EQ(CliIn({"LC_ALL=C.UTF-8"}, row.arguments).errors,
              std::string(row.english) + "\nRun with --help for more information.\n");
    EXPECT_EQ(CliIn({"LC_ALL=ja_JP.UTF-8"}, row.arguments).errors,
              std::string(row.japanese) + "\n使い方は --help で表示されます。\n");
  }
}

constexpr int kManyFiles = 10000;

std::string Numbered(int number, const char* ending) {
  return "f" + std::to_string(number) + ending;
}

// Sends the program the signal as soon as `begun` is true. Returns its exit status, or -1 when a signal ended it.
int InterruptOnce(const std::function<bool()>& begun, std::vector<std::string> arguments, int signal = SIGINT) {
  arguments.insert(arguments.begin(), QUILLON_CLI);
  std::vector<char*> words;
  for (std::string& argument : arguments) words.push_back(argument.data());
  words.push_back(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    const int nowhere = open("/dev/null", O_RDWR);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    ::signal(SIGHUP, SIG_DFL);
    execv(QUILLON_CLI, words.data());
    _exit(127);
  }
  while (!begun() && waitpid(child, nullptr, WNOHANG) == 0) usleep(100);
  kill(child, signal);
  int status = 0;
  return waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(CliSignalTest, AnInterruptionStopsBetweenTwoFilesAndLosesNone) {
  const TempFolder folder;
  for (int i = 0; i < kManyFiles; ++i) folder.Write(Numbered(i, ".WAV"), std::to_string(i));
  EXPECT_EQ(InterruptOnce([&] { return folder.Exists("f0.wav"); }, {"rename", "--apply", folder.Path()}), 1);
  int renamed = 0;
  for (int i = 0; i < kManyFiles; ++i) {
    const bool done = folder.Exists(Numbered(i, ".wav"));
    EXPECT_NE(done, folder.Exists(Numbered(i, ".WAV"))) << i;
    if (done) ++renamed;
  }
  EXPECT_GT(renamed, 0);
  EXPECT_LT(renamed, kManyFiles);
}

TEST(CliSignalTest, AnInterruptedMoveStopsBetweenTwoFilesAndLosesNone) {
  const TempFolder folder;
  for (int i = 0; i < kManyFiles; ++i) folder.Write("from/" + Numbered(i, ".wav"), std::to_string(i));
  folder.MakeFolder("to");
  EXPECT_EQ(InterruptOnce([&] { return folder.Exists("to/f0.wav"); },
                          {"move", "--to", folder.At("to"), "--apply", folder.At("from")}),
            1);
  int moved = 0;
  for (int i = 0; i < kManyFiles; ++i) {
    const bool done = folder.Exists("to/" + Numbered(i, ".wav"));
    EXPECT_NE(done, folder.Exists("from/" + Numbered(i, ".wav"))) << i;
    if (done) ++moved;
  }
  EXPECT_GT(moved, 0);
  EXPECT_LT(moved, kManyFiles);
}

TEST(CliSignalTest, AnInterruptedMoveStopsInsideALargeFileAndLeavesNothingBehind) {
  std::string there = "/dev/shm/quillon-test-XXXXXX";
  if (mkdtemp(there.data()) == nullptr) GTEST_SKIP() << "/dev/shm cannot be written";
  const TempFolder folder;
  const std::string large = folder.Write("a.wav");
  const std::string next = folder.Write("b.wav", "b");
  constexpr off_t kSize = off_t{16} << 30;  // a sparse file: reading it takes seconds, and nothing is written
  ASSERT_EQ(truncate(large.c_str(), kSize), 0);
  struct stat one = {};
  struct stat other = {};
  ASSERT_EQ(stat(there.c_str(), &one), 0);
  ASSERT_EQ(stat(large.c_str(), &other), 0);
  if (one.st_dev == other.st_dev) GTEST_SKIP() << "/dev/shm is on the same volume";
  const auto copying = [&] { return fs::directory_iterator(there) != fs::directory_iterator(); };
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    SCOPED_TRACE(signal);
    EXPECT_EQ(InterruptOnce(copying, {"move", "--to", there, "--all", "--apply", large, next}, signal), 1);
    EXPECT_FALSE(copying()) << "neither a copy nor a temporary file nor its mark";
    ASSERT_EQ(stat(large.c_str(), &other), 0);
    EXPECT_EQ(other.st_size, kSize);
    EXPECT_EQ(folder.Read("b.wav"), "b");
    for (const auto& left : fs::directory_iterator(there)) fs::remove(left);
  }
  fs::remove_all(there);
}

TEST(CliSignalTest, AnInterruptedDeletionLeavesTheRest) {
  const TempFolder folder;
  for (int i = 0; i < kManyFiles; ++i) folder.Write(Numbered(i, ".wav"));
  EXPECT_EQ(InterruptOnce([&] { return !folder.Exists("f0.wav"); }, {"delete", "--for-good", "--apply", folder.Path()}),
            1);
  int left = 0;
  for (int i = 0; i < kManyFiles; ++i) left += folder.Exists(Numbered(i, ".wav")) ? 1 : 0;
  EXPECT_GT(left, 0);
  EXPECT_LT(left, kManyFiles);
}

}  // namespace
}  // namespace quillon::test
