// Features of Linux only: links, names of any bytes, signals, another volume in memory, a separate trash.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "cli/CliProgram.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* kNamesake = "移動先に同名のファイルがあります";

bool EndsWith(const std::string& text, std::string_view ending) {
  return text.ends_with(ending);
}

TEST(CliMoveTest, AFileIsItsOwnNamesakeBehindALinkToo) {
  const TempFolder folder;
  const std::string path = folder.Write("music/a.mid", "a");
  ASSERT_EQ(symlink("music", folder.At("link").c_str()), 0);
  for (const char* option : {"--subfolders", "--apply"}) {
    SCOPED_TRACE(option);
    const ProcessResult result = Cli({"move", "--to", folder.At("link"), option, path});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(Lines(result.output).at(0), path + ": " + kNamesake);
    EXPECT_EQ(folder.Read("music/a.mid"), "a");
  }
}

TEST(CliMoveTest, AnInaccessibleTargetIsReportedAsSuch) {
  const TempFolder folder;
  const std::string path = folder.Write("a.mid", "a");
  const std::string to = folder.At("locked/to");
  folder.MakeFolder("locked/to");
  ASSERT_EQ(chmod(folder.At("locked").c_str(), 0), 0);
  std::vector<std::string> words = {QUILLON_CLI, "move", "--to", to, "--apply", path};
  if (geteuid() == 0) words.insert(words.begin(), {"setpriv", "--reuid=65534", "--clear-groups"});
  const ProcessResult result = RunProcess("/usr/bin/env", words);
  chmod(folder.At("locked").c_str(), 0700);
  if (result.exitCode == 127) GTEST_SKIP() << "no other user may run the program: " << result.errors;
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_EQ(result.errors, "移動先にアクセスできません: " + to + "\n");
  EXPECT_EQ(folder.Read("a.mid"), "a");
}

TEST(CliInaccessible, AFileThatCannotBeLoadedEndsWithOne) {
  const TempFolder folder;
  folder.Write("a.mid", "a");
  folder.Write("locked/b.mid", "b");
  ASSERT_EQ(chmod(folder.Path().c_str(), 0755), 0);
  ASSERT_EQ(chmod(folder.At("locked").c_str(), 0444), 0);
  std::vector<std::string> words = {QUILLON_CLI, "list", "--json", "--subfolders", folder.Path()};
  if (geteuid() == 0) words.insert(words.begin(), {"setpriv", "--reuid=65534", "--clear-groups"});
  const ProcessResult result = RunProcess("/usr/bin/env", words);
  chmod(folder.At("locked").c_str(), 0700);
  if (result.exitCode == 127) GTEST_SKIP() << "no other user may run the program: " << result.errors;
  EXPECT_EQ(result.exitCode, 1) << result.errors;
  EXPECT_EQ(JsonLines(result.output).size(), 1U) << result.output;
}

TEST(CliRecycleBin, ItsFilesAreNotLoaded) {
  const TempFolder folder;
  folder.Write("a.mid", "a");
  folder.Write(".Trash-1000/files/b.mid", "b");
  const ProcessResult result = Cli({"list", "--json", "--subfolders", folder.Path()});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_EQ(JsonLines(result.output).size(), 1U) << result.output;
}

TEST(CliMoveTest, ALogThatCannotBeReadIsRefused) {
  const TempFolder folder;
  const std::string path = folder.Write("a.mid", "a");
  const std::string to = folder.MakeFolder("to");
  EXPECT_EQ(Cli({"move", "--to", to, "--apply", "--log", "/dev/null", path}).exitCode, 2);
  EXPECT_TRUE(folder.Exists("a.mid"));
}

