#include "platform/PictureCanvas.h"

#include <gtk/gtk.h>

#include <algorithm>
#include <mutex>
#include <utility>

#include "platform/desktop/NativeWindow.h"

namespace quillon {
namespace {

class WidgetCanvas;
using Shared = std::shared_ptr<WidgetCanvas>;

class WidgetCanvas final : public PictureCanvas {
 public:
  static Shared Make(GtkWidget* widget) {
    auto canvas = std::make_shared<WidgetCanvas>();
    canvas->self_ = canvas;
    g_weak_ref_set(&canvas->widget_, widget);
    g_signal_connect_data(widget, "draw", G_CALLBACK(OnDraw), std::make_unique<Shared>(canvas).release(), Forget,
                          G_CONNECT_AFTER);
    return canvas;
  }
  WidgetCanvas() { g_weak_ref_init(&widget_, nullptr); }
  WidgetCanvas(const WidgetCanvas&) = delete;
  WidgetCanvas& operator=(const WidgetCanvas&) = delete;
  ~WidgetCanvas() override { g_weak_ref_clear(&widget_); }

  void Show(PictureFrame frame) override {
    const std::lock_guard lock(mutex_);
    frame_ = std::move(frame);
    if (std::exchange(scheduled_, true)) return;
    g_idle_add_full(G_PRIORITY_HIGH_IDLE, OnIdle, std::make_unique<Shared>(self_.lock()).release(),
                    [](gpointer shared) { const std::unique_ptr<Shared> gone(static_cast<Shared*>(shared)); });
  }

 private:
  static gboolean OnIdle(gpointer shared) {
    WidgetCanvas& canvas = **static_cast<Shared*>(shared);
    {
      const std::lock_guard lock(canvas.mutex_);
      canvas.scheduled_ = false;
    }
    if (auto* const widget = static_cast<GtkWidget*>(g_weak_ref_get(&canvas.widget_))) {
      gtk_widget_queue_draw(widget);
      g_object_unref(widget);
    }
    return G_SOURCE_REMOVE;
  }

  static gboolean OnDraw(GtkWidget* widget, cairo_t* cairo, const Shared* shared) {
    (*shared)->Draw(cairo, gtk_widget_get_allocated_width(widget), gtk_widget_get_allocated_height(widget));
    return FALSE;
  }

  static void Forget(gpointer shared, GClosure* /*closure*/) {
    const std::unique_ptr<Shared> gone(static_cast<Shared*>(shared));
  }

  void Draw(cairo_t* cairo, int width, int height) {
    const PictureFrame frame = Frame();
    if (frame.pixels == nullptr || frame.width <= 0 || frame.height <= 0) return;
    // Cairo only reads the pixels.
    cairo_surface_t* const picture =
        cairo_image_surface_create_for_data(const_cast<std::uint8_t*>(frame.pixels.get()), CAIRO_FORMAT_RGB24,
                                            frame.width, frame.height, static_cast<int>(frame.rowBytes));
    cairo_save(cairo);
    cairo_scale(cairo, static_cast<double>(width) / frame.width, static_cast<double>(height) / frame.height);
    cairo_set_source_surface(cairo, picture, 0, 0);
    cairo_pattern_set_filter(cairo_get_source(cairo), CAIRO_FILTER_BILINEAR);
    cairo_pattern_set_extend(cairo_get_source(cairo), CAIRO_EXTEND_PAD);  // no dark edges where it is enlarged
    cairo_paint(cairo);
    cairo_restore(cairo);
    cairo_surface_destroy(picture);
  }

  PictureFrame Frame() {
    const std::lock_guard lock(mutex_);
    return frame_;
  }

  std::weak_ptr<WidgetCanvas> self_;
  GWeakRef widget_{};
  std::mutex mutex_;  // for what the player's thread writes:
  PictureFrame frame_;
  bool scheduled_ = false;
};

}  // namespace

std::shared_ptr<PictureCanvas> MakePictureCanvas(void* control) {
  return WidgetCanvas::Make(static_cast<GtkWidget*>(control));
}

}  // namespace quillon
