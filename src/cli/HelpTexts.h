#pragma once

#include <string>

/// The texts of --help and of the answers to wrong usage, in each language.
namespace quillon::cli {

struct HelpText {
  const char* english;
  const char* japanese;
};

/// The text in the user's language: Japanese, or English for everybody else.
[[nodiscard]] std::string Localized(const HelpText& text);

namespace texts {

inline constexpr HelpText kProgram = {"Quillon gives many files proper names.",
                                      "Quillon は、たくさんのファイルに適切な名前を付けるプログラムです。"};
inline constexpr HelpText kUsage = {"Usage", "使い方"};
inline constexpr HelpText kPositionals = {"Positionals", "引数"};
inline constexpr HelpText kOptions = {"Options", "オプション"};
inline constexpr HelpText kCommands = {"Commands", "コマンド"};
inline constexpr HelpText kRequired = {" (required)", "（必須）"};
inline constexpr HelpText kHelp = {"Show this help and end", "このヘルプを表示して終わる"};
inline constexpr HelpText kVersion = {"Show the version and end", "バージョンを表示して終わる"};

// Shared by several commands.
inline constexpr HelpText kPaths = {"Files and folders", "ファイルとフォルダ"};
inline constexpr HelpText kSubfolders = {"Search the folders' subfolders, too", "サブフォルダの中も検索する"};
inline constexpr HelpText kExtensions = {
    "Extensions to load from folders, separated by blanks (\"mid mp3\"); not together with --all",
    "フォルダから読み込む拡張子。空白で区切る（\"mid mp3\"）。--all とは一緒に使えない"};
inline constexpr HelpText kAll = {"Load every file of the folders", "フォルダのすべてのファイルを読み込む"};
inline constexpr HelpText kTags = {
    "The tags that are read: those of MIDI and MP3 files, or also those of newer versions and other music files",
    "読み取るタグ。standard は MIDI と MP3 のタグ、all は新しい版のタグや、ほかの音楽ファイルのタグも"};
inline constexpr HelpText kJson = {"One JSON object per line", "一行に一つの JSON で出力する"};

inline constexpr HelpText kList = {"Show the files' names, titles, artists, types and sizes",
                                   "ファイルの名前、タイトル、アーティスト、種類、サイズを表示する"};
inline constexpr HelpText kInfo = {"Show what is known of each file", "それぞれのファイルについて分かることを表示する"};
inline constexpr HelpText kReader = {"Show the record of this reader", "この読み取り方の結果を表示する"};
inline constexpr HelpText kFiles = {"Files", "ファイル"};
inline constexpr HelpText kModify = {"Transform names from standard input by the modification rules",
                                     "標準入力の名前を編集の規則で変換する"};
inline constexpr HelpText kModifySettings = {"The settings file that holds the rules; needed without --preset",
                                             "規則を読む設定ファイル。--preset を付けなければ必須"};
inline constexpr HelpText kModifyPreset = {
    "Use this preset's rules: one of the settings file, or one that comes with the program",
    "このプリセットの規則を使う。設定ファイルのプリセットか、標準のプリセット"};
inline constexpr HelpText kListCount = {"How many rows the list is taken to hold", "リストにあるとみなす行の数"};
inline constexpr HelpText kOnce = {"Apply each modification rule once, not once per row",
                                   "編集の規則を、行の数だけ繰り返さず一度だけ実行する"};
inline constexpr HelpText kRename = {"Show what would be renamed, or rename",
                                     "リネームの予告を表示する、またはリネームする"};
inline constexpr HelpText kToTitle = {"Set the names to the titles", "タイトルを名前にする"};
inline constexpr HelpText kFormat = {"Make the names by a pattern, \"{artist} - {title}\"",
                                     "書式で名前を作る（\"{artist} - {title}\"）"};
inline constexpr HelpText kStart = {"The first number of {n}", "{n} のはじめの数"};
inline constexpr HelpText kStep = {"What {n} grows by", "{n} の増える数"};
inline constexpr HelpText kModifyNames = {"Transform the names by the modification rules",
                                          "名前を編集の規則で変換する"};
inline constexpr HelpText kRenamePreset = {
    "The same by this preset: one of the settings file, or one that comes with the program",
    "このプリセットの規則で名前を変換する。設定ファイルのプリセットか、標準のプリセット"};
inline constexpr HelpText kRenameSettings = {"The settings file that holds rules and options",
                                             "規則とオプションを読む設定ファイル"};
inline constexpr HelpText kRenameApply = {"Rename the files; without it nothing is changed",
                                          "ファイルをリネームする。付けなければ何も変更しない"};
inline constexpr HelpText kMove = {"Show what would be moved to a folder, or move",
                                   "フォルダへの移動の予告を表示する、または移動する"};
inline constexpr HelpText kTo = {"The folder that the files go to", "移動先のフォルダ"};
inline constexpr HelpText kMoveApply = {"Move the files; without it nothing is changed",
                                        "ファイルを移動する。付けなければ何も変更しない"};
inline constexpr HelpText kDelete = {"Show what would be deleted, or move it to the recycle bin",
                                     "削除の予告を表示する、またはごみ箱に移動する"};
inline constexpr HelpText kForGood = {"Delete the files for good, not to the recycle bin",
                                      "ごみ箱に移動せず、完全に削除する"};
inline constexpr HelpText kDeleteApply = {"Delete the files; without it nothing is changed",
                                          "ファイルを削除する。付けなければ何も変更しない"};
inline constexpr HelpText kAsk = {"Show what would be done, then ask whether to do it",
                                  "予告を表示してから、実行するかどうかを尋ねる"};
inline constexpr HelpText kPathsOrPlan = {"Files and folders; needed without --plan",
                                          "ファイルとフォルダ。--plan を付けなければ必須"};
inline constexpr HelpText kNames = {
    "Names from this file (- for standard input): one per line, or JSON with path and name",
    "名前をこのファイル（- は標準入力）から読む。一行に一つの名前か、path と name の JSON"};
inline constexpr HelpText kPortable = {"Change the names so that every system can hold them",
                                       "どのシステムでも使える名前にする"};
inline constexpr HelpText kNormalize = {"Write the names in this normal form of Unicode",
                                        "名前を Unicode のこの正規化形式にする"};
inline constexpr HelpText kPlan = {
    "Rename by this file (- for standard input), JSON with old and new: names may change places",
    "このファイル（- は標準入力）の old と new の JSON でリネームする。名前の入れ替えもできる"};
inline constexpr HelpText kLog = {"Write each rename to this file, from which undo takes it back",
                                  "undo で元に戻せるように、リネームをこのファイルに記録する"};
inline constexpr HelpText kMoveLog = {"Write each move to this file, from which undo takes it back",
                                      "undo で元に戻せるように、移動をこのファイルに記録する"};
inline constexpr HelpText kUndo = {"Show what a log's renames and moves would be taken back to, or take them back",
                                   "記録したリネームと移動を元に戻す予告を表示する、または元に戻す"};
inline constexpr HelpText kUndoFile = {"The log that --log has written", "--log で記録したファイル"};
inline constexpr HelpText kUndoApply = {"Take the renames back; without it nothing is changed",
                                        "元に戻す。付けなければ何も変更しない"};
inline constexpr HelpText kMci = {"Send the command strings from standard input to the multimedia device",
                                  "標準入力のコマンド文字列をマルチメディアデバイスに送る"};
inline constexpr HelpText kMciFooter = {
    "One command per line (Open \"song.mp3\" alias X); empty lines and lines that start with # are passed over.\n"
    "Each is answered by a line: the reply, or \"error\" and a number.\n"
    "Two commands are not for the device: \"wait N\" waits N milliseconds and answers nothing;\n"
    "\"await X MODE N\" waits until X has the mode, at most N milliseconds, and answers the mode it then has.\n"
    "On Linux up to 32 files are open at once; a further one is answered by \"error 264\".",
    "コマンドは一行に一つです（Open \"song.mp3\" alias X）。空の行と # で始まる行は飛ばします。\n"
    "それぞれに一行で答えます。結果、または「error」と番号です。\n"
    "次の二つは、デバイスに送りません。「wait N」は N ミリ秒待ちます。答えはありません。\n"
    "「await X MODE N」は、X が MODE の状態になるまで、長くても N ミリ秒待ち、そのときの状態を答えます。\n"
    "Linux では、同時に開けるファイルは 32 個までです。それを超えると「error 264」と答えます。"};

inline constexpr HelpText kCompletion = {"Write a script with which a shell completes the commands and their options",
                                         "シェルがコマンドとオプションを補完するためのスクリプトを出力する"};
inline constexpr HelpText kShell = {"The shell", "シェル"};

// Wrong usage.
inline constexpr HelpText kEmptyPath = {"an empty PATH names nothing", "PATH が空です"};
inline constexpr HelpText kSeeHelp = {"Run with --help for more information.", "使い方は --help で表示されます。"};

/// The kind of mistake, in Japanese. The parser's own sentence, which names the argument, follows it; in English that
/// sentence is shown alone.
inline constexpr const char* kTooFewArguments = "必要な引数が足りません";
inline constexpr const char* kUnknownArgument = "使えない引数があります";
inline constexpr const char* kNotTogether = "一緒に使えないオプションがあります";
inline constexpr const char* kWrongNumberOfValues = "オプションの値の数が正しくありません";
inline constexpr const char* kWrongValue = "値が正しくありません";
inline constexpr const char* kOtherMistake = "コマンドラインに誤りがあります";

}  // namespace texts
}  // namespace quillon::cli
