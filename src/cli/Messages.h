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

}  // namespace quillon::cli::messages
