#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "app/ApplyCommands.h"
#include "app/FileCommands.h"
#include "app/LoadCommands.h"
#include "base/Text.h"
#include "rename/basQuillon.h"
#include "support/ByteOrder.h"
#include "support/MemoryFileSystem.h"
#include "support/Recorders.h"
#include "support/Rows.h"
#include "support/TempFolder.h"

/// After renames, moves and deletions in any order no content is lost or doubled, and every row leads to the content
/// that it was loaded with.
namespace quillon {
namespace {

using Texts = std::vector<std::string>;
using Contents = std::multiset<std::string>;

class Dice {
 public:
  explicit Dice(unsigned seed) : random_(seed) {}
  int Below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(random_); }
  bool Coin() { return Below(2) == 1; }
  const std::string& OneOf(const Texts& texts) {
    return texts[static_cast<std::size_t>(Below(static_cast<int>(texts.size())))];
  }

 private:
  std::mt19937 random_;
};

/// A disk to work on; its folders' paths have a trailing separator.
struct Volume {
  PathStyle style = SystemPathStyle();
  FileReads* reads = nullptr;
  FileChanges* changes = nullptr;
  Texts folders;
  bool anyBytes = false;  ///< names need not be valid UTF-8
  std::function<void(const std::string& folder, const std::string& name, const std::string& bytes)> write;
};

Texts BaseNames(const Volume& volume) {
  Texts names = {"a", "b", "c", "A", "B", "表", "ソ", "能", "が", "か\u3099", " lead", "v1.2", "..x", "😀"};
  if (volume.anyBytes) names.insert(names.end(), {"\xFF\xFE", "\x83\x5C", "a\x80"});
  return names;
}

Texts RenameNamesFor(const Volume& volume) {
  Texts names = BaseNames(volume);
  names.insert(names.end(), {"a", "b", "c", "a", "b", "c"});  // to make names collide
  names.insert(names.end(), {"", "  ", ".", "..", "a.", "a ", "a. .", "\t", "a\tb", "a?b", "a/b", "a\\b", "a:b", "\r",
                             "a\nb", "song.mp3", std::string("nul\0x", 5)});
  const std::string kana = "あ";
  std::string longest;
  while (longest.size() + kana.size() <= 251) longest += kana;
  longest.append(251 - longest.size(), 'x');
  names.insert(names.end(), {longest, longest + "y", std::string(251, 'z'), std::string(256, 'z')});
  return names;
}

void Collect(FileReads& reads, const std::string& folder, PathStyle style, std::map<std::string, std::string>& files) {
  const auto entries = reads.ReadFolder(folder);
  ASSERT_TRUE(entries) << folder;
  for (const FolderEntry& entry : *entries) {
    const std::string path = folder + entry.name;
    if (entry.isFolder) {
      Collect(reads, path + PathSeparator(style), style, files);
      continue;
    }
    const auto file = reads.OpenFile(path);
    ASSERT_TRUE(file) << path;
    std::string bytes(static_cast<std::size_t>(file->Size()), '\0');
    ASSERT_EQ(file->ReadAt(0, bytes.data(), bytes.size()), bytes.size());
    files[path] = bytes;
  }
}

Contents Values(const std::map<std::string, std::string>& files) {
  Contents contents;
  for (const auto& [path, bytes] : files) contents.insert(bytes);
  return contents;
}

/// The number before `words` at the start of a line of the last box; 0 when there is none.
int NumberBefore(const Message& box, const std::string& words) {
  const std::size_t end = box.text.find(words);
  if (end == std::string::npos) return 0;
  const std::size_t line = box.text.rfind('\n', end);
  return static_cast<int>(LeadingNumber(std::string_view(box.text).substr(line == std::string::npos ? 0 : line + 1)));
}

/// A program over one volume, its files loaded.
class Program {
 public:
  Program(const Volume& volume, Dice& dice)
      : volume_(volume),
        dice_(dice),
        list_(volume.style),
        session_{list_, options_, mode_, ports_.player, volume.style},
        loader_(session_, *volume.reads, {ports_.search, ports_.progress, ports_.folders}, screen_),
        rows_(session_, screen_),
        commands_(session_, rows_, {*volume.reads, *volume.changes}, {ports_.folders, ports_.progress}, screen_),
        engine_(list_, mode_, *volume.changes, ports_.player, volume.style),
        applying_(session_, engine_, *volume.reads, screen_) {
    options_.find.filterByExtension = false;
    options_.system.suppressConfirmations = true;
    options_.list.deleteTo = DeleteTo::kNowhere;
    options_.list.searchSubfolders = true;
  }

