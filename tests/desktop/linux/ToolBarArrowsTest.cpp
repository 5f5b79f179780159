#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include <cstddef>

#include "desktop/Display.h"
#include "platform/desktop/ToolBarArrows.h"

namespace quillon {
namespace {

/// A bar with one tool and the arrow of its drop-down menu, as wxWidgets builds them.
class ToolBarArrows : public testing::Test {
 protected:
  void SetUp() override {
    if (!test::ConnectToDisplay()) GTEST_SKIP() << "needs a display";
    window_ = gtk_offscreen_window_new();
    GtkWidget* const box = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 0);
    gtk_container_add(GTK_CONTAINER(window_), box);
    GtkWidget* const button = gtk_toggle_button_new();
    gtk_container_add(GTK_CONTAINER(box), button);
    arrow_ = gtk_image_new_from_icon_name("pan-down-symbolic", GTK_ICON_SIZE_BUTTON);
    gtk_container_add(GTK_CONTAINER(button), arrow_);
    picture_ = gtk_image_new_from_icon_name("document-open", GTK_ICON_SIZE_BUTTON);
    gtk_container_add(GTK_CONTAINER(box), picture_);
    DrawToolBarArrows(window_);
    gtk_widget_show_all(window_);
    while (gtk_events_pending() != FALSE) gtk_main_iteration();
  }

  void TearDown() override {
    if (window_ != nullptr) gtk_widget_destroy(window_);
  }

  /// The opacity that the arrow draws at this place, counted from its left and from its middle downwards.
  [[nodiscard]] int InkAt(int x, int down) const {
    const int height = gtk_widget_get_allocated_height(arrow_);
    const int y = height / 2 + down;
    cairo_surface_t* const surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 16, height);
    cairo_t* const context = cairo_create(surface);
    gtk_widget_draw(arrow_, context);
    cairo_surface_flush(surface);
    const unsigned char* const row = cairo_image_surface_get_data(surface) +
                                     static_cast<std::ptrdiff_t>(y) * cairo_image_surface_get_stride(surface);
    constexpr int kAlpha = 3;  // of a pixel's four bytes
    const int ink = row[4 * x + kAlpha];
    cairo_destroy(context);
    cairo_surface_destroy(surface);
    return ink;
  }

  GtkWidget* window_ = nullptr;
  GtkWidget* arrow_ = nullptr;
  GtkWidget* picture_ = nullptr;
};

TEST_F(ToolBarArrows, AreNotAskedOfTheIconTheme) {
  EXPECT_EQ(gtk_image_get_storage_type(GTK_IMAGE(arrow_)), GTK_IMAGE_EMPTY);
  EXPECT_EQ(gtk_image_get_storage_type(GTK_IMAGE(picture_)), GTK_IMAGE_ICON_NAME);
}

TEST_F(ToolBarArrows, AreTrianglesThatPointDown) {
  EXPECT_EQ(gtk_widget_get_allocated_width(arrow_), 16);
  for (const int x : {3, 8, 12}) EXPECT_GT(InkAt(x, -3), 0) << x;
  EXPECT_GT(InkAt(8, 1), 0);
  for (const int x : {3, 12}) EXPECT_EQ(InkAt(x, 1), 0) << x;
  EXPECT_EQ(InkAt(8, -5), 0);
}

}  // namespace
}  // namespace quillon
