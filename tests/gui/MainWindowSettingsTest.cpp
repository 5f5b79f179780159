#include <wx/dialog.h>
#include <wx/tglbtn.h>

#include "controls/Twips.h"
#include "gui/MainWindow.h"
#include "gui/Settle.h"
#include "settings/Settings.h"

/// What the main window keeps from one run to the next.
namespace quillon::test {
namespace {

class SettingsOfMainWindow : public MainWindowTest {
 protected:
  [[nodiscard]] OptionValues Saved() const {
    std::optional<OptionValues> options = LoadOptionValues(Paths().settings);
    EXPECT_TRUE(options);
    return options ? *std::move(options) : OptionValues();
  }

  [[nodiscard]] std::vector<int> ColumnWidths() const {
    std::vector<int> widths(kColumnCount);
    int column = 0;
    for (int& width : widths) width = Frame().List().ColumnWidth(static_cast<Column>(column++));
    return widths;
  }

  /// Closes a window at another place than that of a first start, which stores its place.
  void SaveOnce() {
    Open(Options());
    Frame().SetSize(wxRect(60, 70, 700, 560));
    ASSERT_TRUE(Until([this] { return Frame().GetRect() == wxRect(60, 70, 700, 560); }));
    Settle();
    CloseWindow();
  }

  void Resize(int width) const {
    const wxSize size(width, Frame().GetSize().y);
    Frame().SetSize(size);
    ASSERT_TRUE(Until([&] { return Frame().GetSize() == size; }));
    Settle();
  }

