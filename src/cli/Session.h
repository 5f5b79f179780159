#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/Ports.h"
#include "filelist/FileList.h"
#include "filelist/FileLoader.h"
#include "filelist/WindowPorts.h"
#include "platform/FileSystem.h"
#include "settings/ApplyMode.h"
#include "settings/OptionValues.h"

namespace quillon::cli {

/// What a program without a window answers to the logic: messages go to standard error, questions are answered with no,
/// progress is not shown.
class Console final : public MessageBoxes,
                      public PendingMessages,
                      public StatusPanels,
                      public FilePanel,
                      public WindowState,
                      public PlayerControl,
                      public ProgressDisplay,
                      public SearchDisplay,
                      public FolderDialog {
 public:
  bool Show(const Message& message) override;
  void Process() override {}
  void SetPlayerText(const std::string&) override {}
  void SetModeText(const std::string&) override {}
  void Reset() override {}
  void ShowRow(int) override {}
  void ShowFileName(const std::string&) override {}
  void SetPointer(Pointer) override {}
  void SetEnabled(bool) override {}
  void FocusList() override {}
  void ScrollToRow(int) override {}
  void ReleaseFile(const std::string&) override {}
  void Stop() override {}
  void Choose(const std::string&) override {}
  void FileMoved(const std::string&, const std::string&) override {}
  void FileRemoved(const std::string&) override {}
  void Update(const std::string&, const std::string&) override {}
  void Begin(const std::string&, const std::string&) override {}
  void End() override {}
  void ShowFolder(const std::string&) override {}
  void PassedOver(const std::string& path, Obstacle obstacle) override;
  std::string Choose(const std::string&, const std::string&, const std::string&) override { return {}; }

  /// True when a load went on without something.
  [[nodiscard]] bool HasPassedOver() const { return passedOver_; }
  /// The path that messages are about from now on.
  void SetSubject(std::string path) { subject_ = std::move(path); }

 private:
  bool passedOver_ = false;
  std::string subject_;
};

/// Messages that are told in another way.
class SilentBoxes final : public MessageBoxes {
 public:
  bool Show(const Message&) override { return false; }
};

/// Which files a command works on.
struct Selection {
  std::vector<std::string> paths;
  std::string extensions;  ///< separated by blanks; used when `ownExtensions`
  bool ownExtensions = false;
  bool all = false;
  bool subfolders = false;
};

/// The list of one run, loaded from the command line's paths.
class Session {
 public:
  explicit Session(OptionValues initial);

  /// Loads the paths in their order; true when each of them gave or already had its rows.
  bool Load(const Selection& selection);

  FileList list;
  OptionValues options;
  ApplyMode mode;
  Console console;
  std::unique_ptr<FileReads> files = MakeFileReads();

 private:
  FileLoader loader_;
};

/// Exit statuses.
inline constexpr int kDone = 0;
inline constexpr int kSomeFailed = 1;
inline constexpr int kBadUsage = 2;
inline constexpr int kNothingLoaded = 3;

/// The option values of this settings file, or of none when the path is empty. On failure complains and gives nothing.
[[nodiscard]] std::optional<OptionValues> LoadSettings(const std::string& path);

}  // namespace quillon::cli
