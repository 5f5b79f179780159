#pragma once

#include <wx/cursor.h>
#include <wx/toolbar.h>
#include <wx/window.h>

#include <functional>
#include <string>

/// What the window system knows, whatever the toolkit believes.
namespace quillon::test {

/// Whether the system keeps the top-level window above the others.
[[nodiscard]] bool IsAboveOthers(const wxWindow& window);

/// Whether the mouse pointer is this one over the top-level window. GTK's hourglass and busy arrow are the same.
[[nodiscard]] bool ShowsPointer(const wxWindow& window, wxStockCursor pointer);

/// The name that assistive technology reads for the control.
[[nodiscard]] std::string AccessibleName(const wxWindow& control);

/// Calls `told` whenever the system enables or disables the window.
class EnablingWatch {
 public:
  EnablingWatch(wxWindow& window, std::function<void(bool enabled)> told);
  ~EnablingWatch();
  EnablingWatch(const EnablingWatch&) = delete;
  EnablingWatch& operator=(const EnablingWatch&) = delete;

 private:
  wxWindow& window_;
  std::function<void(bool enabled)> told_;
};

/// A tool's button on the screen, together with the arrow of its menu.
[[nodiscard]] wxRect NativeToolRect(const wxToolBar& bar, int id);

}  // namespace quillon::test
