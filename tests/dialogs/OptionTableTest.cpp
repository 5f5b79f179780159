#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "dialogs/OptionTable.h"
#include "settings/SettingsTable.h"

namespace quillon {
namespace {

using testing::ElementsAre;

std::vector<OptionControl> AllControls() {
  std::vector<OptionControl> controls;
  for (const OptionPage& page : OptionPages()) {
    for (const OptionFrame& frame : page.frames) {
      controls.insert(controls.end(), frame.controls.begin(), frame.controls.end());
    }
  }
  return controls;
}

/// "caption: control, control" of every frame, by the caption of its page.
std::map<std::string, std::vector<std::string>> Pages() {
  std::map<std::string, std::vector<std::string>> pages;
  for (const OptionPage& page : OptionPages()) {
    for (const OptionFrame& frame : page.frames) {
      std::string line = std::string(frame.caption) + ":";
      for (const OptionControl& control : frame.controls) line += std::string(" ") + control.name;
      pages[page.caption].push_back(line);
    }
  }
  return pages;
}

TEST(OptionTable, HasThePagesInTheOrderInWhichAPersonWorks) {
  std::vector<std::string> captions;
  for (const OptionPage& page : OptionPages()) captions.emplace_back(page.caption);
  EXPECT_THAT(captions,
              ElementsAre("フォルダ", "リスト", "リネーム", "適応", "移動", "プレイヤー", "システム", "拡張"));
}

TEST(OptionTable, HasEveryControlInItsFrame) {
  auto pages = Pages();
  EXPECT_THAT(pages["フォルダ"],
              ElementsAre("読み込むファイル: chkExtensionFilter chkExtensionMusic txtExtensionMusic chkExtensionText "
                          "txtExtensionText chkExtensionHTML txtExtensionHTML chkExtensionEtc "
                          "txtExtensionEtc",
                          "フォルダ参照: chkSubFolder"));
  EXPECT_THAT(pages["リスト"], ElementsAre("全般: chkLoadRemove chkLoadChk", "削除の方法: optDel0 optDel1 chkDel"));
  EXPECT_THAT(pages["リネーム"],
              ElementsAre("全般: chkRenameModify cmdModifyOption",
                          "エラー時の処理: chkRenameInjusticeCheck chkRenameErrCheck chkNoTitleSkip"));
  EXPECT_THAT(pages["適応"], ElementsAre("適応モード: chkAutoUpdate lblUpdate_Note", "全般: chkUpdateRemoveChk",
                                         "エラー時の処理: chkUpdateErrChk chkErrSkip"));
  EXPECT_THAT(pages["移動"], ElementsAre("全般: chkMoveRemainList"));
  EXPECT_THAT(pages["プレイヤー"], ElementsAre("全般: chkPlayerAllPlay"));
  EXPECT_THAT(pages["システム"],
              ElementsAre("確認メッセージ: chkMsgBox", "ファイルの読み込み: chkSysMCITime lblSystem_Note"));
  EXPECT_THAT(pages["拡張"],
              ElementsAre("ファイルの読み込み: chkReadMoreTags lblReadMoreTags_Note", "終了: chkConfirmPending"));
}

TEST(OptionTable, HasTheCaptionsToTheCharacter) {
  const std::map<std::string, std::string> expected = {
      {"chkMsgBox", "すべての確認メッセージを表示しない(&M)"},
      {"chkSysMCITime", "演奏時間の読み込みを行う(&T)"},
      {"lblSystem_Note",
       "注意\nこれらの設定はパフォーマンスに影響する可能性があります\n変更する前にヘルプをお読みください"},
      {"chkRenameModify", "リネーム実行時に「リネーム名の編集」を実行する(R)"},
      {"cmdModifyOption", "設定(&E)"},
      {"chkRenameInjusticeCheck", "不正な文字が含まれる場合はチェックを付ける(&D)"},
      {"chkRenameErrCheck", "スキップしたアイテムにチェックを付ける(&C)"},
      {"chkNoTitleSkip", "タイトルが存在しない場合はスキップする(&T)"},
      {"chkAutoUpdate", "自動適応モードを有効にする(&A)"},
      {"lblUpdate_Note",
       "自動適応モードを有効にすると手動による適応処理、スキップ機能が無効になり、不正なリネームができなくなります\n"
       "また変更後すぐに適応される為、変更したファイル名を戻すことができません"},
      {"chkUpdateRemoveChk", "適応が正常に完了したアイテムはチェックをはずす(&T)"},
      {"chkUpdateErrChk", "エラーがあるアイテムにチェックを付ける(&C)"},
      {"chkErrSkip", "エラーがあるアイテムはスキップする(&S)"},
      {"chkExtensionFilter", "拡張子フィルタ(&F)"},
      {"chkExtensionMusic", "メディアファイル(&M)"},
      {"txtExtensionMusic", ""},
      {"chkExtensionText", "文書ファイル(&D)"},
      {"txtExtensionText", ""},
      {"chkExtensionHTML", "HTMLファイル(&H)"},
      {"txtExtensionHTML", ""},
      {"chkExtensionEtc", "その他(&E)"},
      {"txtExtensionEtc", ""},
      {"chkSubFolder", "サブフォルダまで検索する(&S)"},
      {"chkPlayerAllPlay", "リスト内の連続再生を行う(&A)"},
      {"chkMoveRemainList", "ファイル移動後もそのファイルをリストに残す(&M)"},
      {"chkLoadRemove", "読み込み時にリストをクリアする(&L)"},
      {"chkLoadChk", "読込んだファイルにはチェックを付ける(&C)"},
      {"optDel0", "ディスクから完全に削除(&D)"},
      {"optDel1", "ごみ箱へ削除(&R)"},
      {"chkDel", "確認する(&A)"},
      {"chkConfirmPending", "終了時に未適応の名前を確認する(&P)"},
      {"chkReadMoreTags", "新しい形式のタグも読む(&T)"},
      {"lblReadMoreTags_Note",
       "タイトルの読み取れなかったファイルについて、次のタグを読みます\n"
       "ID3v2.4、UTF-8 や APE のタグを持つ MP3、FLAC、Ogg Vorbis、Opus、MP4、WMA、AIFF、WAVE など\n"
       "次に読み込むファイルから有効になります"},
  };
  std::map<std::string, std::string> captions;
  for (const OptionControl& control : AllControls()) captions[control.name] = control.caption;
  EXPECT_EQ(captions, expected);
}

TEST(OptionTable, HasTheToolTips) {
  const std::string extensions = "複数の拡張子を指定する場合はスペースで区切ってください";
  const std::map<std::string, std::string> expected = {
      {"txtExtensionMusic", extensions},
      {"txtExtensionText", extensions},
      {"txtExtensionHTML", extensions},
      {"txtExtensionEtc", extensions},
      {"chkMsgBox", "メッセージを表示しないようにすると、すべてOK（はい）ボタンを押したことになります"},
      {"chkSysMCITime", "演奏時間の読み込みを行うと一部のマシンでパフォーマンスが低下する可能性があります"},
      {"chkMoveRemainList", "ファイルの移動後も場所情報を更新してリストに残します"},
  };
  std::map<std::string, std::string> tips;
  for (const OptionControl& control : AllControls()) {
    if (*control.toolTip != '\0') tips[control.name] = control.toolTip;
  }
  EXPECT_EQ(tips, expected);
  EXPECT_EQ(OptionPages().front().frames.front().toolTip, extensions) << "of the filter's frame";
}

TEST(OptionTable, EveryKeyIsASettingAndEveryEditableControlHasOne) {
  std::set<std::pair<std::string, std::string>> settings;
  OptionValues options;
  VisitSettings(options, [&](std::string_view section, std::string_view key, const auto&, SettingKind) {
    settings.emplace(section, key);
  });
  for (const OptionControl& control : AllControls()) {
    const bool edits = control.kind != OptionKind::kButton && control.kind != OptionKind::kNote;
    EXPECT_EQ(settings.contains({control.section, control.key}), edits) << control.name;
  }
}

TEST(OptionTable, NoAccessKeyIsTwiceOnAPage) {
  for (const OptionPage& page : OptionPages()) {
    std::set<char> keys;
    for (const OptionFrame& frame : page.frames) {
      for (const OptionControl& control : frame.controls) {
        const std::string caption = control.caption;
        const std::size_t mark = caption.find("(&");
        if (mark == std::string::npos) continue;
        EXPECT_TRUE(keys.insert(caption[mark + 2]).second) << page.caption << ": " << caption;
      }
    }
  }
}

}  // namespace
}  // namespace quillon
