#pragma once

#include <span>
#include <string>

#include "filelist/FileList.h"
#include "settings/ApplyMode.h"
#include "settings/OptionValues.h"

/// Every command of the main window: its menu entry, its keys, when it is enabled, and what it does.
namespace quillon {

/// Commands are named after their menu items: `All` for every row, `This` for the selected row, none for the checked
/// rows.
enum class Command {
  kSeparator,  ///< not a command: separates groups of a menu
  mnuFolderReference,
  mnuFileLoad,
  mnuReload,
  mnuAllClear,
  mnuUpdate,
  mnuAllUpdate,
  mnuOption,
  mnuOptionDefaultExit,
  mnuExit,
  mnuRename,
  mnuAllRename,
  mnuPattern,
  mnuAllPattern,
  mnuModify,
  mnuAllModify,
  mnuUndo,
  mnuAllUndo,
  mnuMove,
  mnuAllMove,
  mnuAllChk,
  mnuChkRem,
  mnuTurnChk,
  mnuUnChkListRem,
  mnuEditUndo,
  mnuEditRedo,
  mnuNextPending,
  mnuFind,
  mnuFindNext,
  mnuFindPrevious,
  mnuPlay,
  mnuPause,
  mnuStop,
  mnuRepeat,
  mnuFront,
  mnuApplyMode,
  mnuToolLabels,
  mnuDirShow,
  mnuSortRenameName,
  mnuSortTitle,
  mnuSortArtist,
  mnuSortType,
  mnuSortSize,
  mnuSortLocation,
  mnuShowHelp,
  mnuVarInfo,
  mnuThisUpdate,
  mnuThisRename,
  mnuThisUndo,
  mnuThisEditRenameName,
  mnuThisMove,
  mnuThisDel,
  mnuThisListDel,
};

inline constexpr int kLastCommand = static_cast<int>(Command::mnuThisListDel);

/// What a command needs to be enabled.
enum class Needs { kNothing, kRows, kCheckedRows, kSelectedRow, kPendingRows, kUndo, kRedo };

/// The apply mode in which a command is enabled.
enum class InMode { kAny, kManual };

/// How a command runs.
enum class Runs {
  kExclusively,  ///< with the window's input disabled
  kAsEvent,      ///< like the user's own actions in the list
};

struct CommandTargets;

struct CommandEntry {
  Command command = Command::kSeparator;
  const char* caption = "";   ///< with its access key, "&F"
  const char* shortcut = "";  ///< in wx's notation, "Ctrl+O"; empty when there is none
  Needs needs = Needs::kNothing;
  InMode mode = InMode::kAny;
  void (*action)(const CommandTargets&) = nullptr;
  Runs runs = Runs::kExclusively;
  bool (*isOn)(const OptionValues&) = nullptr;  ///< for check items: whether the mark is shown
};

/// The state that the enabling rules depend on.
struct CommandState {
  int rows = 0;
  int checked = 0;
  bool selected = false;
  bool automatic = false;
  int pending = 0;
  bool canUndo = false;
  bool canRedo = false;
};
[[nodiscard]] CommandState StateOf(const FileList& list, const ApplyMode& mode);

/// The command's entry; every command but kSeparator has one.
[[nodiscard]] const CommandEntry& EntryOf(Command command);
/// The caption without its access key and dots.
[[nodiscard]] std::string PlainCaption(Command command);
[[nodiscard]] bool IsEnabled(Command command, const CommandState& state);
struct MenuEntries {
  const char* caption;
  std::span<const Command> commands;
};

/// The menu bar's menus, in order. The sort commands form a submenu of the view menu with the caption kSortCaption; the
/// view menu's entries contain only the first of them.
[[nodiscard]] std::span<const MenuEntries> MenuBarEntries();
inline constexpr const char* kSortCaption = "並べ替え(&S)";
[[nodiscard]] std::span<const Command> SortCommands();

/// The row menu, mnulvwFiles_RClk_Menu. Its shortcuts work while the list has the focus.
[[nodiscard]] std::span<const Command> RowMenuCommands();

/// A button of the tool bar, or a separator when `command` is kSeparator.
struct ToolBarButton {
  Command command = Command::kSeparator;
  const char* label = "";             ///< also its tool tip
  const char* shortLabel = "";        ///< below its picture, while labels are shown
  const char* picture = "";           ///< a name in resources/icons
  Command all = Command::kSeparator;  ///< in its drop-down menu: the same for all rows; kSeparator: no menu
  const char* allCaption = "";
};

/// Buttons 1 to 9.
[[nodiscard]] std::span<const ToolBarButton> ToolBarButtons();

}  // namespace quillon