TEST(CliPlanTest, OneThatFailsEndsWithOne) {
  const TempFolder folder;
  const std::string path = folder.Write("locked/a.mid", "a");
  const std::string plan = folder.Write("plan", "{\"old\": \"" + path + "\", \"new\": \"b.mid\"}\n");
  ASSERT_EQ(chmod(folder.Path().c_str(), 0755), 0);
  ASSERT_EQ(chmod(folder.At("locked").c_str(), 0555), 0);
  std::vector<std::string> words = {QUILLON_CLI, "rename", "--apply", "--plan", plan};
  if (geteuid() == 0) words.insert(words.begin(), {"setpriv", "--reuid=65534", "--clear-groups"});
  const ProcessResult result = RunProcess("/usr/bin/env", words);
  chmod(folder.At("locked").c_str(), 0700);
  if (result.exitCode == 127) GTEST_SKIP() << "no other user may run the program: " << result.errors;
  EXPECT_EQ(result.exitCode, 1) << result.errors;
  EXPECT_TRUE(folder.Exists("locked/a.mid"));
}

TEST(CliMoveTest, ATargetWithATooLongNameIsReported) {
  const TempFolder folder;
  const std::string to = folder.At(std::string(256, 'x'));
  const ProcessResult result = Cli({"move", "--to", to, "--apply", folder.Write("a.mid", "a")});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_EQ(result.errors, "移動先のフォルダがありません: " + to + "\n");
  EXPECT_EQ(folder.Read("a.mid"), "a");
}

TEST(CliMoveTest, ANameThatIsNotUtf8IsReportedWithItsBytesAndMovedUnchanged) {
  const TempFolder folder;
  folder.Write("from/\xFF.mid", "mine");
  folder.Write("from/b\xFE.mid", "other");
  folder.Write("to\xFD/\xFF.mid", "theirs");
  const ProcessResult result = Cli({"move", "--to", folder.At("to\xFD"), "--json", "--apply", folder.At("from")});
  EXPECT_EQ(result.exitCode, 1) << result.errors;
  const std::vector<Json> objects = JsonLines(result.output);
  ASSERT_EQ(objects.size(), 3U);
  const auto& moved = objects[0].contains("code") ? objects[1] : objects[0];
  const auto& refused = objects[0].contains("code") ? objects[0] : objects[1];
  EXPECT_EQ(refused["old"], folder.At("from/\uFFFD.mid"));
  EXPECT_EQ(refused["new"], folder.At("to\uFFFD/\uFFFD.mid"));
  EXPECT_TRUE(EndsWith(refused["old_bytes"], "2fff2e6d6964")) << refused;
  EXPECT_TRUE(EndsWith(refused["new_bytes"], "746ffd2fff2e6d6964")) << refused;
  EXPECT_EQ(refused["reason"], kNamesake);
  EXPECT_TRUE(EndsWith(moved["old_bytes"], "2f62fe2e6d6964")) << moved;
  EXPECT_TRUE(EndsWith(moved["new_bytes"], "746ffd2f62fe2e6d6964")) << moved;
  EXPECT_EQ(folder.Read("from/\xFF.mid"), "mine");
  EXPECT_EQ(folder.Read("to\xFD/\xFF.mid"), "theirs");
  EXPECT_EQ(folder.Read("to\xFD/b\xFE.mid"), "other");
}

TEST(CliDeleteTest, ANameThatIsNotUtf8IsReportedWithItsBytesAndDeleted) {
  const TempFolder folder;
  folder.Write("a\xFF.mid");
  const ProcessResult result = Cli({"delete", "--for-good", "--json", "--apply", folder.Path()});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  const Json object = JsonLines(result.output).at(0);
  EXPECT_EQ(object["path"], folder.At("a\uFFFD.mid"));
  EXPECT_TRUE(EndsWith(object["path_bytes"], "61ff2e6d6964")) << object;
  EXPECT_FALSE(folder.Exists("a\xFF.mid"));
}

TEST(CliMoveTest, EachFileHasOneLineWhateverItsNameHolds) {
  const TempFolder folder;
  const std::string path = folder.Write("one\ntwo.mid");
  folder.MakeFolder("to");
  EXPECT_EQ(Cli({"move", "--to", folder.At("to"), path}).output,
            folder.At("one\uFFFDtwo.mid") + " -> " + folder.At("to/one\uFFFDtwo.mid") + "\n");
  EXPECT_EQ(Cli({"delete", path}).output, folder.At("one\uFFFDtwo.mid") + "\n");
}

