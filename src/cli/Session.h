#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/PathList.h"
#include "base/Progress.h"
#include "filelist/FileList.h"
#include "filelist/PassedOver.h"
#include "filelist/WindowPorts.h"
#include "platform/FileSystem.h"
#include "settings/ApplyMode.h"
#include "settings/OptionValues.h"
#include "tags/SongDetails.h"

namespace quillon::cli {

/// Ends a loop once the user has interrupted the program.
class UntilInterrupted final : public Progress {
 public:
  bool Continue(std::size_t done, std::size_t total, const std::string& item) override;
  bool Continue() override;
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

  /// Loads the paths in their order; true when each path was loaded, or listed already.
  bool Load(const Selection& selection);

  /// Each row's location.
  [[nodiscard]] std::vector<std::string> Locations() const;

  FileList list;
  OptionValues options;
  TagSources tags = TagSources::kStandard;
  ApplyMode mode;
  PlayerControl player;  ///< does nothing
  std::unique_ptr<FileReads> files = MakeFileReads();

 private:
  bool LoadPath(const std::string& path, const Selection& selection);
  bool LoadFolder(const std::string& path, const Selection& selection, UntilInterrupted& progress);
  bool Register(const PathList& paths, const std::string& subject, UntilInterrupted& progress);
  bool ComplainAbout(const std::vector<PassedOver>& paths);
};

/// Writes a message to standard error, on one line. `subject` is the path concerned, which is appended when the text
/// does not name it.
void Complain(const std::string& caption, const std::string& text, const std::string& subject);

/// Exit statuses.
inline constexpr int kDone = 0;
inline constexpr int kSomeFailed = 1;
inline constexpr int kBadUsage = 2;
inline constexpr int kNothingLoaded = 3;

/// The option values of this settings file, or of none when the path is empty. On failure it complains and returns
/// nullopt.
[[nodiscard]] std::optional<OptionValues> LoadSettings(const std::string& path);

/// Makes the rules of this preset the options' own: one of the settings file, unless its path is empty, or else one of
/// those that come with the program. On failure it complains, names the presets there are, and returns false.
[[nodiscard]] bool UsePreset(const std::string& name, const std::string& settings, OptionValues& options);

}  // namespace quillon::cli