  /// Loads every file. A row keeps its content in the artist column, which no tested command reads.
  void Load() {
    loader_.LoadFolder(volume_.folders.front());
    const auto files = Files();
    ASSERT_EQ(static_cast<std::size_t>(list_.Count()), files.size());
    for (int index = 1; index <= list_.Count(); ++index) {
      FileItem row = list_.Row(index).Item();
      row.artist = files.at(row.location);
      list_.Replace(index, row);
    }
    expected_ = Values(files);
  }

  void Step() {
    Shuffle();
    switch (dice_.Below(6)) {
      case 0:
      case 1: ApplyBatch(); break;
      case 2: ApplyOne(); break;
      case 3: MoveBatch(); break;
      case 4: MoveOne(); break;
      default: DeleteOne();
    }
    EXPECT_EQ(Values(Files()), expected_) << "contents lost or doubled";
    for (int index = 1; index <= list_.Count(); ++index) {
      const FileItem row = list_.Row(index).Item();
      EXPECT_EQ(ContentOf(row.location), row.artist) << row.location;
      EXPECT_TRUE(list_.ContainsFile(row.location));
    }
  }

 private:
  using Before = std::map<std::string, FileItem>;  ///< by content, which differs for every row

  [[nodiscard]] std::map<std::string, std::string> Files() const {
    std::map<std::string, std::string> files;
    Collect(*volume_.reads, volume_.folders.front(), volume_.style, files);
    return files;
  }

  [[nodiscard]] std::string ContentOf(const std::string& path) const {
    const auto file = volume_.reads->OpenFile(path);
    if (!file) return "(no file)";
    std::string bytes(static_cast<std::size_t>(file->Size()), '\0');
    bytes.resize(file->ReadAt(0, bytes.data(), bytes.size()));
    return bytes;
  }

  /// Sets random options, rename names, checks and a selected row.
  void Shuffle() {
    options_.update.skipFailedRows = dice_.Coin();
    options_.update.checkFailedRows = dice_.Coin();
    options_.update.uncheckAppliedRows = dice_.Coin();
    options_.move.keepMovedRows = dice_.Coin();
    options_.list.confirmDeletion = dice_.Coin();
    const Texts names = RenameNamesFor(volume_);
    for (int index = 1; index <= list_.Count(); ++index) {
      if (dice_.Coin()) list_.SetRenameName(index, dice_.OneOf(names));
      list_.SetChecked(index, dice_.Coin());
    }
    if (dice_.Below(4) == 0) SwapTwoNames();
    if (dice_.Below(4) == 0) list_.Sort(static_cast<Column>(dice_.Below(kColumnCount)), test::ByteOrder());
    if (list_.Count() > 0) list_.SelectOnly(dice_.Below(list_.Count()) + 1);
  }

  void SwapTwoNames() {
    if (list_.Count() < 2) return;
    const int first = dice_.Below(list_.Count() - 1) + 1;
    list_.SetRenameName(first, std::string(BaseName(list_.Row(first + 1).Location(), volume_.style)));
    list_.SetRenameName(first + 1, std::string(BaseName(list_.Row(first).Location(), volume_.style)));
  }

  [[nodiscard]] Before Rows() const {
    Before rows;
    for (int index = 1; index <= list_.Count(); ++index) {
      const FileItem row = list_.Row(index).Item();
      rows[row.artist] = row;
    }
    return rows;
  }

