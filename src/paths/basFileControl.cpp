#include "paths/basFileControl.h"

#include <algorithm>

#include "base/Text.h"

namespace quillon {
namespace {

/// The characters that end the folder part when a path is split into folder and name.
constexpr std::string_view FolderEnds(PathStyle style) {
  return style == PathStyle::kWindows ? "\\:" : "/";
}

/// The characters at which the search for an extension stops. On Windows "/" is one of them, unlike above, and ":" is
/// not.
constexpr std::string_view ExtensionScanEnds(PathStyle style) {
  return style == PathStyle::kWindows ? ".\\/" : "./";
}

// The library's find_last_of calls a function for every character of the path.
std::size_t LastOf(std::string_view path, std::string_view ends) {
  for (std::size_t i = path.size(); i > 0; --i) {
    for (const char end : ends) {
      if (path[i - 1] == end) return i - 1;
    }
  }
  return std::string_view::npos;
}

std::size_t FileNameOffset(std::string_view path, PathStyle style) {
  const std::size_t separator = LastOf(path, FolderEnds(style));
  return separator == std::string_view::npos ? path.size() : separator + 1;
}

/// The extension in its original letter case.
std::string_view RawExtension(std::string_view path, PathStyle style) {
  const std::size_t end = LastOf(path, ExtensionScanEnds(style));
  if (end == std::string_view::npos || path[end] != '.') return {};
  return path.substr(end + 1);
}

/// The text in the form from which UnquoteArgument recovers it.
std::string QuotedArgument(std::string_view text) {
  std::string argument = " \"";
  argument += text;
  argument += '"';
  return argument;
}

/// The offset of the quote that closes the run opened at `start`: the next quote that is followed by a blank or by the
/// end. The command line's size when there is none.
std::size_t ClosingQuote(std::string_view commandLine, std::size_t start) {
  for (std::size_t quote = start;;) {
    quote = commandLine.find('"', quote + 1);
    if (quote == std::string_view::npos) return commandLine.size();
    if (quote + 1 == commandLine.size() || commandLine[quote + 1] == ' ') return quote;
  }
}

}  // namespace

char PathSeparator(PathStyle style) {
  return style == PathStyle::kWindows ? '\\' : '/';
}

std::string Extension(std::string_view path, PathStyle style) {
  return ToUpper(RawExtension(path, style));
}

std::string_view FileName(std::string_view path, PathStyle style) {
  return path.substr(FileNameOffset(path, style));
}

std::string_view BaseName(std::string_view path, PathStyle style) {
  const std::string_view name = FileName(path, style);
  const std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos ? std::string_view() : name.substr(0, dot);
}

std::string_view NameWithoutExtension(std::string_view path, PathStyle style) {
  const std::string_view name = FileName(path, style);
  return name.find('.') == std::string_view::npos ? name : BaseName(path, style);
}

std::string_view FolderPart(std::string_view path, PathStyle style) {
  return path.substr(0, FileNameOffset(path, style));
}

void AddPath(PathList& list, std::string_view path, PathStyle style) {
  const std::size_t offset = FileNameOffset(path, style);
  list.Add(path.substr(0, offset), path.substr(offset));
}

std::string WithTrailingSeparator(std::string_view folder, PathStyle style) {
  const char separator = PathSeparator(style);
  std::string result;
  result.reserve(folder.size() + 1);
  result = folder;
  if (result.empty() || result.back() != separator) result += separator;
  return result;
}

bool IsInvalidInName(char character) {
  switch (character) {
    case '"':
    case '*':
    case '/':
    case ':':
    case '<':
    case '>':
    case '?':
    case '\\':
    case '|':
    case '\r': return true;
    default: return false;
  }
}

int InvalidCharacterPosition(std::string_view name) {
  return AddedInvalidCharacterPosition(name, {});
}

int AddedInvalidCharacterPosition(std::string_view name, std::string_view present) {
  for (auto found = name.begin(); found != name.end(); ++found) {
    if (!IsInvalidInName(*found)) continue;
    if (std::count(name.begin(), found + 1, *found) <= std::count(present.begin(), present.end(), *found)) continue;
    return static_cast<int>(CharacterCount({name.begin(), found})) + 1;
  }
  return 0;
}

std::vector<std::string> SplitCommandLine(std::string_view commandLine) {
  std::vector<std::string> arguments;
  for (std::size_t start = 0; start < commandLine.size();) {
    const bool quoted = commandLine[start] == '"';
    const std::size_t textStart = quoted ? start + 1 : start;
    const std::size_t textEnd =
        quoted ? ClosingQuote(commandLine, start) : std::min(commandLine.find(' ', start), commandLine.size());
    const std::string_view text = commandLine.substr(textStart, textEnd - textStart);
    if (!text.empty()) {
      const bool cutLater = quoted || text.find('"') != std::string_view::npos;
      arguments.push_back(cutLater ? QuotedArgument(text) : std::string(text));
    }
    start = textEnd + (quoted ? 2 : 1);
  }
  return arguments;
}

std::string UnquoteArgument(std::string_view argument) {
  if (argument.find('"') == std::string_view::npos) return std::string(argument);
  const std::string_view tail = argument.substr(ByteOffset(argument, 2));
  const std::size_t length = CharacterCount(tail);
  return std::string(FirstCharacters(tail, length > 0 ? length - 1 : 0));
}

bool MatchesExtensionFilter(std::string_view path, std::string_view list, PathStyle style) {
  if (list.empty()) return true;
  const std::string_view extension = RawExtension(path, style);
  for (std::size_t start = 0; start <= list.size();) {
    const std::size_t end = std::min(list.find(' ', start), list.size());
    if (EqualIgnoringCase(list.substr(start, end - start), extension)) return true;
    start = end + 1;
  }
  return false;
}

std::string ShortenPath(std::string_view path, std::size_t maximum, PathStyle style) {
  const std::size_t length = CharacterCount(path);
  if (length <= maximum) return std::string(path);
  const char separator = PathSeparator(style);
  // Positions are 1-based character numbers, 0 for none; each "Offset" is the same place as a 0-based byte offset.
  std::size_t position = 1;
  std::size_t positionOffset = 0;
  std::size_t start = 0;
  std::size_t tailOffset = 0;  // the byte offset of the character before `start`
  while (position != 0) {
    const std::size_t candidate = length > start + 1 ? length - start - 1 : 0;
    if (candidate + 6 <= maximum) break;
    start = position + 1;
    tailOffset = positionOffset;
    const std::size_t startOffset = positionOffset + CharacterAt(path, positionOffset).length;
    positionOffset = path.find(separator, startOffset);
    position = positionOffset == std::string_view::npos
                   ? 0
                   : start + CharacterCount(path.substr(startOffset, positionOffset - startOffset));
  }
  const std::size_t first = path.find(separator);
  std::string result(path.substr(0, first == std::string_view::npos ? 0 : first + 1));
  result += "...";
  result += path.substr(tailOffset);
  return result;
}

std::string PathIdentity(std::string_view path, PathStyle style) {
  return style == PathStyle::kWindows ? ToUpper(path) : std::string(path);
}

}  // namespace quillon
