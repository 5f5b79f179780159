#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/popupwin.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "controls/PositionSlider.h"
#include "controls/WxText.h"
#include "gui/Settle.h"
#include "platform/desktop/SliderThumb.h"

namespace quillon {
namespace {

using test::Settle;
using test::SettleUntil;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t kLength = 200000;
constexpr int kWidth = 420;
constexpr int kHeight = 60;
constexpr int kOnePixel = kLength / (kWidth - 40);

class SliderOfAPlayer : public testing::Test {
 protected:
  void SetUp() override {
    auto* const panel = new wxPanel(frame);
    slider = new PositionSlider(panel, {[this] { log.emplace_back("pressed"); },
                                        [this](std::int32_t value) { log.push_back(std::to_string(value)); },
                                        [](std::int32_t value) { return "at " + std::to_string(value); }});
    other = new wxTextCtrl(panel, wxID_ANY);
    auto* const column = new wxBoxSizer(wxVERTICAL);
    column->AddSpacer(kHeight);
    column->Add(slider, wxSizerFlags().Expand());
    column->Add(other, wxSizerFlags().Expand());
    panel->SetSizer(column);
    frame->SetClientSize(kWidth, 3 * kHeight);
    slider->SetLength(kLength);
    slider->SetFocus();
    frame->Show();
    ASSERT_TRUE(SettleUntil([this] { return frame->IsActive() && slider->HasFocus(); }));
    Settle();
  }

  void TearDown() override {
    frame->Destroy();
    Settle();
  }

  [[nodiscard]] int Thumb() const {
    const ThumbSpan span = QueryThumb(slider->GetHandle());
    return (span.left + span.right) / 2;
  }

  void MoveMouse(int x) {
    hand.MouseMove(slider->ClientToScreen(wxPoint(x, slider->GetSize().y / 2)));
    Settle();
  }

  void Press(int x) {
    MoveMouse(x);
    hand.MouseDown();
    Settle();
  }

  void Release() {
    hand.MouseUp();
    Settle();
  }

  [[nodiscard]] wxPopupWindow* Tip() const {
    auto* const tip = dynamic_cast<wxPopupWindow*>(wxWindow::FindWindowByName("tip", slider));
    return tip != nullptr && tip->IsShown() ? tip : nullptr;
  }

  [[nodiscard]] std::string TipText() const {
    if (Tip() == nullptr) return "no tip";
    return FromWx(dynamic_cast<wxStaticText*>(Tip()->GetChildren().front())->GetLabel());
  }

  [[nodiscard]] std::string ValueText() const { return std::to_string(slider->GetValue()); }

