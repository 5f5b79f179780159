#pragma once

#include "cli/HelpTexts.h"

/// What quillon-cli itself says while it works, in each language.
namespace quillon::cli::messages {

// Every batch. Texts with a number: see Counting.
inline constexpr HelpText kInterrupted = {"Interrupted; the remaining files are as they were",
                                          "中断されました。残りのファイルは元のままです"};
inline constexpr HelpText kStopped = {"An error has ended the run", "エラーにより処理が中断されました"};
inline constexpr HelpText kBeforeWhere = {". ", "。"};
inline constexpr HelpText kMoved = {"Files moved", " 個のファイルの移動が完了しました"};
inline constexpr HelpText kNotMoved = {"Files not moved", " 個のファイルが移動できませんでした"};
inline constexpr HelpText kFileNotMoved = {"the file could not be moved", "ファイルが移動できませんでした"};
inline constexpr HelpText kDeleted = {"Files deleted", " 個のファイルを削除しました"};
inline constexpr HelpText kRecycled = {"Files moved to the recycle bin", " 個のファイルをごみ箱に移動しました"};
inline constexpr HelpText kNotDeleted = {"Files not deleted", " 個のファイルが削除できませんでした"};
inline constexpr HelpText kFileNotDeleted = {"the file could not be deleted", "ファイルが削除できません"};
inline constexpr HelpText kNamesCaption = {"Changing the names", "リネーム名の編集"};
inline constexpr HelpText kLeftAlone = {
    "Names left as they are, because replacing would not end or make them longer than 32,767 characters",
    " 個のリネーム名は、置換が終わらないか 32,767 文字を超えるため編集されませんでした"};

// The folder of a move.
inline constexpr HelpText kNoFolder = {"name the folder that the files go to", "移動先のフォルダを指定してください"};
inline constexpr HelpText kFolderForbidden = {"the folder cannot be accessed: ", "移動先にアクセスできません: "};
inline constexpr HelpText kFolderAbsent = {"there is no such folder: ", "移動先のフォルダがありません: "};
inline constexpr HelpText kIsNoFolder = {"this is no folder: ", "移動先がフォルダではありません: "};

// Reading, writing, settings.
inline constexpr HelpText kTooDeep = {"the folders lie too deep", "階層が深すぎます"};
inline constexpr HelpText kVanished = {"the file has gone", "ファイルがなくなりました"};
inline constexpr HelpText kNoAccess = {"it cannot be accessed", "アクセスできません"};
inline constexpr HelpText kOutputFailed = {"standard output cannot be written", "標準出力に書き込めません"};
inline constexpr HelpText kSettingsUnread = {"the settings file cannot be read: ", "設定ファイルを読み込めません: "};
inline constexpr HelpText kSettingsDamaged = {"the settings file may be damaged",
                                              "設定ファイルが壊れている可能性があります 再度起動してください "
                                              "それでも初期化エラーが出る場合はヘルプを参照してください"};
inline constexpr HelpText kPresetDamaged = {"the preset holds a value that does not fit",
                                            "プリセットに正しくない値があります"};
inline constexpr HelpText kNoPreset = {"there is no such preset, only those below: ",
                                       "プリセットがありません。使えるのは下のものです: "};
inline constexpr HelpText kUnexpected = {"an unexpected error has occurred", "予期しないエラーが発生しました"};

// The log, and taking renames back.
inline constexpr HelpText kLogIsListed = {"the log is one of the files: ", "記録のファイルが対象に含まれています: "};
inline constexpr HelpText kLogIsNone = {"this file is no log of renames, or its last line is torn: ",
                                        "リネームの記録ではないか、最後の行が途切れています: "};
inline constexpr HelpText kLogNotOpened = {"the log cannot be written: ", "記録に書き込めません: "};
inline constexpr HelpText kLogBroken = {"the log cannot be written; the remaining files are as they were",
                                        "記録に書き込めないため、中断しました。残りのファイルは元のままです"};
inline constexpr HelpText kLogUnread = {"the log cannot be read: ", "記録を読み込めません: "};
inline constexpr HelpText kLogDamaged = {"this line is none of a log of renames: ",
                                         "リネームの記録ではない行があります: "};
inline constexpr HelpText kLogTorn = {"the last line is torn and passed over: ",
                                      "最後の行が途切れているため、読み飛ばします: "};
inline constexpr HelpText kUndone = {"Files taken back", " 個のファイルを元に戻しました"};
inline constexpr HelpText kNotUndone = {"Files not taken back", " 個のファイルを元に戻せませんでした"};
inline constexpr HelpText kGone = {"the file is not there any more", "ファイルがなくなっています"};
inline constexpr HelpText kAnotherFile = {"another file has this name now", "別のファイルになっています"};
inline constexpr HelpText kChanged = {"the file was changed since", "ファイルが変更されています"};
inline constexpr HelpText kOldNameTaken = {"the old name is taken: ", "元の名前のファイルがあります: "};
inline constexpr HelpText kNotTakenBack = {"the file could not be taken back", "ファイルを元に戻せませんでした"};

// Names and plans that are read from a file.
inline constexpr HelpText kFileUnread = {"the file cannot be read: ", "ファイルを読み込めません: "};
inline constexpr HelpText kNoName = {"this line gives no name, or is not valid UTF-8",
                                     "名前として読み取れない行です（UTF-8 で書いてください）"};
inline constexpr HelpText kNotListed = {"the file is not one of those given", "対象に含まれていないファイルです"};
inline constexpr HelpText kNamedTwice = {"the file is named twice", "同じファイルが二度指定されています"};
inline constexpr HelpText kCountDiffers = {"the number of names is not that of the files (names / files): ",
                                           "名前の数がファイルの数と違います: "};
inline constexpr HelpText kPlanDamaged = {"this line does not say what is renamed to what",
                                          "元の名前と新しい名前が分からない行です"};
inline constexpr HelpText kPlanNoSource = {"there is no such file", "ファイルがありません"};
inline constexpr HelpText kPlanSameTarget = {"another line gives the same name", "別の行と同じ名前になります"};
inline constexpr HelpText kPlanTargetExists = {"a file of this name exists", "同名のファイルが存在します"};
inline constexpr HelpText kPlanOtherFolder = {"this is another folder", "別のフォルダには移動できません"};
inline constexpr HelpText kPlanInvalidCharacter = {"a file name cannot hold one of these characters",
                                                   "名前に不正な文字が含まれています"};
inline constexpr HelpText kPlanInvalidName = {"this is no name for a file, or it is too long",
                                              "名前が無効 または 長すぎます"};
inline constexpr HelpText kPlanNoAccess = {"the file cannot be accessed", "ファイルにアクセスできません"};
inline constexpr HelpText kPlanFailed = {"the file could not be renamed", "リネームできませんでした"};
inline constexpr HelpText kPlanTakenBack = {"all files have their old names again", "すべてのファイルを元に戻しました"};
inline constexpr HelpText kPlanNotTakenBack = {"some files could not be taken back",
                                               "元に戻せなかったファイルがあります"};

// Asking.
inline constexpr HelpText kNoTerminal = {"--ask needs a terminal to ask on", "--ask は端末でしか使えません"};
inline constexpr HelpText kAskRename = {"Rename these files?", "リネームしますか？"};
inline constexpr HelpText kAskMove = {"Move these files?", "移動しますか？"};
inline constexpr HelpText kAskDelete = {"Delete these files?", "削除しますか？"};

}  // namespace quillon::cli::messages
