#include "dialogs/OptionTable.h"

#include <array>

namespace quillon {
namespace {

using enum OptionKind;
using enum OptionNeeds;

constexpr const char* kExtensionsTip = "複数の拡張子を指定する場合はスペースで区切ってください";

constexpr OptionControl Check(const char* name, const char* caption, const char* section, const char* key,
                              OptionNeeds needs = kNothing, const char* toolTip = "") {
  return {kCheckBox, name, caption, section, key, needs, toolTip};
}

constexpr OptionControl Extensions(const char* name, const char* key, const char* checkBox) {
  return {kTextBox, name, "", "Find", key, kOwnBox, kExtensionsTip, checkBox};
}

constexpr OptionControl Note(const char* name, const char* text) {
  return {kNote, name, text};
}

constexpr std::array kFilterControls = {
    Check("chkExtensionFilter", "拡張子フィルタ(&F)", "Find", "FilterChk"),
    Check("chkExtensionMusic", "メディアファイル(&M)", "Find", "ExtMusic", kFilter),
    Extensions("txtExtensionMusic", "ExtMusicText", "chkExtensionMusic"),
    Check("chkExtensionText", "文書ファイル(&D)", "Find", "ExtText", kFilter),
    Extensions("txtExtensionText", "ExtTextText", "chkExtensionText"),
    Check("chkExtensionHTML", "HTMLファイル(&H)", "Find", "ExtHTML", kFilter),
    Extensions("txtExtensionHTML", "ExtHTMLText", "chkExtensionHTML"),
    Check("chkExtensionEtc", "その他(&E)", "Find", "ExtEtc", kFilter),
    Extensions("txtExtensionEtc", "ExtEtcText", "chkExtensionEtc"),
};
constexpr std::array kFolderControls = {
    Check("chkSubFolder", "サブフォルダまで検索する(&S)", "List", "SubFolder"),
};
constexpr std::array kFolderPage = {OptionFrame{"読み込むファイル", kFilterControls, kExtensionsTip},
                                    OptionFrame{"フォルダ参照", kFolderControls}};

constexpr std::array kListControls = {
    Check("chkLoadRemove", "読み込み時にリストをクリアする(&L)", "List", "LoadRemove"),
    Check("chkLoadChk", "読込んだファイルにはチェックを付ける(&C)", "List", "LoadChk"),
};
constexpr std::array kDeleteControls = {
    OptionControl{kOptionButton, "optDel0", "ディスクから完全に削除(&D)", "List", "DeltoTrashBox", kNothing, "", "",
                  false},
    OptionControl{kOptionButton, "optDel1", "ごみ箱へ削除(&R)", "List", "DeltoTrashBox"},
    Check("chkDel", "確認する(&A)", "List", "DelCompMsg"),
};
constexpr std::array kListPage = {OptionFrame{"全般", kListControls}, OptionFrame{"削除の方法", kDeleteControls}};

constexpr std::array kRenameControls = {
    Check("chkRenameModify", "リネーム実行時に「リネーム名の編集」を実行する(R)", "Rename", "RenameModify"),
    OptionControl{kButton, "cmdModifyOption", "設定(&E)"},
};
constexpr std::array kRenameErrorControls = {
    Check("chkRenameInjusticeCheck", "不正な文字が含まれる場合はチェックを付ける(&D)", "Rename", "InjusticeChk",
          kManualMode),
    Check("chkRenameErrCheck", "スキップしたアイテムにチェックを付ける(&C)", "Rename", "RenameErrChk", kManualMode),
    Check("chkNoTitleSkip", "タイトルが存在しない場合はスキップする(&T)", "Rename", "NoTitleSkip", kManualMode),
};
constexpr std::array kRenamePage = {OptionFrame{"全般", kRenameControls},
                                    OptionFrame{"エラー時の処理", kRenameErrorControls}};

constexpr std::array kModeControls = {
    Check("chkAutoUpdate", "自動適応モードを有効にする(&A)", "Update", "AutoUpdate"),
    Note("lblUpdate_Note",
         "自動適応モードを有効にすると手動による適応処理、スキップ機能が無効になり、不正なリネームができなくなります\n"
         "また変更後すぐに適応される為、変更したファイル名を戻すことができません"),
};
constexpr std::array kUpdateControls = {
    Check("chkUpdateRemoveChk", "適応が正常に完了したアイテムはチェックをはずす(&T)", "Update", "UpdateRemChk",
          kManualMode),
};
constexpr std::array kUpdateErrorControls = {
    Check("chkUpdateErrChk", "エラーがあるアイテムにチェックを付ける(&C)", "Update", "UpdateErrChk"),
    Check("chkErrSkip", "エラーがあるアイテムはスキップする(&S)", "Update", "ErrSkip", kManualMode),
};
constexpr std::array kUpdatePage = {OptionFrame{"適応モード", kModeControls}, OptionFrame{"全般", kUpdateControls},
                                    OptionFrame{"エラー時の処理", kUpdateErrorControls}};

constexpr std::array kMoveControls = {
    Check("chkMoveRemainList", "ファイル移動後もそのファイルをリストに残す(&M)", "Move", "RemainList", kNothing,
          "ファイルの移動後も場所情報を更新してリストに残します"),
};
constexpr std::array kMovePage = {OptionFrame{"全般", kMoveControls}};

constexpr std::array kPlayerControls = {
    Check("chkPlayerAllPlay", "リスト内の連続再生を行う(&A)", "Player", "AllPlay"),
};
constexpr std::array kPlayerPage = {OptionFrame{"全般", kPlayerControls}};

constexpr std::array kMessageControls = {
    Check("chkMsgBox", "すべての確認メッセージを表示しない(&M)", "System", "Msgbox", kNothing,
          "メッセージを表示しないようにすると、すべてOK（はい）ボタンを押したことになります"),
};
constexpr std::array kReadingControls = {
    Check("chkSysMCITime", "演奏時間の読み込みを行う(&T)", "System", "LoadTime", kNothing,
          "演奏時間の読み込みを行うと一部のマシンでパフォーマンスが低下する可能性があります"),
    Note("lblSystem_Note",
         "注意\n"
         "これらの設定はパフォーマンスに影響する可能性があります\n"
         "変更する前にヘルプをお読みください"),
};
constexpr std::array kSystemPage = {OptionFrame{"確認メッセージ", kMessageControls},
                                    OptionFrame{"ファイルの読み込み", kReadingControls}};

constexpr std::array kTagControls = {
    Check("chkReadMoreTags", "新しい形式のタグも読む(&T)", "Extra", "ReadMoreTags"),
    Note("lblReadMoreTags_Note",
         "タイトルの読み取れなかったファイルについて、次のタグを読みます\n"
         "ID3v2.4、UTF-8 や APE のタグを持つ MP3、FLAC、Ogg Vorbis、Opus、MP4、WMA、AIFF、WAVE など\n"
         "次に読み込むファイルから有効になります"),
};
constexpr std::array kEndControls = {
    Check("chkConfirmPending", "終了時に未適応の名前を確認する(&P)", "Extra", "ConfirmPending"),
};
constexpr std::array kExtraPage = {OptionFrame{"ファイルの読み込み", kTagControls}, OptionFrame{"終了", kEndControls}};

constexpr std::array kPages = {OptionPage{"フォルダ", kFolderPage}, OptionPage{"リスト", kListPage},
                               OptionPage{"リネーム", kRenamePage}, OptionPage{"適応", kUpdatePage},
                               OptionPage{"移動", kMovePage},       OptionPage{"プレイヤー", kPlayerPage},
                               OptionPage{"システム", kSystemPage}, OptionPage{"拡張", kExtraPage}};

}  // namespace

std::span<const OptionPage> OptionPages() {
  return kPages;
}

}  // namespace quillon