  std::vector<std::string> log;
  wxFrame* frame = new wxFrame(nullptr, wxID_ANY, "frame");
  PositionSlider* slider = nullptr;
  wxTextCtrl* other = nullptr;
  wxUIActionSimulator hand;
};

TEST_F(SliderOfAPlayer, ReportsAPressOfItsThumbThatMovesNothing) {
  slider->SetValue(kLength / 2);
  Settle();
  Press(Thumb());
  EXPECT_THAT(log, ElementsAre("pressed"));
  EXPECT_EQ(slider->GetValue(), kLength / 2);
  Release();
  EXPECT_THAT(log, ElementsAre("pressed", std::to_string(kLength / 2)));
}

TEST_F(SliderOfAPlayer, IsDraggedAndReportsItOnce) {
  Press(Thumb());
  const int start = Thumb();
  for (int x = start; x < kWidth / 2; x += 10) MoveMouse(x);
  EXPECT_THAT(log, ElementsAre("pressed"));
  const int value = slider->GetValue();
  EXPECT_NEAR(value, kLength / 2, kLength / 10);
  Release();
  EXPECT_THAT(log, ElementsAre("pressed", std::to_string(value)));
  EXPECT_EQ(slider->GetValue(), value) << "it stays where it was left";
}

TEST_F(SliderOfAPlayer, MovesItsThumbUnderAPressInTheGroove) {
  Press(kWidth * 3 / 4);
  EXPECT_NEAR(Thumb(), kWidth * 3 / 4, 3);
  EXPECT_NEAR(slider->GetValue(), kLength * 3 / 4, kLength / 50);
  MoveMouse(kWidth / 4);
  EXPECT_NEAR(Thumb(), kWidth / 4, 3) << "it is held then";
  EXPECT_THAT(log, ElementsAre("pressed"));
  Release();
  EXPECT_THAT(log, ElementsAre("pressed", ValueText()));
  EXPECT_NEAR(slider->GetValue(), kLength / 4, kLength / 50);
}

TEST_F(SliderOfAPlayer, ReachesBothEndsByAPress) {
  const int start = Thumb();
  slider->SetValue(kLength);
  Settle();
  const int end = Thumb();
  ASSERT_GT(end, kWidth * 3 / 4);
  slider->SetValue(0);
  Settle();
  Press(end);
  Release();
  const std::string last = ValueText();
  EXPECT_NEAR(slider->GetValue(), kLength, kOnePixel);
  Press(start);
  Release();
  EXPECT_NEAR(slider->GetValue(), 0, kOnePixel);
  EXPECT_THAT(log, ElementsAre("pressed", last, "pressed", ValueText()));
}

TEST_F(SliderOfAPlayer, ShowsItsValueInATipThatFollowsTheThumb) {
  EXPECT_EQ(Tip(), nullptr);
  Press(kWidth / 4);
  ASSERT_NE(Tip(), nullptr);
  EXPECT_EQ(TipText(), "at " + ValueText());
  const auto centre = [this] {
    const wxRect tip = Tip()->GetScreenRect();
    return slider->ScreenToClient(wxPoint(tip.x + tip.width / 2, tip.y)).x;
  };
  EXPECT_NEAR(centre(), kWidth / 4, 3);
  MoveMouse(kWidth / 2);
  EXPECT_EQ(TipText(), "at " + ValueText());
  EXPECT_NEAR(centre(), kWidth / 2, 3);
  EXPECT_LE(Tip()->GetScreenRect().GetBottom(), slider->GetScreenRect().y) << "above the slider";
  Release();
  EXPECT_EQ(Tip(), nullptr);
}

TEST_F(SliderOfAPlayer, IsMovedByKeysBetweenTheirPressAndTheirRelease) {
  hand.KeyDown(WXK_RIGHT);
  Settle();
  EXPECT_THAT(log, ElementsAre("pressed"));
  EXPECT_EQ(TipText(), "at 5000");
  hand.KeyUp(WXK_RIGHT);
  Settle();
  EXPECT_THAT(log, ElementsAre("pressed", "5000"));
  EXPECT_EQ(Tip(), nullptr);
}

TEST_F(SliderOfAPlayer, StepsByKeys) {
  const struct {
    int key;
    std::int32_t value;
  } steps[] = {{WXK_RIGHT, 5000},  {WXK_PAGEDOWN, 35000},         {WXK_LEFT, 30000},
               {WXK_END, kLength}, {WXK_PAGEUP, kLength - 30000}, {WXK_HOME, 0}};
  for (const auto& step : steps) {
    log.clear();
    hand.Char(step.key);
    Settle();
    EXPECT_THAT(log, ElementsAre("pressed", std::to_string(step.value)));
  }
}

TEST_F(SliderOfAPlayer, LeavesOtherKeysAlone) {
  hand.Char(WXK_SHIFT);
  hand.Char('A');
  Settle();
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(SliderOfAPlayer, ReportsAReleaseWhenItLosesTheFocus) {
  hand.KeyDown(WXK_RIGHT);
  Settle();
  other->SetFocus();
  EXPECT_TRUE(SettleUntil([this] { return log.size() == 2; }));
  EXPECT_THAT(log, ElementsAre("pressed", "5000"));
  hand.KeyUp(WXK_RIGHT);
  Settle();
  EXPECT_EQ(log.size(), 2U) << "once only";
  EXPECT_EQ(Tip(), nullptr);
}

TEST_F(SliderOfAPlayer, ReportsNothingWhenTheProgramMovesIt) {
  slider->SetValue(1234);
  slider->SetLength(kLength * 2);
  Settle();
  EXPECT_THAT(log, IsEmpty());
  EXPECT_EQ(slider->GetValue(), 1234);
}

TEST_F(SliderOfAPlayer, StepsLessInAShortFile) {
  const struct {
    std::int32_t length;
    int small;
    int large;
  } cases[] = {{0, 1, 1},
               {10, 1, 2},
               {1000, 50, 200},
               {100000, 5000, 20000},
               {150000, 5000, 30000},
               {3600000, 5000, 30000},
               {std::numeric_limits<std::int32_t>::max(), 5000, 30000}};
  for (const auto& c : cases) {
    slider->SetLength(c.length);
    EXPECT_EQ(slider->GetLineSize(), c.small) << c.length;
    EXPECT_EQ(slider->GetPageSize(), c.large) << c.length;
  }
}

TEST_F(SliderOfAPlayer, HoldsTheLongestTime) {
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  slider->SetLength(kMost);
  slider->SetValue(kMost - 1);
  EXPECT_EQ(slider->GetValue(), kMost - 1);
  hand.Char(WXK_LEFT);
  Settle();
  EXPECT_THAT(log, ElementsAre("pressed", std::to_string(kMost - 1 - 5000)));
  Press(kWidth / 2);
  Release();
  ASSERT_EQ(log.size(), 4U);
  EXPECT_NEAR(slider->GetValue(), kMost / 2, kMost / 50);
}

}  // namespace
}  // namespace quillon
