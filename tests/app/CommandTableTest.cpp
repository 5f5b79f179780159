#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "app/CommandTable.h"
#include "support/Rows.h"

namespace quillon {
namespace {

using enum Command;
using Texts = std::vector<std::string>;

std::vector<Command> AllCommands() {
  std::vector<Command> commands;
  for (int number = static_cast<int>(kSeparator) + 1; number <= kLastCommand; ++number) {
    commands.push_back(static_cast<Command>(number));
  }
  return commands;
}

std::string CaptionOf(Command command) {
  return EntryOf(command).caption;
}

/// The letter behind "&"; 0 for none.
char AccessKey(std::string_view caption) {
  const std::size_t mark = caption.find('&');
  return mark == std::string_view::npos || mark + 1 == caption.size() ? '\0' : caption[mark + 1];
}

/// The captions of one menu as the window shows it: the sort commands are a submenu there.
Texts ShownCaptions(std::span<const Command> commands) {
  Texts captions;
  for (const Command command : commands) {
    if (command == kSeparator) continue;
    captions.push_back(command == mnuSortRenameName ? kSortCaption : CaptionOf(command));
  }
  return captions;
}

void ExpectAccessKeysOfTheirOwn(const Texts& captions, const std::string& menu) {
  std::set<char> keys;
  for (const std::string& caption : captions) {
    const char key = AccessKey(caption);
    EXPECT_TRUE(key >= 'A' && key <= 'Z') << menu << ": " << caption;
    EXPECT_TRUE(keys.insert(key).second) << menu << ": " << caption;
  }
}

TEST(CommandTable, EveryCommandHasACaptionAndAnAction) {
  for (const Command command : AllCommands()) {
    EXPECT_EQ(EntryOf(command).command, command);
    EXPECT_NE(CaptionOf(command), "") << static_cast<int>(command);
    EXPECT_NE(EntryOf(command).action, nullptr) << CaptionOf(command);
  }
}

// The enabling rules. Each column is one state of list and mode.

constexpr CommandState kEmptyManual{0, 0, false, false};
constexpr CommandState kRowsManual{3, 0, false, false};
constexpr CommandState kSelectedManual{3, 0, true, false};
constexpr CommandState kCheckedManual{3, 1, false, false};
constexpr CommandState kEmptyAuto{0, 0, false, true};
constexpr CommandState kRowsAuto{3, 0, false, true};
constexpr CommandState kSelectedAuto{3, 0, true, true};
constexpr CommandState kCheckedAuto{3, 1, false, true};

struct EnablingRow {
  Command command;
  // manual mode: empty list, rows, a selected row, a checked row; then the same in auto-apply mode
  const char* enabled;
};

const std::vector<EnablingRow>& EnablingTable() {
  static const std::vector<EnablingRow> kTable = {
      // always
      {mnuFolderReference, "1111 1111"},
      {mnuFileLoad, "1111 1111"},
      {mnuOptionDefaultExit, "1111 1111"},
      {mnuExit, "1111 1111"},
      {mnuFront, "1111 1111"},
      {mnuApplyMode, "1111 1111"},
      {mnuToolLabels, "1111 1111"},
      {mnuDirShow, "1111 1111"},
      {mnuOption, "1111 1111"},
      {mnuShowHelp, "1111 1111"},
      {mnuVarInfo, "1111 1111"},
      {mnuPause, "1111 1111"},
      {mnuStop, "1111 1111"},
      {mnuRepeat, "1111 1111"},
      // for all rows
      {mnuReload, "0111 0111"},
      {mnuAllClear, "0111 0111"},
      {mnuAllUpdate, "0111 0000"},
      {mnuAllRename, "0111 0111"},
      {mnuAllPattern, "0111 0111"},
      {mnuAllModify, "0111 0111"},
      {mnuAllUndo, "0111 0000"},
      {mnuAllMove, "0111 0111"},
      {mnuAllChk, "0111 0111"},
      {mnuChkRem, "0111 0111"},
      {mnuTurnChk, "0111 0111"},
      {mnuUnChkListRem, "0111 0111"},
      {mnuFind, "0111 0111"},
      {mnuFindNext, "0111 0111"},
      {mnuFindPrevious, "0111 0111"},
      {mnuSortRenameName, "0111 0111"},
      {mnuSortTitle, "0111 0111"},
      {mnuSortArtist, "0111 0111"},
      {mnuSortType, "0111 0111"},
      {mnuSortSize, "0111 0111"},
      {mnuSortLocation, "0111 0111"},
      // for the checked rows
      {mnuUpdate, "0001 0000"},
      {mnuRename, "0001 0001"},
      {mnuPattern, "0001 0001"},
      {mnuModify, "0001 0001"},
      {mnuUndo, "0001 0000"},
      {mnuMove, "0001 0001"},
      // for pending rows and recorded edits: tested below
      {mnuEditUndo, "0000 0000"},
      {mnuEditRedo, "0000 0000"},
      {mnuNextPending, "0000 0000"},
      // for the selected row
      {mnuPlay, "0010 0010"},
      {mnuThisUpdate, "0010 0000"},
      {mnuThisRename, "0010 0010"},
      {mnuThisUndo, "0010 0010"},
      {mnuThisEditRenameName, "0010 0010"},
      {mnuThisMove, "0010 0010"},
      {mnuThisDel, "0010 0010"},
      {mnuThisListDel, "0010 0010"},
  };
  return kTable;
}

std::string EnabledIn(Command command) {
  std::string text;
  for (const CommandState& state : {kEmptyManual, kRowsManual, kSelectedManual, kCheckedManual}) {
    text += IsEnabled(command, state) ? '1' : '0';
  }
  text += ' ';
  for (const CommandState& state : {kEmptyAuto, kRowsAuto, kSelectedAuto, kCheckedAuto}) {
    text += IsEnabled(command, state) ? '1' : '0';
  }
  return text;
}

TEST(CommandTable, EnablesEachCommandAsTheListAndTheModeSay) {
  for (const EnablingRow& row : EnablingTable())
    EXPECT_EQ(EnabledIn(row.command), row.enabled) << CaptionOf(row.command);
}

TEST(CommandTable, EditsAreTakenBackInManualModeOnly) {
  EXPECT_TRUE(IsEnabled(mnuEditUndo, {.rows = 3, .canUndo = true}));
  EXPECT_FALSE(IsEnabled(mnuEditUndo, {.rows = 3, .canRedo = true}));
  EXPECT_FALSE(IsEnabled(mnuEditUndo, {.rows = 3, .automatic = true, .canUndo = true}));
  EXPECT_TRUE(IsEnabled(mnuEditRedo, {.rows = 3, .canRedo = true}));
  EXPECT_FALSE(IsEnabled(mnuEditRedo, {.rows = 3, .canUndo = true}));
  EXPECT_FALSE(IsEnabled(mnuEditRedo, {.rows = 3, .automatic = true, .canRedo = true}));
}

TEST(CommandTable, TheNextPendingRowIsOfferedWhileThereIsOne) {
  EXPECT_TRUE(IsEnabled(mnuNextPending, {.rows = 3, .pending = 1}));
  EXPECT_TRUE(IsEnabled(mnuNextPending, {.rows = 3, .automatic = true, .pending = 1}));
  EXPECT_FALSE(IsEnabled(mnuNextPending, {.rows = 3, .canUndo = true}));
}

TEST(CommandTable, ASeparatorIsNeverEnabled) {
  EXPECT_EQ(EnabledIn(kSeparator), "0000 0000");
}

TEST(CommandTable, EveryCommandHasItsEnablingRow) {
  std::set<Command> tested;
  for (const EnablingRow& row : EnablingTable()) EXPECT_TRUE(tested.insert(row.command).second);
  for (const Command command : AllCommands()) EXPECT_TRUE(tested.contains(command)) << CaptionOf(command);
}

TEST(CommandTable, TheStateIsReadFromListAndMode) {
  FileList list(PathStyle::kLinux);
  ApplyMode mode;
  CommandState state = StateOf(list, mode);
  EXPECT_EQ(state.rows, 0);
  EXPECT_EQ(state.checked, 0);
  EXPECT_FALSE(state.selected);
  EXPECT_FALSE(state.automatic);
  for (const char* const path : {"/m/a.mid", "/m/b.mid", "/m/c.mid"}) list.Add(test::RowFor(path, PathStyle::kLinux));
  list.SetChecked(1, true);
  list.SetChecked(3, true);
  list.SetSelected(2, true);
  mode.automatic = true;
  state = StateOf(list, mode);
  EXPECT_EQ(state.rows, 3);
  EXPECT_EQ(state.checked, 2);
  EXPECT_TRUE(state.selected);
  EXPECT_TRUE(state.automatic);
}

// Entries and menus.

TEST(CommandTable, EveryCommandHasAUniqueCaptionAndAnEntry) {
  std::set<std::string> captions;
  for (const Command command : AllCommands()) {
    EXPECT_EQ(EntryOf(command).command, command);
    EXPECT_NE(CaptionOf(command), "");
    EXPECT_TRUE(captions.insert(CaptionOf(command)).second) << CaptionOf(command);
  }
  EXPECT_EQ(CaptionOf(kSeparator), "");
}

TEST(CommandTable, EveryCommandIsInAMenu) {
  std::map<Command, int> places;
  for (const MenuEntries& menu : MenuBarEntries()) {
    for (const Command command : menu.commands) ++places[command];
  }
  for (const Command command : RowMenuCommands()) ++places[command];
  --places[mnuSortRenameName];  // stands for the submenu there
  for (const Command command : SortCommands()) ++places[command];
  for (const Command command : AllCommands()) {
    const int expected = command == mnuPlay ? 2 : 1;  // one selected file is played from either place
    EXPECT_EQ(places[command], expected) << CaptionOf(command);
  }
}

TEST(CommandTable, SeparatorsAreOnlyBetweenCommands) {
  std::vector<std::span<const Command>> menus;
  for (const MenuEntries& menu : MenuBarEntries()) menus.push_back(menu.commands);
  menus.push_back(RowMenuCommands());
  menus.push_back(SortCommands());
  for (const std::span<const Command> menu : menus) {
    ASSERT_FALSE(menu.empty());
    EXPECT_NE(menu.front(), kSeparator);
    EXPECT_NE(menu.back(), kSeparator);
    EXPECT_EQ(std::adjacent_find(menu.begin(), menu.end(),
                                 [](Command left, Command right) { return left == kSeparator && right == kSeparator; }),
              menu.end());
  }
}

TEST(CommandTable, TheMenuBarHoldsFiveMenus) {
  Texts captions;
  for (const MenuEntries& menu : MenuBarEntries()) captions.emplace_back(menu.caption);
  EXPECT_EQ(captions, Texts({"ファイル(&F)", "編集(&E)", "再生(&P)", "表示(&V)", "ヘルプ(&H)"}));
}

TEST(CommandTable, AccessKeysAreUniqueWithinEachMenu) {
  Texts bar;
  for (const MenuEntries& menu : MenuBarEntries()) {
    bar.emplace_back(menu.caption);
    ExpectAccessKeysOfTheirOwn(ShownCaptions(menu.commands), menu.caption);
  }
  ExpectAccessKeysOfTheirOwn(bar, "menu bar");
  ExpectAccessKeysOfTheirOwn(ShownCaptions(RowMenuCommands()), "row menu");
  Texts sort;
  for (const Command command : SortCommands()) sort.push_back(CaptionOf(command));
  ExpectAccessKeysOfTheirOwn(sort, "sort menu");
  for (const ToolBarButton& button : ToolBarButtons()) {
    if (button.all != kSeparator) ExpectAccessKeysOfTheirOwn({button.allCaption}, button.label);
  }
}

// Shortcuts.

Texts ShortcutsOf(const std::vector<Command>& commands) {
  Texts shortcuts;
  for (const Command command : commands) {
    const std::string shortcut = EntryOf(command).shortcut;
    if (!shortcut.empty()) shortcuts.push_back(shortcut);
  }
  return shortcuts;
}

std::vector<Command> MenuBarCommands() {
  std::vector<Command> commands;
  for (const MenuEntries& menu : MenuBarEntries()) {
    commands.insert(commands.end(), menu.commands.begin(), menu.commands.end());
  }
  const auto sort = SortCommands();
  commands.insert(commands.end(), sort.begin() + 1, sort.end());
  return commands;
}

TEST(CommandTable, NoShortcutIsUsedTwice) {
  std::set<std::string> seen;
  for (const std::string& shortcut : ShortcutsOf(AllCommands())) EXPECT_TRUE(seen.insert(shortcut).second) << shortcut;
}

// Ctrl+Z and Ctrl+Y do in a text box what the box does with them: the main window sees to that.
TEST(CommandTable, TheMenuBarTakesNoKeyThatTheListOrATextBoxUses) {
  const std::set<std::string> taken = {
      "Ctrl+A",       "Ctrl+C",   "Ctrl+V",     "Ctrl+X",    "Ctrl+Insert", "Del",       "Shift+Del",  "Delete",
      "Shift+Insert", "Ctrl+Del", "Shift+Home", "Shift+End", "Back",        "Ctrl+Back", "Space",      "Ctrl+Space",
      "Shift+Space",  "Enter",    "Return",     "Ctrl+Up",   "Ctrl+Down",   "Ctrl+Left", "Ctrl+Right", "Ctrl+Home",
      "Ctrl+End",     "Home",     "End",        "Tab",       "Shift+Tab",   "Esc",       "Shift+Up",   "Shift+Down",
      "F2",           "Up",       "Down",       "Left",      "Right",       "PgUp",      "PgDn",       "F10"};
  const Texts shortcuts = ShortcutsOf(MenuBarCommands());
  EXPECT_GT(shortcuts.size(), 10u);
  for (const std::string& shortcut : shortcuts) EXPECT_FALSE(taken.contains(shortcut)) << shortcut;
}

TEST(CommandTable, KeysWithoutAModifierAreFunctionKeysInTheMenuBar) {
  for (const std::string& shortcut : ShortcutsOf(MenuBarCommands())) {
    const std::string key = shortcut.starts_with("Shift+F") ? shortcut.substr(6) : shortcut;
    EXPECT_TRUE(key.starts_with("Ctrl+") || key.starts_with("F")) << shortcut;
  }
}

TEST(CommandTable, TheRowMenusOwnKeys) {
  EXPECT_EQ(ShortcutsOf({RowMenuCommands().begin(), RowMenuCommands().end()}), Texts({"F2", "Del", "Shift+Del"}));
}

// Sorting and the tool bar.

TEST(CommandTable, SortCommandsNameTheColumnsInTheirOrder) {
  const auto commands = SortCommands();
  ASSERT_EQ(commands.size(), static_cast<std::size_t>(kColumnCount));
  for (int column = 0; column < kColumnCount; ++column) {
    const Command command = commands[static_cast<std::size_t>(column)];
    const std::string caption = CaptionOf(command);
    EXPECT_TRUE(caption.starts_with(ColumnCaption(static_cast<Column>(column)))) << caption;
  }
}

TEST(ToolBar, HasTheNineButtonsInTheirPlaces) {
  const auto buttons = ToolBarButtons();
  const std::vector<Command> expected = {mnuFolderReference, mnuReload, mnuUpdate,  kSeparator, mnuRename,
                                         mnuModify,          mnuMove,   kSeparator, mnuOption};
  ASSERT_EQ(buttons.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(buttons[i].command, expected[i]) << "button " << i + 1;
}

TEST(ToolBar, EveryButtonHasATextAndAPictureAndSeparatorsHaveNone) {
  for (const ToolBarButton& button : ToolBarButtons()) {
    const bool separator = button.command == kSeparator;
    EXPECT_EQ(std::string(button.label).empty(), separator);
    EXPECT_EQ(std::string(button.picture).empty(), separator) << button.label;
  }
}

TEST(ToolBar, FourDropDownsOfferTheCommandForAllRows) {
  struct DropDown {
    Command command;
    Command all;
    std::string caption;
    bool operator==(const DropDown&) const = default;
  };
  std::vector<DropDown> found;
  for (const ToolBarButton& button : ToolBarButtons()) {
    if (button.all != kSeparator) {
      found.push_back({button.command, button.all, button.allCaption});
    } else {
      EXPECT_EQ(std::string(button.allCaption), "");
    }
  }
  const std::vector<DropDown> expected = {{mnuUpdate, mnuAllUpdate, "すべてファイルに適応(&A)"},
                                          {mnuRename, mnuAllRename, "すべてタイトルにリネーム(&R)"},
                                          {mnuModify, mnuAllModify, "すべてリネーム名を編集(&A)"},
                                          {mnuMove, mnuAllMove, "すべてファイルを移動(&A)"}};
  EXPECT_EQ(found, expected);
}

}  // namespace
}  // namespace quillon
