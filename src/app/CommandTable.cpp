#include "app/CommandTable.h"

#include <algorithm>
#include <array>

namespace quillon {
namespace {

using enum Command;

constexpr std::array kEntries = {
    CommandEntry{mnuFolderReference, "フォルダ参照(&O)...", "Ctrl+O"},
    CommandEntry{mnuFileLoad, "ファイルを開く(&F)...", "Ctrl+Shift+O"},
    CommandEntry{mnuReload, "再読み込み(&R)", "F5", Needs::kRows},
    CommandEntry{mnuAllClear, "リストクリア(&C)", "Ctrl+Shift+N", Needs::kRows},
    CommandEntry{mnuUpdate, "チェックアイテムをファイルに適応(&U)", "Ctrl+S", Needs::kCheckedRows, true},
    CommandEntry{mnuAllUpdate, "すべてファイルに適応(&A)", "Ctrl+Shift+S", Needs::kRows, true},
    CommandEntry{mnuOption, "オプション(&P)...", ""},
    CommandEntry{mnuOptionDefaultExit, "設定をデフォルトに戻して終了(&D)", ""},
    CommandEntry{mnuExit, "終了(&X)", "Ctrl+Q"},
    CommandEntry{mnuRename, "チェックアイテムをタイトルにリネーム(&T)", "Ctrl+T", Needs::kCheckedRows},
    CommandEntry{mnuAllRename, "すべてタイトルにリネーム(&R)", "Ctrl+Shift+T", Needs::kRows},
    CommandEntry{mnuModify, "チェックアイテムのリネーム名を編集(&E)...", "Ctrl+E", Needs::kCheckedRows},
    CommandEntry{mnuAllModify, "すべてリネーム名を編集(&A)...", "Ctrl+Shift+E", Needs::kRows},
    CommandEntry{mnuUndo, "チェックアイテムのリネーム名を元に戻す(&U)", "Ctrl+R", Needs::kCheckedRows, true},
    CommandEntry{mnuAllUndo, "すべてのリネーム名を元に戻す(&B)", "Ctrl+Shift+R", Needs::kRows, true},
    CommandEntry{mnuMove, "チェックアイテムを移動(&M)...", "Ctrl+M", Needs::kCheckedRows},
    CommandEntry{mnuAllMove, "すべてファイルを移動(&L)...", "Ctrl+Shift+M", Needs::kRows},
    CommandEntry{mnuAllChk, "すべてチェックする(&K)", "Ctrl+K", Needs::kRows},
    CommandEntry{mnuChkRem, "すべてのチェックをはずす(&C)", "Ctrl+Shift+K", Needs::kRows},
    CommandEntry{mnuTurnChk, "チェックを反転する(&I)", "Ctrl+I", Needs::kRows},
    CommandEntry{mnuUnChkListRem, "チェックのないアイテムをリストから削除(&D)", "", Needs::kRows},
    CommandEntry{mnuPlay, "再生(&P)", "", Needs::kSelectedRow},
    CommandEntry{mnuPause, "一時停止(&U)", "F7"},
    CommandEntry{mnuStop, "停止(&S)", "F8"},
    CommandEntry{mnuRepeat, "リピート(&R)", "F9"},
    CommandEntry{mnuFront, "常に手前に表示(&F)", ""},
    CommandEntry{mnuApplyMode, "適応モードの切り替え(&M)", ""},
    CommandEntry{mnuDirShow, "フォルダ一覧(&D)", "Ctrl+D"},
    CommandEntry{mnuSortRenameName, "リネーム名(&R)", "", Needs::kRows},
    CommandEntry{mnuSortTitle, "タイトル(&T)", "", Needs::kRows},
    CommandEntry{mnuSortArtist, "著作権/アーティスト(&A)", "", Needs::kRows},
    CommandEntry{mnuSortType, "種類(&K)", "", Needs::kRows},
    CommandEntry{mnuSortSize, "サイズ(&S)", "", Needs::kRows},
    CommandEntry{mnuSortLocation, "場所(&L)", "", Needs::kRows},
    CommandEntry{mnuShowHelp, "ヘルプの表示(&H)", "F1"},
    CommandEntry{mnuVarInfo, "バージョン情報(&A)...", ""},
    CommandEntry{mnuThisUpdate, "ファイルに適応(&U)", "", Needs::kSelectedRow, true},
    CommandEntry{mnuThisRename, "タイトルにリネーム(&T)", "", Needs::kSelectedRow},
    CommandEntry{mnuThisUndo, "元に戻す(&Z)", "", Needs::kSelectedRow},
    CommandEntry{mnuThisEditRenameName, "リネーム名の変更(&E)", "F2", Needs::kSelectedRow},
    CommandEntry{mnuThisMove, "ファイルを移動(&M)...", "", Needs::kSelectedRow},
    CommandEntry{mnuThisDel, "ファイルを削除(&D)", "Del", Needs::kSelectedRow},
    CommandEntry{mnuThisListDel, "リストから削除(&L)", "Shift+Del", Needs::kSelectedRow},
};

constexpr std::array kFileMenu = {
    mnuFolderReference, mnuFileLoad, mnuReload, mnuAllClear, kSeparator,           mnuUpdate,
    mnuAllUpdate,       kSeparator,  mnuOption, kSeparator,  mnuOptionDefaultExit, mnuExit};
constexpr std::array kEditMenu = {mnuRename, mnuAllRename, kSeparator, mnuModify,  mnuAllModify,   kSeparator,
                                  mnuUndo,   mnuAllUndo,   kSeparator, mnuMove,    mnuAllMove,     kSeparator,
                                  mnuAllChk, mnuChkRem,    mnuTurnChk, kSeparator, mnuUnChkListRem};
constexpr std::array kPlayMenu = {mnuPlay, mnuPause, mnuStop, kSeparator, mnuRepeat};
constexpr std::array kViewMenu = {mnuFront, mnuApplyMode, kSeparator, mnuSortRenameName, kSeparator, mnuDirShow};
constexpr std::array kHelpMenu = {mnuShowHelp, kSeparator, mnuVarInfo};
constexpr std::array kSortMenu = {mnuSortRenameName, mnuSortTitle, mnuSortArtist,
                                  mnuSortType,       mnuSortSize,  mnuSortLocation};
constexpr std::array kRowMenu = {
    mnuPlay,       kSeparator, mnuThisEditRenameName, mnuThisRename, mnuThisUndo, kSeparator,
    mnuThisUpdate, kSeparator, mnuThisMove,           mnuThisDel,    kSeparator,  mnuThisListDel};
constexpr std::array kMenuBar = {MenuEntries{"ファイル(&F)", kFileMenu}, MenuEntries{"編集(&E)", kEditMenu},
                                 MenuEntries{"再生(&P)", kPlayMenu}, MenuEntries{"表示(&V)", kViewMenu},
                                 MenuEntries{"ヘルプ(&H)", kHelpMenu}};

constexpr std::array kToolBar = {
    ToolBarButton{mnuFolderReference, "フォルダ参照", "open-folder"},
    ToolBarButton{mnuReload, "再読み込み", "reload"},
    ToolBarButton{mnuUpdate, "ファイルに適応", "apply", mnuAllUpdate, "すべてファイルに適応(&A)"},
    ToolBarButton{},
    ToolBarButton{mnuRename, "タイトルにリネーム", "title", mnuAllRename, "すべてタイトルにリネーム(&R)"},
    ToolBarButton{mnuModify, "リネーム名を編集", "modify", mnuAllModify, "すべてリネーム名を編集(&A)"},
    ToolBarButton{mnuMove, "ファイルを移動", "move", mnuAllMove, "すべてファイルを移動(&A)"},
    ToolBarButton{},
    ToolBarButton{mnuOption, "オプション", "options"},
};

}  // namespace

CommandState StateOf(const FileList& list, const ApplyMode& mode) {
  return {list.Count(), list.CheckedCount(), list.SelectedCount() > 0, mode.automatic};
}

const CommandEntry& EntryOf(Command command) {
  static constexpr CommandEntry kNone;
  const auto* const found = std::find_if(kEntries.begin(), kEntries.end(),
                                         [command](const CommandEntry& entry) { return entry.command == command; });
  return found == kEntries.end() ? kNone : *found;
}

std::string PlainCaption(Command command) {
  std::string caption = EntryOf(command).caption;
  return caption.substr(0, caption.find("(&"));
}

bool IsEnabled(Command command, const CommandState& state) {
  const CommandEntry& entry = EntryOf(command);
  if (entry.manualModeOnly && state.automatic) return false;
  switch (entry.needs) {
    case Needs::kNothing: return command != kSeparator;
    case Needs::kRows: return state.rows > 0;
    case Needs::kCheckedRows: return state.checked > 0;
    case Needs::kSelectedRow: return state.selected;
  }
  return false;
}

bool IsSwitch(Command command) {
  return command == mnuFront || command == mnuRepeat;
}

std::span<const MenuEntries> MenuBarEntries() {
  return kMenuBar;
}

std::span<const Command> SortCommands() {
  return kSortMenu;
}

bool IsSort(Command command) {
  return std::find(kSortMenu.begin(), kSortMenu.end(), command) != kSortMenu.end();
}

Column SortColumn(Command command) {
  return static_cast<Column>(static_cast<int>(command) - static_cast<int>(mnuSortRenameName));
}

std::span<const Command> RowMenuCommands() {
  return kRowMenu;
}

std::span<const ToolBarButton> ToolBarButtons() {
  return kToolBar;
}

}  // namespace quillon
