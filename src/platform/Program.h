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

/// From now on libraries loaded by name come from the program's folder or the system's, never from the current folder
/// or PATH. Call it before anything else. Does nothing on Linux.
void KeepToOwnAndSystemLibraries();

/// The folder for this user's configuration files, with a trailing separator (need not exist yet).
[[nodiscard]] std::string UserConfigurationFolder();

/// True when the user's language for programs is Japanese: on Linux the first of LC_ALL, LC_MESSAGES and LANG that is
/// set, on Windows the language of its user interface.
[[nodiscard]] bool UserReadsJapanese();

/// The command line's arguments as UTF-8 (Linux: byte for byte), without the program's own name. With a null `argv`,
/// for programs that do not have their own main(), the system is asked.
[[nodiscard]] std::vector<std::string> ProgramArguments(int argc, char** argv);

/// The command line behind the program's name, exactly as typed, where the system passes it whole (Windows); nullopt
/// where programs get separate arguments.
[[nodiscard]] std::optional<std::string> RawCommandLine();

/// From now on Ctrl-C does not end the program but sets a flag. On Linux the signals of kill and of a closed terminal
/// do the same, the latter unless it was ignored when the program started (nohup).
void CatchInterruption();
[[nodiscard]] bool Interrupted();

enum class StreamResult {
  kWritten,
  kClosed,  ///< the pipe's reader has closed it
  kFailed,  ///< a full disk, a closed stream
};

/// Writes to standard output or error, unbuffered and without newline conversion; a Windows console is set to UTF-8.
[[nodiscard]] StreamResult WriteStandardOutput(std::string_view bytes);
[[nodiscard]] StreamResult WriteStandardError(std::string_view bytes);

/// True when a person can answer a question: standard input is a terminal or console.
[[nodiscard]] bool StandardInputIsTerminal();

/// Waits for the next piece of standard input and returns it; empty at its end. Input from a Windows console is
/// converted to UTF-8.
[[nodiscard]] std::string ReadSomeStandardInput();

/// All of standard input, read to its end.
[[nodiscard]] std::string ReadStandardInput();

}  // namespace quillon
