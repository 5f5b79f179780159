#include "app/CommandTable.h"

#include <algorithm>
#include <array>

#include "app/Application.h"

namespace quillon {
namespace {

using enum Command;
using To = const CommandTargets&;

constexpr std::array kEntries = {
    CommandEntry{mnuFolderReference, "フォルダ参照(&O)...", "Ctrl+O", Needs::kNothing, InMode::kAny,
                 [](To to) { (void)to.loading.mnuFolderReference(); }},
    CommandEntry{mnuFileLoad, "ファイルを開く(&F)...", "Ctrl+Shift+O", Needs::kNothing, InMode::kAny,
                 [](To to) { to.app.OpenFiles(); }},
    CommandEntry{mnuReload, "再読み込み(&R)", "F5", Needs::kRows, InMode::kAny, [](To to) { to.loading.mnuReload(); }},
    CommandEntry{mnuAllClear, "リストクリア(&C)", "Ctrl+Shift+N", Needs::kRows, InMode::kAny,
                 [](To to) { to.list.mnuAllClear(); }},
    CommandEntry{mnuUpdate, "チェックアイテムをファイルに適応(&U)", "Ctrl+S", Needs::kCheckedRows, InMode::kManual,
                 [](To to) { to.applying.mnuUpdate(); }},
    CommandEntry{mnuAllUpdate, "すべてファイルに適応(&A)", "Ctrl+Shift+S", Needs::kRows, InMode::kManual,
                 [](To to) { to.applying.mnuAllUpdate(); }},
    CommandEntry{mnuOption, "オプション(&P)...", "", Needs::kNothing, InMode::kAny,
                 [](To to) { to.app.ShowOptions(); }},
    CommandEntry{mnuOptionDefaultExit, "設定をデフォルトに戻して終了(&D)", "", Needs::kNothing, InMode::kAny,
                 [](To to) { to.app.ResetAndEnd(); }},
    CommandEntry{mnuExit, "終了(&X)", "Ctrl+Q", Needs::kNothing, InMode::kAny, [](To to) { to.main.Quit(); }},
    CommandEntry{mnuRename, "チェックアイテムをタイトルにリネーム(&T)", "Ctrl+T", Needs::kCheckedRows, InMode::kAny,
                 [](To to) { to.editing.mnuRename(); }},
    CommandEntry{mnuAllRename, "すべてタイトルにリネーム(&R)", "Ctrl+Shift+T", Needs::kRows, InMode::kAny,
                 [](To to) { to.editing.mnuAllRename(); }},
    CommandEntry{mnuPattern, "チェックアイテムを書式でリネーム(&F)...", "Ctrl+P", Needs::kCheckedRows, InMode::kAny,
                 [](To to) { to.main.ShowPatternDialog(Rows::kChecked); }},
    CommandEntry{mnuAllPattern, "すべて書式でリネーム(&P)...", "Ctrl+Shift+P", Needs::kRows, InMode::kAny,
                 [](To to) { to.main.ShowPatternDialog(Rows::kAll); }},
    CommandEntry{mnuModify, "チェックアイテムのリネーム名を編集(&E)...", "Ctrl+E", Needs::kCheckedRows, InMode::kAny,
                 [](To to) { to.main.ShowModifyDialog(Rows::kChecked); }},
    CommandEntry{mnuAllModify, "すべてリネーム名を編集(&A)...", "Ctrl+Shift+E", Needs::kRows, InMode::kAny,
                 [](To to) { to.main.ShowModifyDialog(Rows::kAll); }},
    CommandEntry{mnuUndo, "チェックアイテムのリネーム名を元に戻す(&U)", "Ctrl+R", Needs::kCheckedRows, InMode::kManual,
                 [](To to) { to.editing.mnuUndo(); }},
    CommandEntry{mnuAllUndo, "すべてのリネーム名を元に戻す(&B)", "Ctrl+Shift+R", Needs::kRows, InMode::kManual,
                 [](To to) { to.editing.mnuAllUndo(); }},
    CommandEntry{mnuMove, "チェックアイテムを移動(&M)...", "Ctrl+M", Needs::kCheckedRows, InMode::kAny,
                 [](To to) { to.files.mnuMove(); }},
    CommandEntry{mnuAllMove, "すべてファイルを移動(&L)...", "Ctrl+Shift+M", Needs::kRows, InMode::kAny,
                 [](To to) { to.files.mnuAllMove(); }},
    CommandEntry{mnuAllChk, "すべてチェックする(&K)", "Ctrl+K", Needs::kRows, InMode::kAny,
                 [](To to) { to.list.mnuAllChk(); }},
    CommandEntry{mnuChkRem, "すべてのチェックをはずす(&C)", "Ctrl+Shift+K", Needs::kRows, InMode::kAny,
                 [](To to) { to.list.mnuChkRem(); }},
    CommandEntry{mnuTurnChk, "チェックを反転する(&I)", "Ctrl+I", Needs::kRows, InMode::kAny,
                 [](To to) { to.list.mnuTurnChk(); }},
    CommandEntry{mnuUnChkListRem, "チェックのないアイテムをリストから削除(&D)", "", Needs::kRows, InMode::kAny,
                 [](To to) { to.list.mnuUnChkListRem(); }},
    CommandEntry{mnuEditUndo, "直前の編集を取り消す(&Z)", "Ctrl+Z", Needs::kUndo, InMode::kManual,
                 [](To to) { to.edits.mnuEditUndo(); }},
    CommandEntry{mnuEditRedo, "取り消した編集をやり直す(&Y)", "Ctrl+Y", Needs::kRedo, InMode::kManual,
                 [](To to) { to.edits.mnuEditRedo(); }},
    CommandEntry{mnuNextPending, "次の未適応へ(&N)", "F8", Needs::kPendingRows, InMode::kAny,
                 [](To to) { to.edits.mnuNextPending(); }},
    CommandEntry{mnuFind, "検索(&S)", "Ctrl+F", Needs::kRows, InMode::kAny, [](To to) { to.app.Find(); },
                 Runs::kAsEvent},
    CommandEntry{mnuFindNext, "次を検索(&G)", "F3", Needs::kRows, InMode::kAny, [](To to) { to.app.FindNext(); },
                 Runs::kAsEvent},
    CommandEntry{mnuFindPrevious, "前を検索(&H)", "Shift+F3", Needs::kRows, InMode::kAny,
                 [](To to) { to.app.FindPrevious(); }, Runs::kAsEvent},
    CommandEntry{mnuPlay, "再生(&P)", "", Needs::kSelectedRow, InMode::kAny, [](To to) { to.player.mnuPlay(); }},
    CommandEntry{mnuPause, "一時停止(&U)", "F7", Needs::kNothing, InMode::kAny, [](To to) { to.player.PauseOrGoOn(); }},
    CommandEntry{mnuStop, "停止(&S)", "Shift+F7", Needs::kNothing, InMode::kAny, [](To to) { to.player.cmdStop(); }},
    CommandEntry{mnuRepeat, "リピート(&R)", "F9", Needs::kNothing, InMode::kAny, [](To to) { to.app.ToggleRepeat(); },
                 Runs::kExclusively, [](const OptionValues& options) { return options.player.repeat; }},
    CommandEntry{mnuFront, "常に手前に表示(&F)", "", Needs::kNothing, InMode::kAny,
                 [](To to) { to.app.ToggleAlwaysOnTop(); }, Runs::kExclusively,
                 [](const OptionValues& options) { return options.system.alwaysOnTop; }},
    CommandEntry{mnuApplyMode, "適応モードの切り替え(&M)", "", Needs::kNothing, InMode::kAny,
                 [](To to) { to.app.SwitchMode(); }},
    CommandEntry{mnuToolLabels, "ツールバーの文字を表示(&L)", "", Needs::kNothing, InMode::kAny,
                 [](To to) { to.app.ToggleToolBarLabels(); }, Runs::kExclusively,
                 [](const OptionValues& options) { return options.extra.toolBarLabels; }},
    CommandEntry{mnuDirShow, "フォルダ一覧(&D)", "Ctrl+D", Needs::kNothing, InMode::kAny,
                 [](To to) { to.main.ShowFolderList(); }},
    CommandEntry{mnuSortRenameName, "リネーム名(&R)", "", Needs::kRows, InMode::kAny,
                 [](To to) { to.app.HeaderClicked(Column::kRenameName); }, Runs::kAsEvent},
    CommandEntry{mnuSortTitle, "タイトル(&T)", "", Needs::kRows, InMode::kAny,
                 [](To to) { to.app.HeaderClicked(Column::kTitle); }, Runs::kAsEvent},
    CommandEntry{mnuSortArtist, "著作権/アーティスト(&A)", "", Needs::kRows, InMode::kAny,
                 [](To to) { to.app.HeaderClicked(Column::kArtist); }, Runs::kAsEvent},
    CommandEntry{mnuSortType, "種類(&K)", "", Needs::kRows, InMode::kAny,
                 [](To to) { to.app.HeaderClicked(Column::kType); }, Runs::kAsEvent},
    CommandEntry{mnuSortSize, "サイズ(&S)", "", Needs::kRows, InMode::kAny,
                 [](To to) { to.app.HeaderClicked(Column::kSize); }, Runs::kAsEvent},
    CommandEntry{mnuSortLocation, "場所(&L)", "", Needs::kRows, InMode::kAny,
                 [](To to) { to.app.HeaderClicked(Column::kLocation); }, Runs::kAsEvent},
    CommandEntry{mnuShowHelp, "ヘルプの表示(&H)", "F1", Needs::kNothing, InMode::kAny,
                 [](To to) { to.app.ShowHelp(); }},
    CommandEntry{mnuVarInfo, "バージョン情報(&A)...", "", Needs::kNothing, InMode::kAny,
                 [](To to) { to.main.ShowVersionDialog(); }},
    CommandEntry{mnuThisUpdate, "ファイルに適応(&U)", "", Needs::kSelectedRow, InMode::kManual,
                 [](To to) { to.applying.mnuThisUpdate(); }},
    CommandEntry{mnuThisRename, "タイトルにリネーム(&T)", "", Needs::kSelectedRow, InMode::kAny,
                 [](To to) { to.editing.mnuThisRename(); }},
    CommandEntry{mnuThisUndo, "元に戻す(&Z)", "", Needs::kSelectedRow, InMode::kAny,
                 [](To to) { to.editing.mnuThisUndo(); }},
    CommandEntry{mnuThisEditRenameName, "リネーム名の変更(&E)", "F2", Needs::kSelectedRow, InMode::kAny,
                 [](To to) { to.app.EditLabel(); }, Runs::kAsEvent},
    CommandEntry{mnuThisMove, "ファイルを移動(&M)...", "", Needs::kSelectedRow, InMode::kAny,
                 [](To to) { to.files.mnuThisMove(); }},
    CommandEntry{mnuThisDel, "ファイルを削除(&D)", "Del", Needs::kSelectedRow, InMode::kAny,
                 [](To to) { to.files.mnuThisDel(); }},
    CommandEntry{mnuThisListDel, "リストから削除(&L)", "Shift+Del", Needs::kSelectedRow, InMode::kAny,
                 [](To to) { to.list.mnuThisListDel(); }},
};

constexpr std::array kFileMenu = {
    mnuFolderReference, mnuFileLoad, mnuReload, mnuAllClear, kSeparator,           mnuUpdate,
    mnuAllUpdate,       kSeparator,  mnuOption, kSeparator,  mnuOptionDefaultExit, mnuExit};
constexpr std::array kEditMenu = {
    mnuEditUndo,     mnuEditRedo, kSeparator,   mnuRename,   mnuAllRename,    mnuPattern,    mnuAllPattern,
    kSeparator,      mnuModify,   mnuAllModify, kSeparator,  mnuUndo,         mnuAllUndo,    kSeparator,
    mnuMove,         mnuAllMove,  kSeparator,   mnuAllChk,   mnuChkRem,       mnuTurnChk,    kSeparator,
    mnuUnChkListRem, kSeparator,  mnuFind,      mnuFindNext, mnuFindPrevious, mnuNextPending};
constexpr std::array kPlayMenu = {mnuPlay, mnuPause, mnuStop, kSeparator, mnuRepeat};
constexpr std::array kViewMenu = {mnuFront,          mnuApplyMode, mnuToolLabels, kSeparator,
                                  mnuSortRenameName, kSeparator,   mnuDirShow};
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
    ToolBarButton{mnuFolderReference, "フォルダ参照", "フォルダ", "open-folder"},
    ToolBarButton{mnuReload, "再読み込み", "再読み込み", "reload"},
    ToolBarButton{mnuUpdate, "ファイルに適応", "適応", "apply", mnuAllUpdate, "すべてファイルに適応(&A)"},
    ToolBarButton{},
    ToolBarButton{mnuRename, "タイトルにリネーム", "タイトル", "title", mnuAllRename, "すべてタイトルにリネーム(&R)"},
    ToolBarButton{mnuModify, "リネーム名を編集", "編集", "modify", mnuAllModify, "すべてリネーム名を編集(&A)"},
    ToolBarButton{mnuMove, "ファイルを移動", "移動", "move", mnuAllMove, "すべてファイルを移動(&A)"},
    ToolBarButton{},
    ToolBarButton{mnuOption, "オプション", "オプション", "options"},
};

}  // namespace

CommandState StateOf(const FileList& list, const ApplyMode& mode) {
  return {.rows = list.Count(),
          .checked = list.CheckedCount(),
          .selected = list.SelectedCount() > 0,
          .automatic = mode.automatic,
          .pending = list.PendingCount(),
          .canUndo = list.Edits().CanUndo(),
          .canRedo = list.Edits().CanRedo()};
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
  if (entry.mode == InMode::kManual && state.automatic) return false;
  switch (entry.needs) {
    case Needs::kNothing: return command != kSeparator;
    case Needs::kRows: return state.rows > 0;
    case Needs::kCheckedRows: return state.checked > 0;
    case Needs::kSelectedRow: return state.selected;
    case Needs::kPendingRows: return state.pending > 0;
    case Needs::kUndo: return state.canUndo;
    case Needs::kRedo: return state.canRedo;
  }
  return false;
}

std::span<const MenuEntries> MenuBarEntries() {
  return kMenuBar;
}

std::span<const Command> SortCommands() {
  return kSortMenu;
}

std::span<const Command> RowMenuCommands() {
  return kRowMenu;
}

std::span<const ToolBarButton> ToolBarButtons() {
  return kToolBar;
}

}  // namespace quillon
