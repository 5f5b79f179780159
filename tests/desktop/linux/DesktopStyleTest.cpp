#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include "desktop/Display.h"
#include "platform/desktop/DesktopStyle.h"

namespace quillon {
namespace {

/// A window with one control on a plain area, as wxWidgets builds them.
class Control {
 public:
  explicit Control(GtkWidget* widget) : window_(gtk_offscreen_window_new()), widget_(widget) {
    GtkWidget* const area = gtk_fixed_new();
    gtk_container_add(GTK_CONTAINER(window_), area);
    gtk_container_add(GTK_CONTAINER(area), widget_);
    gtk_widget_show_all(window_);
  }
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  ~Control() { gtk_widget_destroy(window_); }

  [[nodiscard]] int Height() const {
    int height = 0;
    gtk_widget_get_preferred_height(widget_, &height, nullptr);
    return height;
  }

 private:
  GtkWidget* window_;
  GtkWidget* widget_;
};

void SetFont(const char* name) {
  g_object_set(gtk_settings_get_default(), "gtk-font-name", name, nullptr);
}

class DesktopStyle : public testing::Test {
 protected:
  void SetUp() override {
    if (!test::ConnectToDisplay()) GTEST_SKIP() << "needs a display";
    SetFont("Sans 10");
    ApplyDesktopStyle();
  }
};

constexpr int kMostHeight = 27;

TEST_F(DesktopStyle, KeepsTextBoxesLow) {
  EXPECT_LE(Control(gtk_entry_new()).Height(), kMostHeight);
  EXPECT_LE(Control(gtk_spin_button_new_with_range(0, 9, 1)).Height(), kMostHeight);
  EXPECT_LE(Control(gtk_combo_box_text_new_with_entry()).Height(), kMostHeight);
}

TEST_F(DesktopStyle, KeepsButtonsLowButNotTooLow) {
  const int height = Control(gtk_button_new_with_label("OK")).Height();
  EXPECT_LE(height, kMostHeight);
  EXPECT_GE(height, 22);
}

TEST_F(DesktopStyle, FollowsTheFont) {
  const int small = Control(gtk_entry_new()).Height();
  const int smallButton = Control(gtk_button_new_with_label("OK")).Height();
  SetFont("Sans 20");
  EXPECT_GT(Control(gtk_entry_new()).Height(), small * 3 / 2);
  EXPECT_GT(Control(gtk_button_new_with_label("OK")).Height(), smallButton * 3 / 2);
}

TEST_F(DesktopStyle, KnowsTheDirectionOfTheText) {
  const GtkTextDirection before = gtk_widget_get_default_direction();
  gtk_widget_set_default_direction(GTK_TEXT_DIR_RTL);
  EXPECT_TRUE(ReadsRightToLeft());
  gtk_widget_set_default_direction(GTK_TEXT_DIR_LTR);
  EXPECT_FALSE(ReadsRightToLeft());
  gtk_widget_set_default_direction(before);
}

}  // namespace
}  // namespace quillon
