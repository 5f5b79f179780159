#pragma once

#include <functional>
#include <memory>
#include <string>

/// Detects whether the program already runs for this user on this display.
namespace quillon {

class SingleInstance {
 public:
  virtual ~SingleInstance() = default;

  /// False when another instance is already running.
  [[nodiscard]] virtual bool IsFirst() const = 0;

  /// For a later instance: brings the first instance's main window, or its open dialog, to the front and restores it if
  /// it is minimised. Does nothing when that window cannot be found.
  virtual void BringFirstForward() = 0;

  /// For the first instance: `raise` is called from the message loop whenever a later instance asks for it. On Windows
  /// it is never called, because the later instance raises the window itself.
  virtual void OnRaise(std::function<void()> raise) = 0;
};

/// `title` is the main window's title, which also names the program. Windows: a named mutex of this session, and the
/// top-level window of class `windowClass` (empty: of any class) with exactly this title. Linux: a name on the session
/// bus, one per display, together with a locked file in the session's runtime folder or else in the user's
/// configuration folder; without a session bus (none is started), only the file. Call it before the window system is
/// initialised, because GTK removes the environment variable that tells when the user started this instance.
[[nodiscard]] std::unique_ptr<SingleInstance> MakeSingleInstance(const std::string& title,
                                                                 const std::string& windowClass);

}  // namespace quillon
