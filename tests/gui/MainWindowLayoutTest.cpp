#include <wx/platinfo.h>
#include <wx/stattext.h>
#include <wx/statusbr.h>
#include <wx/toolbar.h>

#include <cmath>
#include <utility>

#include "controls/Twips.h"
#include "controls/WxText.h"
#include "gui/MainWindow.h"
#include "gui/ScreenPixel.h"
#include "gui/Settle.h"
#include "paths/basFileControl.h"

/// The places of the main window's controls, in twips.
namespace quillon::test {
namespace {

class LayoutOfMainWindow : public MainWindowTest {
 protected:
  [[nodiscard]] int Pixels(int twips) const { return ToPixels(Frame(), twips); }
  [[nodiscard]] wxRect RectOf(const std::string& name) const { return Get<wxWindow>(name).GetRect(); }

  /// The inside of the window, bars included.
  [[nodiscard]] wxSize Inside() const {
    const wxSize panel = Get<wxWindow>("fraFileInfo").GetParent()->GetClientSize();
    return {panel.x, panel.y + ToolBarHeight() + Frame().GetStatusBar()->GetSize().y};
  }
  [[nodiscard]] int ToolBarHeight() const { return Frame().GetToolBar()->GetSize().y; }

  void Resize(wxSize size) const {
    Frame().SetSize(size);
    ASSERT_TRUE(Until([&] { return Frame().GetSize() == size; }));
    Settle();
  }

  [[nodiscard]] int AllColumns() const {
    int all = 0;
    for (int i = 0; i < kColumnCount; ++i) all += Frame().List().ColumnWidth(static_cast<Column>(i));
    return all;
  }

  /// The first and the last row of the screen that the first character of a status panel touches.
  [[nodiscard]] std::pair<int, int> InkOfFirstCharacter(int panel) const {
    const wxStatusBar& bar = *Frame().GetStatusBar();
    wxRect field;
    EXPECT_TRUE(bar.GetFieldRect(panel, field));
    const wxPoint corner = bar.ClientToScreen(field.GetTopLeft());
    const int right = bar.GetTextExtent(ToWx("手")).x + 1;
    const wxColour paper = ScreenPixel(corner + wxPoint(4, 3));
    std::pair<int, int> rows = {0, 0};
    for (int y = 2; y < field.height - 1; ++y) {
      for (int x = 4; x < right; ++x) {
        if (ScreenPixel(corner + wxPoint(x, y)) == paper) continue;
        if (rows.first == 0) rows.first = corner.y + y;
        rows.second = corner.y + y;
      }
    }
    return rows;
  }

  /// On Windows the controls fit into the given measures; GTK's may need more room.
  static bool IsExact() { return wxPlatformInfo::Get().GetPortId() == wxPORT_MSW; }

  void ExpectPlaces() const {
    const wxSize inside = Inside();
    const wxRect list = RectOf("lvwFiles");
    const wxRect info = RectOf("fraFileInfo");
    const wxRect player = RectOf("fraMusicPlayer");
    for (const wxRect& part : {list, info, player}) EXPECT_EQ(part.width, inside.x - Pixels(60));
    EXPECT_EQ(list.y, 0);
    EXPECT_EQ(info.y, list.height) << "directly below the list";
    EXPECT_EQ(info.GetBottom() + 1, player.y);
    const int belowList = inside.y - list.height;
    const int playerFromBottom = inside.y - ToolBarHeight() - player.y;
    EXPECT_GE(belowList, Pixels(3570));
    EXPECT_GE(playerFromBottom, Pixels(1125));
    if (IsExact()) {
      EXPECT_EQ(belowList, Pixels(3570));
      EXPECT_EQ(playerFromBottom, Pixels(1125));
    }
    ExpectInfo(info);
    ExpectPlayer(player);
  }

  void ExpectInfo(const wxRect& info) const {
    int bottom = 0;
    for (const char* name : {"txtAlterTitle", "txtTitle", "txtFileName", "txtFileInfo", "txtFileDetail"}) {
      const wxRect box = RectOf(name);
      EXPECT_EQ(box.GetRight() + 1, info.width - Pixels(240)) << name;
      EXPECT_GE(box.x, Pixels(1560)) << name;
      if (IsExact()) {
        EXPECT_EQ(box.x, Pixels(1560)) << name;
      }
      EXPECT_GE(box.y, bottom) << name;
      EXPECT_GE(box.height, Get<wxTextCtrl>(name).GetCharHeight()) << name;
      bottom = box.GetBottom() + 1;
    }
    EXPECT_LE(bottom, info.height);
  }

