#pragma once

#include <cstddef>

/// The interface of the loadable regular-expression library (BREGEXP.DLL, libbregexp.so). Its exports are `Replace`,
/// and `QuillonRegexVersion`, by which it is told from libraries of the same name with another interface.
///
/// A command is `s/` pattern `/` replacement `/` flags, read as Perl reads it: the first "/" without a backslash ends
/// the pattern, the next one the replacement, and "\/" is a "/".
///
/// Flags:
///   g  every match is replaced, not only the first
///   i  letter case is ignored, character by character
///   k  command and target are code page 932 (Shift_JIS with double-byte characters)
///   u  command and target are UTF-8
/// Without k and u every byte is a character. k and u exclude each other. The same command means the same with k and
/// with u: ranges go by Unicode, and \xHH and \x{HHHH} are Unicode characters (below U+100000 in replacements). Bytes
/// that stand for no character count as a character each, equal only themselves and are kept as they are.
///
/// Patterns are Perl's (PCRE2). \w, \d, \s and \b know ASCII only, "." matches everything but a newline, and "$" also
/// matches before a newline at the end.
///
/// Replacements know $1 ${1} \1 $& $` $', \t \n \r \f \a \e \b, octal \0 \012, \xHH \x{HHHH}, and \U \L \u \l \E. A
/// group that took no part is empty. A "$" before anything else is a "$", a backslash before anything else stands for
/// what follows.
///
/// There are no exceptions and no state but what `compiled` holds: calls with different slots may run at once.
extern "C" {

/// Applies `command` to `target`. Returns the length of the result in bytes and writes at most `capacity` of them to
/// `result`. A result of more than 65,536 characters may be cut off somewhere beyond them.
///
/// `compiled` is a slot of the caller's, null at first, where the library keeps the compiled command for the next call
/// with the same command; a null `compiled` keeps nothing. A null `command` only frees the slot and returns 0.
///
/// Errors come as the result: "unmatched () in regexp" and "unmatched [] in regexp" for brackets without a partner;
/// "invalid target parameter" for any other defect of the command, for a match that needs too much time or memory, and,
/// with k, for a result that code page 932 cannot hold.
using BregexpReplace = std::size_t(const char* command, std::size_t commandLength, const char* target,
                                   std::size_t targetLength, char* result, std::size_t capacity, void** compiled);

/// The version of the interface that the library has: `kBregexpVersion` of its own time.
using BregexpVersion = int();

}  // extern "C"

/// The version that this is. It changes with everything that an older caller would not expect.
inline constexpr int kBregexpVersion = 1;