TEST(CliMoveTest, ALinkIsMovedAndDeletedItselfAndItsFileStays) {
  const TempFolder folder;
  const std::string file = folder.Write("file.mid", "content");
  folder.MakeFolder("to");
  ASSERT_EQ(symlink(file.c_str(), folder.At("link.mid").c_str()), 0);
  EXPECT_EQ(Cli({"move", "--to", folder.At("to"), "--apply", folder.At("link.mid")}).exitCode, 0);
  EXPECT_EQ(fs::read_symlink(folder.At("to/link.mid")).string(), file);
  EXPECT_EQ(Cli({"delete", "--for-good", "--apply", folder.At("to")}).exitCode, 0);
  EXPECT_FALSE(fs::is_symlink(folder.At("to/link.mid")));
  EXPECT_EQ(folder.Read("file.mid"), "content");
}

/// A folder on the volume in memory, the other volume that nearly every Linux system has.
class CliOtherVolumeTest : public testing::Test {
 protected:
  void SetUp() override {
    std::string name = "/dev/shm/quillon-test-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) GTEST_SKIP() << "/dev/shm cannot be written";
    there_ = name + "/";
    struct stat one = {};
    struct stat other = {};
    ASSERT_EQ(stat(there_.c_str(), &one), 0);
    ASSERT_EQ(stat(here_.Path().c_str(), &other), 0);
    if (one.st_dev == other.st_dev) GTEST_SKIP() << "/dev/shm is on the same volume";
  }

  void TearDown() override {
    std::error_code ignored;
    if (!there_.empty()) fs::remove_all(there_, ignored);
  }

  [[nodiscard]] std::string ReadThere(const std::string& name) const {
    std::ostringstream bytes;
    bytes << std::ifstream(there_ + name, std::ios::binary).rdbuf();
    return bytes.str();
  }

  TempFolder here_;
  std::string there_;
};

TEST_F(CliOtherVolumeTest, FilesAreMovedThereAndNothingElseIsLeftThere) {
  here_.Write("from/a.mid", "a");
  here_.Write("from/さくら 1.mid", std::string(3'000'000, 'x') + "end");
  const ProcessResult result = Cli({"move", "--to", there_, "--apply", "--json", here_.At("from")});
  EXPECT_EQ(result.exitCode, 0) << result.output << result.errors;
  EXPECT_EQ(JsonLines(result.output).back()["moved"], 2);
  EXPECT_EQ(ReadThere("a.mid"), "a");
  EXPECT_EQ(ReadThere("さくら 1.mid"), std::string(3'000'000, 'x') + "end");
  EXPECT_FALSE(here_.Exists("from/a.mid"));
  EXPECT_FALSE(here_.Exists("from/さくら 1.mid"));
  EXPECT_EQ(std::distance(fs::directory_iterator(there_), fs::directory_iterator()), 2);
}

TEST_F(CliOtherVolumeTest, MovesThereAreTakenBackAlsoTwice) {
  here_.Write("from/a.mid", "a");
  here_.Write("from/b\xFF.mid", "b");
  const std::string log = here_.At("log");
  EXPECT_EQ(Cli({"move", "--to", there_, "--apply", "--log", log, here_.At("from")}).exitCode, 0);
  EXPECT_FALSE(here_.Exists("from/a.mid"));
  const std::vector<Json> lines = JsonLines(here_.Read("log"));
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_EQ(lines[1]["copied"], true);
  EXPECT_NE(lines[1]["device"], lines[0]["device"]);
  for (const int undone : {2, 0}) {
    const ProcessResult result = Cli({"undo", "--apply", "--json", log});
    EXPECT_EQ(result.exitCode, 0) << result.output;
    EXPECT_EQ(JsonLines(result.output).back()["undone"], undone);
    EXPECT_EQ(here_.Read("from/a.mid") + here_.Read("from/b\xFF.mid"), "ab");
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(there_), fs::directory_iterator()), 0);
}

