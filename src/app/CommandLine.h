#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/Ports.h"
#include "platform/FileSystem.h"

/// What the command line asks for.
namespace quillon {

struct CommandLineRequest {
  enum class Kind {
    kOpen,        ///< open the window and load `paths`
    kHelp,        ///< show the usage only
    kVersion,     ///< show the version only
    kWrongUsage,  ///< `word` is an unknown option
  };

  Kind kind = Kind::kOpen;
  std::vector<std::string> paths;  ///< each a full path
  std::string word;
};

/// Reads the command line. On systems that pass it as one text, `raw` is the part after the program's name (quoting
/// rules: SplitCommandLine); otherwise `arguments` are taken unchanged. Empty words are skipped. A word that begins
/// with "--" and names no existing file or folder is an option: --help, --version or a mistake; the first one decides.
[[nodiscard]] CommandLineRequest ReadCommandLine(const std::optional<std::string>& raw,
                                                 const std::vector<std::string>& arguments, FileReads& files);

/// The answer to a request that opens no window: several lines, each with a line break.
[[nodiscard]] std::string AnswerTo(const CommandLineRequest& request);

/// The same as a message box, for when the answer cannot be written.
[[nodiscard]] Message BoxFor(const CommandLineRequest& request);

/// The exit status of a request that opens no window.
[[nodiscard]] int ExitStatusOf(const CommandLineRequest& request);

}  // namespace quillon