  /// The number of rows in scope that were applied, judged by their locations. The locations of all others must be
  /// unchanged.
  int CountApplied(const Before& before, const std::function<bool(const FileItem&)>& inScope) {
    int applied = 0;
    for (int index = 1; index <= list_.Count(); ++index) {
      const FileItem now = list_.Row(index).Item();
      const FileItem& then = before.at(now.artist);
      const bool valid =
          InvalidCharacterPosition(then.renameName) == 0 || then.renameName == BaseName(then.location, volume_.style);
      const bool nameable = !Trim(then.renameName).empty() && valid;
      if (inScope(then) && nameable && now.location == AppliedPath(then.location, then.renameName, volume_.style)) {
        ++applied;
      } else {
        EXPECT_EQ(now.location, then.location) << "a failed row has changed";
      }
      EXPECT_EQ(now.renameName, then.renameName);
    }
    return applied;
  }

  void ApplyBatch() {
    const bool all = dice_.Coin();
    const Before before = Rows();
    const int inScope = all ? list_.Count() : list_.CheckedCount();
    const BatchOutcome outcome = applying_.ApplyRenameBatch(all ? Rows::kAll : Rows::kChecked);
    ASSERT_FALSE(outcome.stopped);
    EXPECT_EQ(outcome.applied, CountApplied(before, [&](const FileItem& row) { return all || row.checked; }));
    EXPECT_EQ(outcome.applied + outcome.skipped, inScope);
    if (inScope == 0) return;
    const Message& summary = ports_.boxes.Shown().back();
    EXPECT_EQ(NumberBefore(summary, " 個のファイルを適応しました"), outcome.applied);
    EXPECT_EQ(NumberBefore(summary, " 個のファイルがエラーでスキップされました"), outcome.skipped);
  }

  void ApplyOne() {
    if (list_.Count() == 0) return;
    const Before before = Rows();
    const std::string selected(list_.Row(list_.SelectedIndex()).artist);
    const std::size_t boxes = ports_.boxes.Shown().size();
    applying_.mnuThisUpdate();
    const int applied = CountApplied(before, [&](const FileItem& row) { return row.artist == selected; });
    ASSERT_EQ(ports_.boxes.Shown().size(), boxes + 1) << "always one message, be it of success or of failure";
    EXPECT_EQ(ports_.boxes.Shown().back().text == "選択されたアイテムの適応が完了しました", applied == 1);
  }

  /// The number of moved rows: they are in the target, or have left the list, as the option says.
  int CountMoved(const Before& before, const std::string& target, const std::function<bool(const FileItem&)>& inScope) {
    const Before after = Rows();
    int moved = 0;
    for (const auto& [content, then] : before) {
      const auto now = after.find(content);
      const std::string there = target + std::string(FileName(then.location, volume_.style));
      if (now == after.end()) {
        EXPECT_FALSE(options_.move.keepMovedRows);
        EXPECT_TRUE(inScope(then));
        EXPECT_EQ(ContentOf(there), content);
        ++moved;
      } else if (inScope(then) && then.location != there && now->second.location == there) {
        EXPECT_TRUE(options_.move.keepMovedRows);
        ++moved;
      } else {
        EXPECT_EQ(now->second.location, then.location) << "a row that was not moved has changed";
      }
    }
    return moved;
  }

  void MoveBatch() {
    const bool all = dice_.Coin();
    if (all ? list_.Count() == 0 : list_.CheckedCount() == 0) return;
    const Before before = Rows();
    const std::string& target = dice_.OneOf(volume_.folders);
    ports_.folders.Answer(target);
    all ? commands_.mnuAllMove() : commands_.mnuMove();
    const int moved = CountMoved(before, target, [&](const FileItem& row) { return all || row.checked; });
    EXPECT_EQ(NumberBefore(ports_.boxes.Shown().back(), " 個のファイルの移動が完了しました"), moved);
  }

  void MoveOne() {
    if (list_.Count() == 0) return;
    const Before before = Rows();
    const std::string selected(list_.Row(list_.SelectedIndex()).artist);
    const std::string& target = dice_.OneOf(volume_.folders);
    ports_.folders.Answer(target);
    commands_.mnuThisMove();
    const int moved = CountMoved(before, target, [&](const FileItem& row) { return row.artist == selected; });
    EXPECT_EQ(ports_.boxes.Shown().back().text == target + "\r\n\r\nファイルの移動が完了しました", moved == 1);
  }