TEST_F(CliOtherVolumeTest, MovesThatAreKilledAreTakenBack) {
  constexpr int kFiles = 40;
  const auto name = [](int number) { return "from/" + std::to_string(number) + ".mid"; };
  const auto content = [](int number) { return std::to_string(number) + std::string(100'000, 'x'); };
  for (int i = 0; i < kFiles; ++i) here_.Write(name(i), content(i));
  const std::string log = here_.At("log");
  const unsigned seed = std::random_device()();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  int between = 0;
  for (int round = 0; round < 30; ++round) {
    here_.Write("log");
    const pid_t child = fork();
    if (child == 0) {
      dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
      execl(QUILLON_CLI, QUILLON_CLI, "move", "--to", there_.c_str(), "--apply", "--log", log.c_str(),
            here_.At("from").c_str(), nullptr);
      _exit(127);
    }
    const std::size_t moment = 1 + random() % (std::size_t{2} * kFiles - 2);  // in lines of the log
    bool ended = false;
    while (!ended && Lines(here_.Read("log")).size() < moment) {
      usleep(200);
      ended = waitpid(child, nullptr, WNOHANG) == child;
    }
    if (!ended) {
      usleep(static_cast<useconds_t>(random() % 1000));
      kill(child, SIGKILL);
      waitpid(child, nullptr, 0);
    }
    const std::size_t logged = Lines(here_.Read("log")).size();
    between += logged > 0 && logged < std::size_t{2} * kFiles ? 1 : 0;
    // A file that was killed between its copy and the deletion of the source is at both places, and told.
    const ProcessResult result = Cli({"undo", "--apply", "--json", log});
    EXPECT_LE(JsonLines(result.output).back()["failed"], 1);
    for (int i = 0; i < kFiles; ++i) ASSERT_EQ(here_.Read(name(i)), content(i)) << "round " << round;
    fs::remove_all(there_);
    fs::create_directory(there_);
  }
  EXPECT_GT(between, 3);
}

TEST_F(CliOtherVolumeTest, AFileThatWentThereAndBackComesBackToItsName) {
  here_.Write("from/a.mid", "a");
  here_.MakeFolder("to");
  const std::string log = here_.At("log");
  EXPECT_EQ(Cli({"move", "--to", there_, "--apply", "--log", log, here_.At("from/a.mid")}).exitCode, 0);
  EXPECT_EQ(Cli({"move", "--to", here_.At("to"), "--apply", "--log", log, there_ + "/a.mid"}).exitCode, 0);
  const ProcessResult shown = Cli({"undo", log});
  EXPECT_EQ(shown.output, here_.At("to/a.mid") + " -> " + here_.At("from/a.mid") + "\n") << shown.errors;
  EXPECT_EQ(Cli({"undo", "--apply", log}).exitCode, 0);
  EXPECT_EQ(here_.Read("from/a.mid"), "a");
  EXPECT_FALSE(here_.Exists("to/a.mid"));
}

TEST(CliUndoTest, ARefusedRenameOfAHardLinkNeedsNoWayBack) {
  const TempFolder folder;
  const std::string a = folder.Write("a.mid", "a");
  ASSERT_EQ(link(a.c_str(), folder.At("b.mid").c_str()), 0);
  const TempFolder other;
  const std::string names = other.Write("names", "b\n");
  const std::string log = other.At("log");
  EXPECT_EQ(Cli({"rename", "--names", names, "--apply", "--log", log, a}).exitCode, 1);
  const ProcessResult undone = Cli({"undo", "--apply", log});
  EXPECT_EQ(undone.exitCode, 0) << undone.output;
  EXPECT_TRUE(folder.Exists("a.mid") && folder.Exists("b.mid"));
}

TEST(CliUndoTest, EachHardLinkThatCannotGoBackIsTold) {
  const TempFolder folder;
  const std::string a = folder.Write("a.mid", "a");
  ASSERT_EQ(link(a.c_str(), folder.At("b.mid").c_str()), 0);
  const TempFolder other;
  const std::string names = other.Write("names", "c\nd\n");
  const std::string log = other.At("log");
  EXPECT_EQ(Cli({"rename", "--names", names, "--apply", "--log", log, a, folder.At("b.mid")}).exitCode, 0);
  ASSERT_EQ(unlink(folder.At("c.mid").c_str()) + unlink(folder.At("d.mid").c_str()), 0);
  const ProcessResult undone = Cli({"undo", "--apply", "--json", log});
  EXPECT_EQ(undone.exitCode, 1);
  EXPECT_EQ(JsonLines(undone.output).back()["failed"], 2) << undone.output;
}

// An access list that lets another user read the file.
bool GiveAccessList(const std::string& path) {
  // Version 2; then kind, permissions and user of the owner's, the other user's, the group's, the mask's and the rest's
  // entry.
  constexpr std::array<std::uint16_t, 2> kVersion = {2, 0};
  constexpr std::array<std::array<std::uint16_t, 4>, 5> kEntries = {{{0x01, 6, 0xFFFF, 0xFFFF},
                                                                     {0x02, 4, 1, 0},
                                                                     {0x04, 4, 0xFFFF, 0xFFFF},
                                                                     {0x10, 4, 0xFFFF, 0xFFFF},
                                                                     {0x20, 0, 0xFFFF, 0xFFFF}}};
  std::string list(reinterpret_cast<const char*>(kVersion.data()), sizeof kVersion);
  list.append(reinterpret_cast<const char*>(kEntries.data()), sizeof kEntries);
  return setxattr(path.c_str(), "system.posix_acl_access", list.data(), list.size(), 0) == 0;
}

TEST(CliMoveTest, WhatTheOtherVolumeCannotKeepIsReportedForEachFileAndInTheSummary) {
  const TempFolder folder;
  const std::string first = folder.Write("a.mid", "a");
  const std::string second = folder.Write("b.mid", "b");
  const std::string third = folder.Write("c.mid", "c");
  const std::string to = folder.MakeFolder("to");
  const bool given = setxattr(first.c_str(), "user.comment", "hello", 5, 0) == 0 && GiveAccessList(second);
  if (!given) GTEST_SKIP() << "no extended attributes or access lists here";
  // Mounts a volume that supports neither, for this command only.
  const ProcessResult result = RunProcess(
      "/usr/bin/env", {"unshare", "--mount", "sh", "-c", "mount -t ramfs none \"$1\" || exit 100; shift; exec \"$@\"",
                       "sh", to, QUILLON_CLI, "move", "--to", to, "--apply", "--json", first, second, third});
  if (result.output.empty()) GTEST_SKIP() << "no volume can be mounted without root: " << result.errors;
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  const Json summary = {{"moved", 3},
                        {"failed", 0},
                        {"interrupted", false},
                        {"not_kept", {"access_rights", "attributes"}},
                        {"summary",
                         {"3 個のファイルの移動が完了しました",
                          "移動しましたが、移動先では保持できない情報がありました： アクセス権、拡張属性"}}};
  EXPECT_EQ(JsonLines(result.output),
            (std::vector<Json>{{{"old", first}, {"new", to + "a.mid"}, {"not_kept", Json::array({"attributes"})}},
                               {{"old", second}, {"new", to + "b.mid"}, {"not_kept", Json::array({"access_rights"})}},
                               {{"old", third}, {"new", to + "c.mid"}},
                               summary}));
}

/// Uses the trash of a separate home folder, so that the tester's stays as it is.
class CliTrashTest : public testing::Test {
 protected:
  [[nodiscard]] ProcessResult Delete(const std::vector<std::string>& arguments) const {
    std::vector<std::string> words = {"HOME=" + home_.Path(), "XDG_DATA_HOME=" + home_.At("data"), QUILLON_CLI,
                                      "delete", "--apply"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return RunProcess("/usr/bin/env", words);
  }

  TempFolder home_;
};

TEST_F(CliTrashTest, FilesGoToTheTrashWithANoteOfWhereTheyWere) {
  const TempFolder folder;
  folder.Write("荒城の月 1.mp3", "moon");
  folder.Write("notes.txt", "text");
  folder.Write("sub/b.mid", "b");
  const ProcessResult result = Delete({folder.Path()});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_EQ(result.output, "1 個のファイルをごみ箱に移動しました\n");
  EXPECT_FALSE(folder.Exists("荒城の月 1.mp3"));
  EXPECT_TRUE(folder.Exists("notes.txt"));
  EXPECT_TRUE(folder.Exists("sub/b.mid"));
  EXPECT_EQ(home_.Read("data/Trash/files/荒城の月 1.mp3"), "moon");
  EXPECT_TRUE(home_.Exists("data/Trash/info/荒城の月 1.mp3.trashinfo"));
}

TEST_F(CliTrashTest, NothingThatIsDeletedForGoodGoesThere) {
  home_.MakeFolder("data");
  const std::string path = home_.Write("a.mid", "a");
  EXPECT_EQ(Delete({"--for-good", path}).exitCode, 0);
  EXPECT_FALSE(home_.Exists("a.mid"));
  EXPECT_FALSE(home_.Exists("data/Trash/files/a.mid"));
}

TEST_F(CliTrashTest, TwoFilesOfOneNameAreBothKept) {
  const TempFolder folder;
  folder.Write("1/a.mid", "first");
  folder.Write("2/a.mid", "second");
  const ProcessResult result = Delete({"--json", "--subfolders", folder.Path()});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_EQ(JsonLines(result.output).back(),
            (Json{{"deleted", 2},
                  {"failed", 0},
                  {"interrupted", false},
                  {"summary", Json::array({"2 個のファイルをごみ箱に移動しました"})}}));
  std::vector<std::string> contents;
  for (const auto& entry : fs::directory_iterator(home_.At("data/Trash/files"))) {
    contents.push_back(home_.Read("data/Trash/files/" + entry.path().filename().string()));
  }
  std::sort(contents.begin(), contents.end());
  EXPECT_EQ(contents, (std::vector<std::string>{"first", "second"}));
}

TEST_F(CliTrashTest, WhereThereIsNoTrashTheFileStaysAndTheOthersGoOn) {
  std::string there = "/dev/shm/quillon-test-XXXXXX";
  if (mkdtemp(there.data()) == nullptr) GTEST_SKIP() << "/dev/shm cannot be written";
  const std::string stays = there + "/a.mid";
  std::ofstream(stays) << "a";
  const TempFolder folder;
  const ProcessResult result = Delete({"--json", stays, folder.Write("b.mid", "b")});
  EXPECT_EQ(result.exitCode, 1);
  const std::vector<Json> objects = JsonLines(result.output);
  EXPECT_TRUE(fs::exists(stays));
  fs::remove_all(there);
  ASSERT_EQ(objects.size(), 3U);
  EXPECT_EQ(objects[0], (Json{{"path", stays}, {"code", 1026}, {"reason", "ファイルが削除できません"}}));
  EXPECT_EQ(objects[1], (Json{{"path", folder.At("b.mid")}}));
  EXPECT_EQ(objects[2]["deleted"], 1);
  EXPECT_EQ(objects[2]["failed"], 1);
  EXPECT_EQ(objects[2]["summary"],
            Json::array({"1 個のファイルをごみ箱に移動しました", "1 個のファイルが削除できませんでした"}));
  EXPECT_TRUE(home_.Exists("data/Trash/files/b.mid"));
}

}  // namespace
}  // namespace quillon::test
