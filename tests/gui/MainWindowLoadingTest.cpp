#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/dnd.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>
#include <wx/timer.h>
#include <wx/utils.h>

#include <optional>

#include "controls/Twips.h"
#include "controls/WxText.h"
#include "gui/MainWindow.h"
#include "gui/Settle.h"
#include "gui/SystemView.h"

/// Long loads, and files dropped on the main window.
namespace quillon::test {
namespace {

/// Calls `act` repeatedly while a running command processes messages. Each call is slow, so that everything that only a
/// long load shows is shown.
class Meanwhile final : public wxTimer {
 public:
  Meanwhile(frmMain& frame, std::function<void()> act) : frame_(&frame), act_(std::move(act)) { StartOnce(kPause); }

  void Notify() override {
    if (!frame_) return;
    if (frame_->App().IsRunning()) {
      wxMilliSleep(++calls <= kSlowCalls ? kSlow : kPause);
      act_();
    }
    StartOnce(kPause);
  }

  int calls = 0;

 private:
  static constexpr int kSlow = 60;       // longer than the delay of progress windows
  static constexpr int kSlowCalls = 20;  // a busy machine needs many for the search alone
  static constexpr int kPause = 2;

  wxWeakRef<frmMain> frame_;
  std::function<void()> act_;
};

class LoadsInMainWindow : public MainWindowTest {
 protected:
  static constexpr int kMany = 6000;

  static void SetUpTestSuite() {
    many_ = std::make_unique<TempFolder>();
    // Many folders, so that a search processes messages several times however fast the disk is.
    for (int i = 0; i < kMany; ++i) {
      many_->Write("folder" + std::to_string(i / 10) + "/" + std::to_string(i) + ".mid", Midi("Title"));
    }
  }
  static void TearDownTestSuite() { many_.reset(); }

  static OptionValues WithSubfolders() {
    OptionValues options = Options();
    options.list.searchSubfolders = true;
    return options;
  }

  /// Loads the big folder by the command, without waiting for its end.
  void BeginLoad() {
    dialogs.ChooseFolder(many_->Path());
    Post(Command::mnuFolderReference);
  }

  [[nodiscard]] wxWindow& SearchWindow() const { return Frame().Search().Window(); }
  [[nodiscard]] wxWindow& Label() const { return Get<wxWindow>("lblNowloading"); }

  bool Drop(const std::vector<std::string>& paths) const {
    auto* const target = dynamic_cast<wxFileDropTarget*>(Frame().List().Window().GetDropTarget());
    wxArrayString names;
    for (const std::string& path : paths) names.push_back(ToWx(path));
    return target != nullptr && target->OnDropFiles(5, 5, names);
  }