  void DeleteOne() {
    if (list_.Count() == 0) return;
    const FileItem selected = list_.Row(list_.SelectedIndex()).Item();
    const int count = list_.Count();
    commands_.mnuThisDel();
    ASSERT_EQ(list_.Count(), count - 1) << "nothing keeps this file from being deleted";
    EXPECT_FALSE(list_.ContainsFile(selected.location));
    expected_.erase(expected_.find(selected.artist));
  }

  Volume volume_;
  Dice& dice_;
  test::Recorders ports_;
  FileList list_;
  OptionValues options_;
  ApplyMode mode_;
  SelectionStatus status_{ports_.panels};
  Session session_;
  Screen screen_{ports_.boxes, ports_.pending, ports_.window, ports_.filePanel, status_};
  LoadCommands loader_;
  ListCommands rows_;
  FileCommands commands_;
  RenameEngine engine_;
  ApplyCommands applying_;
  Contents expected_;
};

/// Files with random names in every folder, each with a content of its own.
void Fill(const Volume& volume, Dice& dice) {
  const Texts names = BaseNames(volume);
  const Texts endings = {".mid", ".MID", ".mp3", "", ".表", ".Ｍ"};
  const int count = dice.Below(12) + 2;
  for (int i = 0; i < count; ++i) {
    const std::string name = dice.OneOf(names) + dice.OneOf(endings);
    volume.write(dice.OneOf(volume.folders), name, "content " + std::to_string(i));
  }
}

void RunSession(const Volume& volume, Dice& dice) {
  Fill(volume, dice);
  Program session(volume, dice);
  session.Load();
  for (int step = 0; step < 8 && !testing::Test::HasFailure(); ++step) {
    SCOPED_TRACE(testing::Message() << "step " << step);
    session.Step();
  }
}

void RunInMemory(unsigned seed, test::MemoryFileSystem::Options options) {
  Dice dice(seed);
  test::MemoryFileSystem files(options);
  Volume volume;
  volume.style = options.style;
  volume.reads = &files;
  volume.changes = &files;
  volume.anyBytes = options.style == PathStyle::kLinux;
  volume.folders = options.style == PathStyle::kWindows ? Texts{"C:\\m\\", "C:\\m\\dir\\", "C:\\m\\dir 表\\"}
                                                        : Texts{"/m/", "/m/dir/", "/m/dir 表/"};
  for (const std::string& folder : volume.folders) files.AddFolder(folder);
  volume.write = [&](const std::string& folder, const std::string& name, const std::string& bytes) {
    files.AddFile(folder + name, bytes);
  };
  RunSession(volume, dice);
}

TEST(ContentPreservation, OnTheRealDisk) {
  const auto reads = MakeFileReads();
  const auto changes = MakeFileChanges();
  // Every change reaches the real disk, which is slow on some systems.
  const unsigned rounds = SystemPathStyle() == PathStyle::kWindows ? 30 : 120;
  for (unsigned seed = 1; seed <= rounds && !HasFailure(); ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Dice dice(seed);
    const test::TempFolder temp;
    Volume volume;
    volume.reads = reads.get();
    volume.changes = changes.get();
    volume.anyBytes = SystemPathStyle() == PathStyle::kLinux;
    volume.folders = {temp.Path(), temp.MakeFolder("dir"), temp.MakeFolder("dir 表")};
    volume.write = [&](const std::string& folder, const std::string& name, const std::string& bytes) {
      (void)temp.Write(folder.substr(temp.Path().size()) + name, bytes);
    };
    RunSession(volume, dice);
  }
}

TEST(ContentPreservation, OnADiskInMemory) {
  struct Case {
    const char* name;
    test::MemoryFileSystem::Options options;
  };
  const std::vector<Case> cases = {
      {"Linux", {PathStyle::kLinux, false}},
      {"Windows", {PathStyle::kWindows, true}},
      {"Linux, letter case ignored", {PathStyle::kLinux, true}},
  };
  for (const Case& c : cases) {
    for (unsigned seed = 1; seed <= 400 && !HasFailure(); ++seed) {
      SCOPED_TRACE(testing::Message() << c.name << ", seed " << seed);
      RunInMemory(seed, c.options);
    }
  }
}

}  // namespace
}  // namespace quillon