  void ExpectPlayer(const wxRect& player) const {
    EXPECT_EQ(RectOf("cmdPlay").x, player.width - Pixels(1335));
    EXPECT_EQ(RectOf("cmdStop").x, player.width - Pixels(975));
    EXPECT_EQ(RectOf("chkRepeat").x, player.width - Pixels(615));
    EXPECT_EQ(RectOf("sldPosition").width, player.width - Pixels(3100));
    EXPECT_GT(RectOf("lblTime").x, RectOf("sldPosition").GetRight());
    EXPECT_LT(RectOf("lblTime").GetRight(), RectOf("cmdPlay").x);
    for (const char* name : {"sldPosition", "lblTime", "cmdPlay", "cmdStop", "chkRepeat"}) {
      EXPECT_TRUE(wxRect(player.GetSize()).Contains(RectOf(name))) << name;
    }
  }
};

TEST_F(LayoutOfMainWindow, FollowsTheRulesAtEverySize) {
  WriteMidi("a.mid", "First");
  OpenFolder();
  ExpectPlaces();
  const int listBefore = RectOf("lvwFiles").height;
  const int insideBefore = Inside().y;
  Resize({900, 720});
  ExpectPlaces();
  EXPECT_EQ(RectOf("lvwFiles").height - listBefore, Inside().y - insideBefore) << "the list takes what there is more";
  Resize(Frame().GetMinSize());
  ExpectPlaces();
}

TEST_F(LayoutOfMainWindow, HasASmallestSize) {
  Open(Options());
  const wxSize smallest = Frame().GetMinSize();
  EXPECT_GE(smallest.x, Pixels(6870));
  if (IsExact()) {
    EXPECT_EQ(smallest, wxSize(Pixels(6870), Pixels(5580)));
  }
  Frame().SetSize(wxSize(100, 100));
  EXPECT_TRUE(Until([&] { return Frame().GetSize() == smallest; }))
      << Frame().GetSize().x << " x " << Frame().GetSize().y;
}

TEST_F(LayoutOfMainWindow, TallControlsLeaveTheListItsHeight) {
  if (IsExact()) GTEST_SKIP() << "these controls are as tall as the window's design takes them for";
  OptionValues options = Options();
  options.window.height = 5580;
  Open(options);
  Settle();
  EXPECT_GE(RectOf("lvwFiles").height, Pixels(2400)) << "at first";
  Resize({Frame().GetSize().x, Frame().GetSize().y + 100});
  Resize(Frame().GetMinSize());
  EXPECT_EQ(RectOf("lvwFiles").height, Pixels(2400));
  ExpectPlaces();
}

TEST_F(LayoutOfMainWindow, ShowsEveryLabelInFull) {
  Open(Options());
  Resize(Frame().GetMinSize());
  int labels = 0;
  for (const wxWindow* child : Get<wxWindow>("fraFileInfo").GetChildren()) {
    const auto* label = dynamic_cast<const wxStaticText*>(child);
    if (label == nullptr) continue;
    ++labels;
    EXPECT_LE(label->GetTextExtent(label->GetLabelText()).x, label->GetSize().x) << FromWx(label->GetLabelText());
    EXPECT_LE(label->GetRect().GetRight(), RectOf("txtAlterTitle").x) << FromWx(label->GetLabelText());
  }
  EXPECT_EQ(labels, 5);
}

TEST_F(LayoutOfMainWindow, StatusPanelsHoldTheirTexts) {
  WriteMidi("a.mid", "First");
  OpenFolder();
  if (!IsExact()) Resize(Frame().GetMinSize());  // enlarged for tall controls
  const wxStatusBar& bar = *Frame().GetStatusBar();
  const auto expectFits = [&](int panel, const char* text) {
    wxRect rect;
    ASSERT_TRUE(bar.GetFieldRect(panel, rect));
    EXPECT_LE(bar.GetTextExtent(ToWx(text)).x, rect.width) << text;
  };
  expectFits(kModePanel, kAutomatic);
  expectFits(kModePanel, kManual);
  expectFits(kSelectionPanel, "プレイヤー待機中...");
  expectFits(kPendingPanel, "未適応： 0");
  expectFits(kChecksPanel, "チェック数： 0");
  expectFits(kItemsPanel, "アイテム数：  1");
}

TEST_F(LayoutOfMainWindow, StatusPanelsHoldCountsOfSevenDigits) {
  Open(Options());
  constexpr int kRows = 1000000;
  List().BeginChanges();
  for (int i = 0; i < kRows; ++i) {
    FileItem row;
    row.renameName = "new";
    row.location = folder.At(std::to_string(i) + ".mid");
    row.checked = true;
    List().Add(row);
  }
  List().EndChanges();
  Drain();
  Settle();
  const wxStatusBar& bar = *Frame().GetStatusBar();
  const auto expectWhole = [&](int panel, const std::string& text) {
    EXPECT_EQ(Status(panel), text);
    wxRect rect;
    ASSERT_TRUE(bar.GetFieldRect(panel, rect));
    EXPECT_LE(bar.GetTextExtent(ToWx(text)).x + bar.FromDIP(4), rect.width) << text;
    EXPECT_LE(rect.GetRight(), bar.GetClientSize().x) << text;
  };
  const auto expectAllWhole = [&] {
    expectWhole(kModePanel, kManual);
    expectWhole(kSelectionPanel, "プレイヤー待機中...");
    expectWhole(kPendingPanel, "未適応： 1000000");
    expectWhole(kChecksPanel, "チェック数： 1000000");
    expectWhole(kItemsPanel, "アイテム数：  1000000");
  };
  expectAllWhole();
  Resize(Frame().GetMinSize());
  expectAllWhole();
}

TEST_F(LayoutOfMainWindow, ColumnsFillAWidenedWindowWithoutAScrollBar) {
  for (int i = 0; i < 60; ++i) folder.Write("file " + std::to_string(i) + ".txt");
  OpenFolder();
  Settle();
  for (const int width : {760, 901, 1100}) {
    Resize({width, 600});
    EXPECT_FALSE(NativeScrollsSideways(Frame().List())) << width;
    const wxRect list = RectOf("lvwFiles");
    EXPECT_LT(Frame().List().RoomForColumns(), list.width);
    EXPECT_GT(Frame().List().RoomForColumns(), list.width - Frame().FromDIP(110));
    EXPECT_EQ(AllColumns(), Frame().List().RoomForColumns()) << width;
  }
}

TEST_F(LayoutOfMainWindow, ADraggedColumnStaysWhenTheWindowGrows) {
  Open(Options());
  Resize({800, 600});
  const int title = Frame().List().ColumnWidth(Column::kTitle);
  Frame().List().SetColumnWidth(Column::kRenameName, 90);
  Settle();
  EXPECT_EQ(Frame().List().ColumnWidth(Column::kTitle), title) << "at once";
  Resize({900, 600});
  EXPECT_EQ(Frame().List().ColumnWidth(Column::kRenameName), 90);
  EXPECT_GT(Frame().List().ColumnWidth(Column::kTitle), title);
  EXPECT_EQ(AllColumns(), Frame().List().RoomForColumns());
}

TEST_F(LayoutOfMainWindow, UsualColumnsShowTheirHeadingsAndTypes) {
  Open(Options());
  const lvwFiles& list = Frame().List();
  const wxWindow& window = Get<wxWindow>("lvwFiles");
  const wxFont heading = IsExact() ? window.GetFont() : window.GetFont().Bold();
  for (const Column column : {Column::kArtist, Column::kType}) {
    wxCoord width = 0;
    wxCoord height = 0;
    window.GetTextExtent(ToWx(ColumnCaption(column)), &width, &height, nullptr, nullptr, &heading);
    EXPECT_GE(list.ColumnWidth(column), width + 12) << ColumnCaption(column);
  }
  for (const char* type : {"MPEG", "HTML", "MIDI", "WAVE"}) {
    EXPECT_GE(list.ColumnWidth(Column::kType), window.GetTextExtent(type).x + 8) << type;
  }
}

TEST_F(LayoutOfMainWindow, StatusTextsStandOnOneBaseline) {
  Open(Options());
  wxStatusBar& bar = *Frame().GetStatusBar();
  bar.SetStatusText(ToWx("手"), kModePanel);
  bar.SetStatusText(ToWx("手 a"), kSelectionPanel);
  bar.SetStatusText(ToWx("手： 15"), kChecksPanel);
  bar.SetStatusText(ToWx("手"), kItemsPanel);
  Settle();
  const std::pair<int, int> ink = InkOfFirstCharacter(kModePanel);
  EXPECT_LT(ink.first, ink.second);
  for (const int panel : {kSelectionPanel, kChecksPanel, kItemsPanel}) {
    EXPECT_EQ(InkOfFirstCharacter(panel), ink) << panel;
  }
}

TEST_F(LayoutOfMainWindow, TheFileNameIsShortenedToItsBox) {
  std::string name;  // of many short folders, so that a few pixels make a difference
  for (char letter = 'a'; letter <= 'z'; ++letter) name += std::string(3, letter) + "/";
  const std::string path = WriteMidi(name + "a.mid", "First");
  Open(Options(), {path});
  const auto expectShortened = [&](int width) {
    Resize({width, 600});
    const std::string shown = Text("txtFileName");
    EXPECT_TRUE(shown.ends_with("a.mid")) << shown;
    const double characters = ToTwips(Frame(), RectOf("txtFileName").width) / 140.0;
    EXPECT_EQ(shown, ShortenPath(path, static_cast<std::size_t>(std::nearbyint(characters)), SystemPathStyle()));
    return shown.size();
  };
  ClickRow(1);
  const std::size_t narrow = expectShortened(Frame().GetMinSize().x);
  const std::size_t wide = expectShortened(700);
  EXPECT_LT(narrow, wide);
  EXPECT_LT(narrow, path.size());
}

}  // namespace
}  // namespace quillon::test
