#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/Progress.h"
#include "base/Result.h"

namespace quillon {

struct FileError;
struct FolderEntry;

using Listing = Result<std::vector<FolderEntry>, FileError>;

/// Lists the folders of one search.
class FolderListings {
 public:
  virtual ~FolderListings() = default;

  /// FileReads::ReadFolder. While a folder takes long, `progress` is asked several times a second whether to go on;
  /// nothing when it cancels. That ends the listings, too: no folder may be read after it.
  [[nodiscard]] virtual std::optional<Listing> Read(const std::string& folder, Progress& progress) = 0;

  /// FileReads::RealPath, in the same way.
  [[nodiscard]] virtual std::optional<std::string> RealPath(const std::string& folder, Progress& progress) = 0;
};

/// Asks the system, on any thread, and can be left behind on it: so these refer to nothing else.
struct FolderQuestions {
  /// Lists one folder. It may end early once `abandoned` is true.
  std::function<Listing(const std::string& folder, const std::atomic<bool>& abandoned)> list;
  std::function<std::string(const std::string& folder)> realPath;
};

/// Lists on a thread of its own, which may stay behind in a folder whose listing never ends. When `subfolders` are
/// wanted, it goes on to a folder's subfolders, in their order, before they are asked for; not to links.
[[nodiscard]] std::unique_ptr<FolderListings> MakeListingsAhead(FolderQuestions ask, bool subfolders, char separator);

}  // namespace quillon
