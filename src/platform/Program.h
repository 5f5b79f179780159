#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The running program and its surroundings.
namespace quillon {

/// The folder of the executable, with exactly one trailing separator.
[[nodiscard]] std::string ProgramFolder();

/// The executable's file name without folder and, on Windows, without ".exe".
[[nodiscard]] std::string ProgramBaseName();

/// From now on what the process loads by name alone comes from the program's folder or the system's, never from the
/// current folder or PATH: to be called before anything else. Nothing to do on Linux.
void KeepToOwnAndSystemLibraries();

/// The folder for this user's configuration files, with a trailing separator (need not exist yet).
[[nodiscard]] std::string UserConfigurationFolder();

/// True when the user has chosen Japanese for what programs say: by LC_ALL, LC_MESSAGES or LANG, the first that is set;
/// on Windows by the language of its windows.
[[nodiscard]] bool UserReadsJapanese();

/// The command line's arguments as UTF-8 (Linux: byte for byte), without the program's own name. A null `argv` stands
/// for a main() that somebody else has: the system is asked.
[[nodiscard]] std::vector<std::string> ProgramArguments(int argc, char** argv);

/// The command line behind the program's own name, as it was typed, where the system hands it over whole (Windows);
/// nullopt where programs get their arguments one by one.
[[nodiscard]] std::optional<std::string> RawCommandLine();

/// From now on Ctrl-C no longer ends the program but is remembered. Linux: so are the signals of kill and of a terminal
/// that is closed, the latter unless whoever started the program had it ignored (nohup).
void CatchInterruption();
[[nodiscard]] bool Interrupted();

enum class StreamResult {
  kWritten,
  kClosed,  ///< nobody reads the pipe any more
  kFailed,  ///< a full disk, a closed stream
};

/// Standard output and error, unbuffered: the bytes as they are, no newline conversion; a Windows console is told that
/// they are UTF-8.
[[nodiscard]] StreamResult WriteStandardOutput(std::string_view bytes);
[[nodiscard]] StreamResult WriteStandardError(std::string_view bytes);

/// The next piece of standard input, as soon as there is one; empty at its end. What is typed at a Windows console
/// arrives as UTF-8.
[[nodiscard]] std::string ReadSomeStandardInput();

/// All of standard input, read to its end.
[[nodiscard]] std::string ReadStandardInput();

}  // namespace quillon
