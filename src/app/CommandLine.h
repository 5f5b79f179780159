#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/Ports.h"
#include "platform/FileSystem.h"

/// What somebody who starts the program asks for.
namespace quillon {

struct CommandLineRequest {
  enum class Kind {
    kOpen,        ///< the window, with `paths` loaded
    kHelp,        ///< how to start the program, and nothing more
    kVersion,     ///< the version, and nothing more
    kWrongUsage,  ///< `word` means nothing
  };

  Kind kind = Kind::kOpen;
  std::vector<std::string> paths;  ///< each a full path
  std::string word;
};

/// Reads the command line. `raw` is the command line behind the program's name, on systems that hand it over whole (its
/// quoting rules: SplitCommandLine); else `arguments` are taken as they are. Empty words are passed over. A word that
/// begins with "--" and names nothing on the disk is no path: --help, --version or a mistake; the first one decides.
[[nodiscard]] CommandLineRequest ReadCommandLine(const std::optional<std::string>& raw,
                                                 const std::vector<std::string>& arguments, FileReads& files);

/// What a request that opens no window is answered with; several lines, the last one ended.
[[nodiscard]] std::string AnswerTo(const CommandLineRequest& request);

/// The same as a box, for where nobody reads what is written.
[[nodiscard]] Message BoxFor(const CommandLineRequest& request);

/// The exit status of a request that opens no window.
[[nodiscard]] int ExitStatusOf(const CommandLineRequest& request);

}  // namespace quillon
