#pragma once

#include <cstddef>

/// The interface of the loadable regular-expression library (BREGEXP.DLL, libbregexp.so). It exports `Replace`,
/// `QuillonRegexCheck` and `QuillonRegexVersion`; the last one distinguishes it from libraries of the same name with
/// another interface.
///
/// A command is `s/` pattern `/` replacement `/` flags, parsed as in Perl: the first "/" without a backslash ends the
/// pattern, the next one the replacement, and "\/" is a "/".
///
/// Flags:
///   g  every match is replaced, not only the first
///   i  letter case is ignored, character by character
///   k  command and target are code page 932 (Shift_JIS with double-byte characters)
///   u  command and target are UTF-8
/// Without k and u every byte is a character. k and u exclude each other. A command means the same with k and with u:
/// ranges use Unicode order, and \xHH and \x{HHHH} are Unicode characters (below U+100000 in replacements). Each byte
/// that is not part of a valid character counts as one character, equals only itself and is kept unchanged.
///
/// Patterns have Perl's syntax (PCRE2). \w, \d, \s and \b are ASCII only, "." matches everything but a newline, and "$"
/// also matches before a newline at the end.
///
/// Replacements support $1 ${1} \1 $& $` $', \t \n \r \f \a \e \b, octal \0 \012, \xHH \x{HHHH}, and \U \L \u \l \E. A
/// group that took no part in the match is empty. Before anything else, "$" is itself, and a backslash stands for the
/// character behind it.
///
/// The functions throw nothing and keep no state but in `compiled`: calls with different slots may run at the same
/// time.
extern "C" {

/// Applies `command` to `target`. Returns the length of the result in bytes and writes at most `capacity` of them to
/// `result`. A result of more than 65,536 characters may be cut off anywhere after them.
///
/// `compiled` points to a slot of the caller's, initially null, in which the library caches the compiled command for
/// the next call with the same command; with a null `compiled` nothing is cached. A null `command` only frees the slot
/// and returns 0.
///
/// Errors are returned as the result text: "unmatched () in regexp" and "unmatched [] in regexp" for brackets without a
/// partner; "invalid target parameter" for any other defect of the command, for a match that needs too much time or
/// memory, and, with k, for a result that code page 932 cannot hold.
using BregexpReplace = std::size_t(const char* command, std::size_t commandLength, const char* target,
                                   std::size_t targetLength, char* result, std::size_t capacity, void** compiled);

/// Says why `Replace` answers every target with an error. Returns 0 when the command is usable, the number of PCRE2's
/// compile error (above 100; pcre2.h) for a defect of the pattern, else one of the numbers below. A defect of the
/// pattern sets `*offset` to the number of the pattern's characters, as the command has them, before the place where
/// the defect was noticed; otherwise it is 0.
using BregexpCheck = int(const char* command, std::size_t commandLength, std::size_t* offset);

/// Returns the library's interface version: the `kBregexpVersion` that it was built with.
using BregexpVersion = int();

}  // extern "C"

/// The command is not of the form above.
inline constexpr int kBregexpBadCommand = -1;
inline constexpr int kBregexpBadReplacement = -2;
inline constexpr int kBregexpOutOfMemory = -3;

/// The current interface version. It changes with every change that an older caller would not expect.
inline constexpr int kBregexpVersion = 2;