  static std::vector<std::int32_t> Geometry(const OptionValues& options) {
    const OptionValues::Window& window = options.window;
    return {window.left.value_or(-1), window.top.value_or(-1), window.width, window.height};
  }
};

TEST_F(SettingsOfMainWindow, AFirstStartIsCentredWithTheUsualMeasures) {
  Open(Options());
  const wxSize screen = wxGetDisplaySize();
  const auto expected = [&] {
    wxSize size(ToPixels(Frame(), 9520), ToPixels(Frame(), 6655));
    size.IncTo(Frame().GetMinSize());  // taller controls make the window taller
    return wxRect(wxPoint(screen.x / 2 - size.x / 2, screen.y / 2 - size.y / 2), size);
  };
  // The frame's size is only known once the window is shown.
  EXPECT_TRUE(Until([&] { return Frame().GetRect() == expected(); })) << Frame().GetRect().y;
  std::vector<int> widths;
  for (const int twips : {1800, 1800, 1800, 660, 900, 2300}) {
    const auto column = static_cast<Column>(widths.size());
    // A column whose heading needs more room is wider.
    widths.push_back(std::max(ToPixels(Frame(), twips), Frame().List().NeededWidth(column)));
  }
  EXPECT_EQ(ColumnWidths(), widths);
}

TEST_F(SettingsOfMainWindow, AColumnThatNobodyCouldSeeIsWidened) {
  OptionValues options = Options();
  options.window.columnWidths = {0, 15, 150, 660, 900, 2300};
  Open(options);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Frame().List().ColumnWidth(static_cast<Column>(i)), Frame().FromDIP(20)) << i;
}

TEST_F(SettingsOfMainWindow, PlaceSizeAndColumnsSurviveARestart) {
  Open(Options());
  const wxRect place(90, 80, 733, 541);
  Frame().SetSize(place);
  const std::vector<int> columns = {201, 52, 83, 64, 75, 333};
  for (int i = 0; i < kColumnCount; ++i) {
    Frame().List().SetColumnWidth(static_cast<Column>(i), columns[static_cast<std::size_t>(i)]);
  }
  ASSERT_TRUE(Until([&] { return Frame().GetRect() == place && ColumnWidths() == columns; }));
  Settle();
  ClickOn("chkRepeat");
  CloseWindow();

  const OptionValues saved = Saved();
  EXPECT_TRUE(saved.player.repeat);
  for (int run = 0; run < 2; ++run) {
    Open(Saved());
    EXPECT_EQ(Frame().GetRect(), place) << run;
    EXPECT_EQ(ColumnWidths(), columns) << run;
    EXPECT_TRUE(Get<wxBitmapToggleButton>("chkRepeat").GetValue());
    CloseWindow();
    EXPECT_EQ(Geometry(Saved()), Geometry(saved)) << "rounding does not add up";
  }
}

TEST_F(SettingsOfMainWindow, AMaximisedWindowKeepsThePlaceItHadBefore) {
  SaveOnce();
  const OptionValues before = Saved();
  Open(before);
  Frame().List().SetColumnWidth(Column::kTitle, 99);
  Frame().Maximize();
  ASSERT_TRUE(Until([this] { return Frame().IsMaximized() && Frame().GetSize().x > 1000; }));
  Settle();
  CloseWindow();
  EXPECT_EQ(Geometry(Saved()), Geometry(before));
  OptionValues saved = Saved();
  saved.extra.maximized = false;
  Open(saved);
  EXPECT_EQ(Frame().List().ColumnWidth(Column::kTitle), 99) << "column widths are written always";
}

TEST_F(SettingsOfMainWindow, AStartAndAnEndLeaveTheFileAsItWas) {
  Open(Options());
  CloseWindow();
  const std::string first = home.Read("Quillon.ini");
  for (const std::int32_t width : {9520, 12000, 15000}) {
    OptionValues options = Saved();
    options.window.width = width;
    Open(options);
    Settle();
    CloseWindow();
    EXPECT_EQ(Saved().window.columnWidths, OptionValues().window.columnWidths) << width;
    EXPECT_EQ(Saved().window.width, width);
  }
  EXPECT_EQ(first.find("Maximized"), std::string::npos);
}

TEST_F(SettingsOfMainWindow, AWidenedWindowComesBackWithItsColumns) {
  Open(Options());
  Settle();
  const std::vector<int> before = ColumnWidths();
  Resize(900);
  const std::vector<int> wide = ColumnWidths();
  for (const std::size_t i : {0U, 1U, 5U}) EXPECT_GT(wide.at(i), before.at(i)) << i;
  for (const std::size_t i : {2U, 3U, 4U}) EXPECT_EQ(wide.at(i), before.at(i)) << i;
  CloseWindow();
  const OptionValues saved = Saved();
  for (int run = 0; run < 2; ++run) {
    Open(Saved());
    Settle();
    EXPECT_EQ(ColumnWidths(), wide) << run;
    CloseWindow();
    EXPECT_EQ(Saved().window.columnWidths, saved.window.columnWidths) << run;
  }
  Open(Saved());
  Settle();
  Resize(ToPixels(Frame(), 9520));
  EXPECT_EQ(ColumnWidths(), before);
}

TEST_F(SettingsOfMainWindow, AMaximisedWindowComesBackMaximised) {
  SaveOnce();
  const OptionValues before = Saved();
  ASSERT_FALSE(before.extra.maximized);
  Open(before);
  Settle();
  const std::vector<int> normal = ColumnWidths();
  Frame().Maximize();
  ASSERT_TRUE(Until([this] { return Frame().IsMaximized() && Frame().GetSize().x > 1000; }));
  Settle();
  const std::vector<int> wide = ColumnWidths();
  EXPECT_GT(wide.at(0), normal.at(0));
  CloseWindow();
  for (int run = 0; run < 2; ++run) {
    EXPECT_TRUE(Saved().extra.maximized);
    EXPECT_EQ(Geometry(Saved()), Geometry(before));
    EXPECT_EQ(Saved().window.columnWidths, before.window.columnWidths) << "those of the normal window";
    Open(Saved());
    ASSERT_TRUE(Until([this] { return Frame().IsMaximized() && Frame().GetSize().x > 1000; })) << run;
    Settle();
    EXPECT_GT(ColumnWidths().at(0), normal.at(0));
    if (run == 0) CloseWindow();
  }
  Frame().Maximize(false);
  EXPECT_TRUE(Until([this] { return Frame().GetRect() == wxRect(60, 70, 700, 560); }))
      << Frame().GetRect().x << ", " << Frame().GetRect().y << ", " << Frame().GetRect().width << " x "
      << Frame().GetRect().height;
  Settle();
  EXPECT_EQ(ColumnWidths(), normal);
  CloseWindow();
  EXPECT_FALSE(Saved().extra.maximized);
}

TEST_F(SettingsOfMainWindow, AMinimisedWindowKeepsThePlaceItHadBefore) {
  SaveOnce();
  const OptionValues before = Saved();
  Open(before);
  Frame().SetSize(wxRect(200, 150, 800, 600));
  ASSERT_TRUE(Until([this] { return Frame().GetRect() == wxRect(200, 150, 800, 600); }));
  Frame().Iconize();
  ASSERT_TRUE(Until([this] { return Frame().IsIconized(); }));
  Settle();
  CloseWindow();
  EXPECT_EQ(Geometry(Saved()), Geometry(before));
}

TEST_F(SettingsOfMainWindow, APlaceOutsideAllScreensIsNotUsed) {
  OptionValues options = Options();
  options.window.left = 1000000;
  options.window.top = 1000000;
  Open(options);
  EXPECT_TRUE(wxRect(wxGetDisplaySize()).Contains(Frame().GetRect().GetTopLeft()));
}

TEST_F(SettingsOfMainWindow, APlaceOnALargerScreenIsMovedIntoThisOne) {
  const wxRect screen(wxGetDisplaySize());
  const wxPoint places[] = {{screen.width - 400, 50}, {50, screen.height - 60}, {-200, 50}};
  for (const wxPoint& place : places) {
    OptionValues options = Options();
    Open(options);
    options.window.left = ToTwips(Frame(), place.x);
    options.window.top = ToTwips(Frame(), place.y);
    CloseWindow();
    Open(options);
    EXPECT_TRUE(screen.Contains(Frame().GetRect()))
        << place.x << ", " << place.y << ": " << Frame().GetRect().x << ", " << Frame().GetRect().y;
    CloseWindow();
  }
}

TEST_F(SettingsOfMainWindow, AWindowLargerThanTheScreenIsReducedToItsSize) {
  OptionValues options = Options();
  options.window.left = options.window.top = 1500;
  options.window.width = 100000;
  options.window.height = 90000;
  Open(options);
  // Some window managers count their frame differently.
  EXPECT_TRUE(wxRect(wxGetDisplaySize()).Inflate(4).Contains(Frame().GetRect()))
      << Frame().GetRect().x << ", " << Frame().GetRect().y << ", " << Frame().GetRect().width << ", "
      << Frame().GetRect().height;
}

TEST_F(SettingsOfMainWindow, ClosingWritesEverySettingButTheApplyMode) {
  OptionValues options = Options();
  options.update.automatic = true;
  options.modify.rules[0] = {true, "検索", "置換"};
  options.system.loadFolder = folder.Path();
  Open(options);
  CloseWindow();
  EXPECT_EQ(home.Read("Quillon.ini").find("AutoUpdate"), std::string::npos);
  const OptionValues saved = Saved();
  EXPECT_EQ(saved.modify.rules[0].find, "検索");
  EXPECT_EQ(saved.system.loadFolder, folder.Path());
  EXPECT_FALSE(saved.find.filterByExtension);
  EXPECT_FALSE(saved.update.automatic);
}

TEST_F(SettingsOfMainWindow, QuitClosesAndWrites) {
  Open(Options());
  Run(Command::mnuExit);
  EXPECT_TRUE(Until([this] { return !IsOpen(); }));
  EXPECT_TRUE(home.Exists("Quillon.ini"));
}

TEST_F(SettingsOfMainWindow, ResetAndQuitAsksDeletesTheFileAndWritesNothing) {
  SaveOnce();
  Open(Saved());
  dialogs.Answer(false);
  Run(Command::mnuOptionDefaultExit);
  EXPECT_TRUE(IsOpen());
  EXPECT_TRUE(home.Exists("Quillon.ini"));
  dialogs.Answer();
  Run(Command::mnuOptionDefaultExit);
  EXPECT_TRUE(Until([this] { return !IsOpen(); }));
  EXPECT_EQ(dialogs.TakeShown().at(1),
            (Message{"設定をデフォルトに戻して終了", "設定をすべてデフォルトに戻して終了します", MessageIcon::kQuestion,
                     MessageButtons::kYesNo}));
  EXPECT_FALSE(home.Exists("Quillon.ini"));
}

TEST_F(SettingsOfMainWindow, ResetAndQuitDoesNotAskWhenConfirmationsAreOff) {
  SaveOnce();
  OptionValues options = Saved();
  options.system.suppressConfirmations = true;
  Open(options);
  Run(Command::mnuOptionDefaultExit);
  EXPECT_TRUE(Until([this] { return !IsOpen(); }));
  EXPECT_FALSE(home.Exists("Quillon.ini"));
}

TEST_F(SettingsOfMainWindow, TheWindowClosesWithTheFocusInTheRenameBox) {
  folder.Write("a.txt");
  OptionValues options = Options();
  options.update.automatic = true;
  OpenFolder(options);
  FocusBox();
  Key(WXK_DELETE);
  ASSERT_EQ(Text("txtAlterTitle"), "");
  CloseWindow();
  EXPECT_TRUE(home.Exists("Quillon.ini"));
  EXPECT_TRUE(folder.Exists("a.txt"));
}

TEST_F(SettingsOfMainWindow, TheWindowClosesWhileANameIsEditedInTheList) {
  folder.Write("a.txt");
  OpenFolder();
  FocusList();
  Key(WXK_F2);
  ASSERT_TRUE(Until([this] { return Frame().List().IsEditing(); }));
  Key('x');
  CloseWindow();
  EXPECT_TRUE(home.Exists("Quillon.ini"));
  EXPECT_TRUE(folder.Exists("a.txt"));
}

TEST_F(SettingsOfMainWindow, TheWindowClosesAfterTheDialogThatIsOpen) {
  folder.Write("a.txt");
  OpenFolder();
  dialogs.Use([this](wxDialog& dialog) {
    EXPECT_FALSE(Frame().Close());
    dialog.EndModal(wxID_CANCEL);
  });
  Run(Command::mnuModify);
  EXPECT_TRUE(Until([this] { return !IsOpen(); }));
  EXPECT_TRUE(home.Exists("Quillon.ini"));
}

}  // namespace
}  // namespace quillon::test
