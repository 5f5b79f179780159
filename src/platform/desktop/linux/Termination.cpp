#include "platform/desktop/Termination.h"

#include <glib-unix.h>
#include <gtk/gtk.h>

#include <utility>
#include <vector>

#include "platform/desktop/OpenMenu.h"
#include "platform/linux/EndingSignals.h"

namespace quillon {
namespace {

constexpr guint kAgainMilliseconds = 100;

/// The toolkit's file and folder dialogs, which are not in the program's list of windows.
void CancelFileDialog() {
  GtkWidget* const holder = gtk_grab_get_current();
  GtkWidget* const window = holder == nullptr ? nullptr : gtk_widget_get_toplevel(holder);
  if (window != nullptr && GTK_IS_FILE_CHOOSER_DIALOG(window)) {
    gtk_dialog_response(GTK_DIALOG(window), GTK_RESPONSE_CANCEL);
  }
}

class CaughtTermination final : public Termination {
 public:
  explicit CaughtTermination(std::function<void()> end) : end_(std::move(end)) {
    for (const int signal : EndingSignals()) watches_.push_back(g_unix_signal_add(signal, &OnSignal, this));
  }
  CaughtTermination(const CaughtTermination&) = delete;
  CaughtTermination& operator=(const CaughtTermination&) = delete;
  ~CaughtTermination() override {
    for (const guint watch : watches_) g_source_remove(watch);
    if (again_ != 0) g_source_remove(again_);
  }

 private:
  static gboolean OnSignal(gpointer data) {
    auto* const self = static_cast<CaughtTermination*>(data);
    if (self->again_ == 0) self->again_ = g_timeout_add(kAgainMilliseconds, &OnTime, self);
    return OnTime(data);
  }

  static gboolean OnTime(gpointer data) {
    CloseOpenMenu();  // a menu runs a nested message loop, in which no window may be destroyed
    CancelFileDialog();
    static_cast<CaughtTermination*>(data)->end_();
    return G_SOURCE_CONTINUE;
  }

  std::function<void()> end_;
  std::vector<guint> watches_;
  guint again_ = 0;
};

}  // namespace

std::unique_ptr<Termination> CatchTermination(std::function<void()> end) {
  return std::make_unique<CaughtTermination>(std::move(end));
}

}  // namespace quillon