  inline static std::unique_ptr<TempFolder> many_;
};

TEST_F(LoadsInMainWindow, TheHintOfAnEmptyListGivesWayToTheLabel) {
  Open(WithSubfolders());
  const wxWindow& hint = Get<wxWindow>("fraListHint");
  ASSERT_TRUE(hint.IsShown());
  bool labelled = false;
  bool both = false;
  Meanwhile meanwhile(Frame(), [&] {
    labelled = labelled || Label().IsShown();
    both = both || (Label().IsShown() && hint.IsShown());
  });
  BeginLoad();
  EXPECT_TRUE(Until([&] { return List().Count() == kMany && !App().IsRunning(); })) << List().Count();
  EXPECT_TRUE(labelled);
  EXPECT_FALSE(both);
  Drain();
  EXPECT_FALSE(hint.IsShown());
}

TEST_F(LoadsInMainWindow, RefuseOtherCommandsMeanwhile) {
  WriteMidi("a.mid", "First");
  Open(WithSubfolders(), {folder.Path()});
  bool everAnswered = false;
  bool dropped = false;
  Meanwhile meanwhile(Frame(), [&] {
    for (const Command command : {Command::mnuAllClear, Command::mnuChkRem, Command::mnuReload, Command::mnuAllUpdate,
                                  Command::mnuThisEditRenameName}) {
      Frame().ProcessWindowEvent(*std::make_unique<wxCommandEvent>(wxEVT_MENU, frmMain::IdOf(command)));
    }
    everAnswered = everAnswered || Box().IsEditable() || Frame().List().IsEditing();
    dropped = dropped || Drop({folder.At("a.mid")});
  });
  BeginLoad();
  EXPECT_TRUE(Until([&] { return List().Count() == kMany + 1 && !App().IsRunning(); })) << List().Count();
  EXPECT_GT(meanwhile.calls, 1);
  EXPECT_FALSE(everAnswered);
  EXPECT_FALSE(dropped);
  Drain();
  EXPECT_EQ(List().Count(), kMany + 1);
  EXPECT_EQ(List().CheckedCount(), kMany + 1);
  EXPECT_EQ(Status(kItemsPanel), "アイテム数：  " + std::to_string(kMany + 1));
  EXPECT_EQ(NativeCount(Frame().List()), kMany + 1);
  EXPECT_TRUE(Box().IsEditable());
}

TEST_F(LoadsInMainWindow, MakeTheirWindowsOnlyWhenNeeded) {
  Open(Options());
  EXPECT_EQ(wxWindow::FindWindowByName("frmFolderRef"), nullptr);
  EXPECT_EQ(wxWindow::FindWindowByName("lblPicNowLoding"), nullptr);
  EXPECT_FALSE(Frame().Search().Window().IsShown());
  EXPECT_NE(wxWindow::FindWindowByName("frmFolderRef"), nullptr);
}

TEST_F(LoadsInMainWindow, ShowALabelOverTheListWhileTheyLast) {
  Open(WithSubfolders());
  bool shown = false;
  bool listShown = true;
  wxRect label;
  std::string text;
  std::string percent;
  Meanwhile meanwhile(Frame(), [&] {
    if (!Label().IsShownOnScreen() || shown) return;
    shown = true;
    listShown = Frame().List().Window().IsShown();
    label = Label().GetRect();
    text = FromWx(Get<wxStaticText>("lblPicNowLoding").GetLabelText());
    percent = FromWx(Get<wxStaticText>("lblNowloadingPercent").GetLabelText());
  });
  BeginLoad();
  EXPECT_TRUE(Until([&] { return List().Count() == kMany && !App().IsRunning(); })) << List().Count();
  EXPECT_TRUE(shown);
  EXPECT_FALSE(listShown);
  EXPECT_EQ(text, "ファイル情報解析中...");
  EXPECT_TRUE(percent.ends_with("% 完了しました")) << percent;
  EXPECT_TRUE(Until([&] { return !Label().IsShown() && Frame().List().Window().IsShownOnScreen(); }));
  EXPECT_EQ(label.GetTopLeft(), Frame().List().Window().GetPosition());
  EXPECT_EQ(label.width, Frame().List().Window().GetSize().x);
  EXPECT_EQ(label.height, Frame().List().Window().GetSize().y - ToPixels(Frame(), 24));
}

TEST_F(LoadsInMainWindow, AreCancelledByTheSearchWindowsButton) {
  OptionValues options = WithSubfolders();
  WriteMidi("a.mid", "First");
  Open(options, {folder.Path()});
  bool shown = false;
  bool pointerIsBusy = false;
  std::string target;
  Meanwhile meanwhile(Frame(), [&] {
    if (!SearchWindow().IsShownOnScreen() || shown) return;
    shown = true;
    pointerIsBusy = wxIsBusy();
    target =
        FromWx(dynamic_cast<wxStaticText&>(*wxWindow::FindWindowByName("lblTarget", &SearchWindow())).GetLabelText());
    wxWindow& button = *wxWindow::FindWindowByName("cmdCancel", &SearchWindow());
    EXPECT_EQ(FromWx(button.GetLabel()), "中止");
    wxCommandEvent click(wxEVT_BUTTON, button.GetId());
    button.ProcessWindowEvent(click);
  });
  BeginLoad();
  EXPECT_TRUE(Until([&] { return shown && !App().IsRunning(); }));
  Drain();
  EXPECT_TRUE(pointerIsBusy);
  EXPECT_TRUE(target.starts_with("検索対象 : ")) << target;
  EXPECT_FALSE(SearchWindow().IsShown());
  EXPECT_FALSE(wxIsBusy());
  EXPECT_EQ(Names(), std::vector<std::string>{"a"}) << "nothing is registered";
  EXPECT_EQ(Text("txtAlterTitle"), "a");
  EXPECT_EQ(Status(kItemsPanel), "アイテム数：  1");
}

TEST_F(LoadsInMainWindow, ShowASearchWindowThatIsOnTopWithTheMainWindow) {
  for (const bool front : {false, true}) {
    OptionValues options = WithSubfolders();
    options.system.alwaysOnTop = front;
    Open(options);
    std::optional<bool> above;
    std::string caption;
    std::string status;
    Meanwhile meanwhile(Frame(), [&] {
      if (!SearchWindow().IsShownOnScreen() || above == front) return;
      above = IsAboveOthers(SearchWindow());
      caption = FromWx(dynamic_cast<wxDialog&>(SearchWindow()).GetTitle());
      status =
          FromWx(dynamic_cast<wxStaticText&>(*wxWindow::FindWindowByName("lblStatus", &SearchWindow())).GetLabelText());
    });
    BeginLoad();
    EXPECT_TRUE(Until([&] { return List().Count() == kMany && !App().IsRunning(); })) << List().Count();
    EXPECT_EQ(above, front);
    EXPECT_EQ(caption, "フォルダ参照");
    EXPECT_EQ(status, "対象ファイルを探しています...");
    CloseWindow();
  }
}

TEST_F(LoadsInMainWindow, ThatAreQuickShowNoWindow) {
  WriteMidi("a.mid", "First");
  Open(Options());
  int shown = 0;
  const auto count = [&](wxShowEvent& event) {
    shown += event.IsShown() ? 1 : 0;
    event.Skip();
  };
  SearchWindow().Bind(wxEVT_SHOW, count);
  Label().Bind(wxEVT_SHOW, count);
  dialogs.ChooseFolder(folder.Path());
  Run(Command::mnuFolderReference);
  EXPECT_EQ(List().Count(), 1);
  Settle();
  EXPECT_EQ(shown, 0);
}

TEST_F(LoadsInMainWindow, EndBeforeTheWindowCloses) {
  Open(WithSubfolders());
  bool closed = false;
  Meanwhile meanwhile(Frame(), [&] {
    if (closed || !Label().IsShown()) return;
    closed = true;
    EXPECT_FALSE(Frame().Close()) << "not before the load is over";
  });
  BeginLoad();
  EXPECT_TRUE(Until([this] { return !IsOpen(); }));
  EXPECT_TRUE(closed);
  EXPECT_TRUE(home.Exists("Quillon.ini"));
}

TEST_F(LoadsInMainWindow, WithoutAFileOfferAnotherFolder) {
  const std::string empty = folder.MakeFolder("empty");
  WriteMidi("full/a.mid", "First");
  Open(Options());
  dialogs.ChooseFolder(empty);
  dialogs.Answer();
  dialogs.ChooseFolder(folder.At("full"));
  Run(Command::mnuFolderReference);
  EXPECT_EQ(dialogs.TakeShown(),
            (std::vector<Message>{{"フォルダ参照",
                                   "指定されたフォルダ内にファイルが見つかりませんでした\n別のフォルダを参照しますか",
                                   MessageIcon::kQuestion, MessageButtons::kYesNo}}));
  EXPECT_EQ(Names(), std::vector<std::string>{"a"});
}

TEST_F(LoadsInMainWindow, WithoutAFileExplainWhyAndOfferTheSubfolders) {
  WriteMidi("below/a.mid", "First");
  Open(Options());
  dialogs.ChooseFolder(folder.Path());
  dialogs.Use([this](wxDialog& dialog) {
    const auto named = [&](const char* name) { return wxWindow::FindWindowByName(name, &dialog); };
    auto* const details = dynamic_cast<wxTextCtrl*>(named("txtDetails"));
    ASSERT_NE(details, nullptr);
    EXPECT_EQ(FromWx(details->GetValue()),
              "フォルダ： " + folder.At("") + "\n検索した拡張子： すべて\n検索しなかったサブフォルダ： 1 個");
    auto* const further = dynamic_cast<wxButton*>(named("cmdFurther"));
    ASSERT_NE(further, nullptr);
    EXPECT_EQ(FromWx(further->GetLabelText()), "サブフォルダも検索する(S)");
    wxCommandEvent event(wxEVT_BUTTON, further->GetId());
    further->ProcessWindowEvent(event);
  });
  Run(Command::mnuFolderReference);
  EXPECT_EQ(Names(), std::vector<std::string>{"a"});
  EXPECT_FALSE(App().Options().list.searchSubfolders);
}

TEST_F(LoadsInMainWindow, TakeDroppedFilesAndFolders) {
  OptionValues options = Options();
  options.list.clearBeforeLoading = true;
  WriteMidi("動画 1/a.mid", "First");
  WriteMidi("動画 1/b.mid", "Second");
  const std::string file = WriteMidi("100%20.mid", "Third");
  Open(options);
  EXPECT_TRUE(Drop({file, folder.At("動画 1")}));
  EXPECT_TRUE(Until([this] { return List().Count() == 3 && !App().IsRunning(); })) << List().Count();
  Drain();
  EXPECT_EQ(Names(), (std::vector<std::string>{"100%20", "a", "b"})) << "the list is not cleared in between";
  EXPECT_EQ(NativeCount(Frame().List()), 3);
  EXPECT_EQ(SelectedRows(), std::vector<int>{1});
  EXPECT_EQ(Text("txtTitle"), "Third");
  EXPECT_TRUE(App().Options().list.clearBeforeLoading);

  dialogs.Answer();
  EXPECT_TRUE(Drop({file}));
  EXPECT_TRUE(Until([this] { return dialogs.AllShown(); }));
  Drain();
  EXPECT_EQ(dialogs.TakeShown().at(0).text, "既にこのファイルは読み込まれています");
  EXPECT_EQ(List().Count(), 3);
}

}  // namespace
}  // namespace quillon::test
