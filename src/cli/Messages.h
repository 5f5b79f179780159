#pragma once

#include "cli/HelpTexts.h"

/// What quillon-cli itself says while it works, in each language.
namespace quillon::cli::messages {

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
inline constexpr HelpText kUndone = {" files have their old names again", " 個のファイルを元に戻しました"};
inline constexpr HelpText kNotUndone = {" files could not be taken back", " 個のファイルを元に戻せませんでした"};
inline constexpr HelpText kGone = {"the file is not there any more", "ファイルがなくなっています"};
inline constexpr HelpText kAnotherFile = {"another file has this name now", "別のファイルになっています"};
inline constexpr HelpText kChanged = {"the file was changed since", "ファイルが変更されています"};
inline constexpr HelpText kOldNameTaken = {"the old name is taken: ", "元の名前のファイルがあります: "};
inline constexpr HelpText kNotTakenBack = {"the file could not be taken back", "ファイルを元に戻せませんでした"};

// Names and plans that are read from a file.
inline constexpr HelpText kFileUnread = {"the file cannot be read: ", "ファイルを読み込めません: "};
inline constexpr HelpText kNoName = {"this line does not say which file gets which name",
                                     "どのファイルの名前なのか分からない行です"};
inline constexpr HelpText kNotListed = {"the file is not one of those given", "対象に含まれていないファイルです"};
inline constexpr HelpText kNamedTwice = {"the file is named twice", "同じファイルが二度指定されています"};
inline constexpr HelpText kCountDiffers = {"as many names as files are needed: ", "名前の数がファイルの数と違います: "};
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
