#include "lint/Rules.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>
#include <regex>
#include <utility>

#include "base/Text.h"

namespace quillon::lint {
namespace {

bool IsHeader(const SourceFile& file) {
  return file.path.ends_with(".h");
}
bool IsCode(const SourceFile& file) {
  return IsHeader(file) || file.path.ends_with(".cpp");
}
bool IsUnder(const SourceFile& file, std::string_view folder) {
  return file.path.starts_with(folder);
}

bool MayKnowTheSystem(const SourceFile& file) {
  if (IsUnder(file, "src/")) return IsUnder(file, "src/platform/");
  static const std::regex kOfOneSystem("(^|.*/)(linux|windows)/.*|.*_(linux|windows)\\.(cpp|h)");
  return std::regex_match(file.path, kOfOneSystem);
}

/// Calls `check(line)` for every line; each text that it returns becomes a finding.
template <class Check>
Findings CheckLines(const SourceFile& file, Check check) {
  Findings findings;
  std::size_t number = 0;
  for (const std::string_view line : Split(file.text, '\n')) {
    ++number;
    if (std::optional<std::string> what = check(line)) findings.push_back({file.path, number, *std::move(what)});
  }
  return findings;
}

std::optional<std::string> Matched(std::string_view line, const std::regex& pattern) {
  std::cmatch match;
  if (!std::regex_search(line.data(), line.data() + line.size(), match, pattern)) return std::nullopt;
  return match.str();
}

/// The path between the delimiters of an include line.
std::optional<std::string_view> Included(std::string_view line, char open, char close) {
  line = line.substr(std::min(line.find_first_not_of(" \t"), line.size()));
  if (!line.starts_with('#') || line.find("include") == std::string_view::npos) return std::nullopt;
  const std::size_t start = line.find(open);
  if (start == std::string_view::npos) return std::nullopt;
  const std::size_t end = line.find(close, start + 1);
  if (end == std::string_view::npos) return std::nullopt;
  return line.substr(start + 1, end - start - 1);
}

bool IsSystemHeader(std::string_view header) {
  static constexpr std::array<std::string_view, 31> kNames = {
      // Windows
      "windows.h", "windowsx.h", "winbase.h", "winuser.h", "winnls.h", "mmsystem.h", "mciapi.h", "shellapi.h",
      "shlobj.h", "shlwapi.h", "shobjidl.h", "commctrl.h", "commdlg.h", "objbase.h", "io.h", "direct.h",
      // POSIX
      "unistd.h", "fcntl.h", "dirent.h", "dlfcn.h", "iconv.h", "langinfo.h", "poll.h", "pthread.h", "pwd.h", "spawn.h",
      "signal.h", "termios.h", "utime.h",
      // GLib
      "glib.h", "glib-object.h"};
  static constexpr std::array<std::string_view, 10> kFolders = {"sys/", "linux/", "glib/", "gio/",     "gst/",
                                                                "gtk/", "gdk/",   "X11/",  "netinet/", "unicode/"};
  const std::string lower = ToLower(header);
  if (std::find(kNames.begin(), kNames.end(), lower) != kNames.end()) return true;
  return std::any_of(kFolders.begin(), kFolders.end(),
                     [header](std::string_view folder) { return header.starts_with(folder); });
}

struct Folder {
  std::string_view path;  ///< below src
  int rank;               ///< a folder includes those of lower rank
};

constexpr std::string_view kWindowFolder = "/window/";

/// A subfolder is listed before its parent. Logic includes no windows, and windows include none of another subsystem.
constexpr std::array<Folder, 26> kFolders = {{{"base/", 0},
                                              {"platform/desktop/", 2},
                                              {"platform/multimedia/", 2},
                                              {"platform/", 1},
                                              {"controls/", 3},
                                              {"settings/", 2},
                                              {"paths/", 2},
                                              {"bregexp/", 2},
                                              {"media/", 3},
                                              {"tags/", 4},
                                              {"filelist/window/", 9},
                                              {"filelist/", 5},
                                              {"rename/window/", 9},
                                              {"rename/", 6},
                                              {"fileops/", 6},
                                              {"pattern/window/", 9},
                                              {"pattern/", 7},
                                              {"plan/", 6},
                                              {"player/window/", 9},
                                              {"player/", 6},
                                              {"dialogs/window/", 9},
                                              {"dialogs/", 6},
                                              {"app/window/", 10},
                                              {"app/", 8},
                                              {"cli/", 8},
                                              {"quillon/", 11}}};

const Folder* FolderOf(std::string_view pathBelowSrc) {
  const auto* const found = std::find_if(kFolders.begin(), kFolders.end(), [pathBelowSrc](const Folder& folder) {
    return pathBelowSrc.starts_with(folder.path);
  });
  return found == kFolders.end() ? nullptr : &*found;
}

/// Removes "#". The forbidden words are written with "#" in them, because this file is checked, too.
std::string Mended(std::string text) {
  std::erase(text, '#');
  return text;
}

struct ForbiddenWord {
  const char* name;
  std::string part;  ///< lower case; a quick check that rules out most lines
  std::regex pattern;
};

const std::vector<ForbiddenWord>& ForbiddenWords() {
  const auto word = [](const char* name, const char* part, const char* pattern) {
    return ForbiddenWord{name, Mended(part), std::regex(Mended(pattern), std::regex::icase)};
  };
  static const std::vector<ForbiddenWord> kWords = {
      word("the paper's full name", "spec#ification", "\\bspec#ifications?\\b"),
      word("the paper's file", "spec#.md", "\\bspec#\\.md\\b"),
      word("a reference to the paper", "as spec#ified", "\\bas spec#ified\\b"),
      word("a chapter of the paper", "part ", "\\bpart# [0-9]+\\.[0-9]+"),
      word("a helper", "sub#agent", "\\bsub#agents?\\b"),
      word("a report", "closing #note", "\\bclosing #notes?\\b"),
      word("a workplace", "/#work/", "(^|[^A-Za-z0-9_.])/#work/"),
  };
  return kWords;
}

/// True for compilers' predefined system macros: one of these names between underscores.
bool IsSystemMacro(std::string_view name) {
  static constexpr std::array<std::string_view, 10> kNames = {"WIN32", "WIN64", "MINGW32", "MINGW64", "MSC_VER",
                                                              "linux", "unix",  "APPLE",   "WXMSW",   "WXGTK"};
  if (!name.starts_with('_')) return false;
  name.remove_prefix(std::min(name.find_first_not_of('_'), name.size()));
  name = name.substr(0, name.find_last_not_of('_') + 1);
  return std::find(kNames.begin(), kNames.end(), name) != kNames.end();
}

bool IsOfAName(char c) {
  return c == '_' || std::isalnum(static_cast<unsigned char>(c)) != 0;
}

std::optional<std::string> FirstSystemMacro(std::string_view line) {
  const auto* at = line.begin();
  while (at != line.end()) {
    const auto* const start = std::find_if(at, line.end(), IsOfAName);
    at = std::find_if_not(start, line.end(), IsOfAName);
    const std::string_view name(start, static_cast<std::size_t>(at - start));
    if (IsSystemMacro(name)) return std::string(name);
  }
  return std::nullopt;
}

/// Removes the titles of published format sources, which headers may name with any words.
std::string WithoutPublishedTitles(std::string_view line) {
  static const std::array<std::string, 3> kTitles = {
      Mended("FreeDesktop.org Trash spec#ification"), Mended("XDG Base Directory Spec#ification"),
      Mended("Multimedia Programming Interface and Data Spec#ifications")};
  std::string rest(line);
  for (const std::string& title : kTitles) {
    if (const std::size_t at = rest.find(title); at != std::string::npos) rest.erase(at, title.size());
  }
  return rest;
}

}  // namespace

Findings FindSystemMacros(const SourceFile& file) {
  if (!IsCode(file) || MayKnowTheSystem(file)) return {};
  return CheckLines(file, FirstSystemMacro);
}

Findings FindSystemHeaders(const SourceFile& file) {
  if (!IsCode(file) || MayKnowTheSystem(file) || IsUnder(file, "benchmarks/")) return {};
  return CheckLines(file, [](std::string_view line) -> std::optional<std::string> {
    const std::optional<std::string_view> header = Included(line, '<', '>');
    if (!header || !IsSystemHeader(*header)) return std::nullopt;
    return "<" + std::string(*header) + ">";
  });
}

Findings FindWindowHeaders(const SourceFile& file) {
  const bool isWindow = file.path.find(kWindowFolder) != std::string::npos || IsUnder(file, "src/controls/") ||
                        IsUnder(file, "src/quillon/");
  if (!IsUnder(file, "src/") || !IsCode(file) || isWindow) return {};
  return CheckLines(file, [](std::string_view line) -> std::optional<std::string> {
    for (const auto& header : {Included(line, '<', '>'), Included(line, '"', '"')}) {
      if (header && header->starts_with("wx/")) return std::string(*header);
    }
    return std::nullopt;
  });
}

Findings FindUpwardIncludes(const SourceFile& file) {
  constexpr std::string_view kSource = "src/";
  if (!IsUnder(file, kSource) || !IsCode(file)) return {};
  const Folder* own = FolderOf(std::string_view(file.path).substr(kSource.size()));
  if (own == nullptr) return {{file.path, 0, "this folder has no place in the order"}};
  return CheckLines(file, [own](std::string_view line) -> std::optional<std::string> {
    const std::optional<std::string_view> header = Included(line, '"', '"');
    if (!header) return std::nullopt;
    const Folder* other = FolderOf(*header);
    if (other == nullptr) return "\"" + std::string(*header) + "\" is no path from src";
    if (other == own || other->rank < own->rank) return std::nullopt;
    return std::string(own->path) + " includes \"" + std::string(*header) + "\"";
  });
}

Findings FindMissingPragmaOnce(const SourceFile& file) {
  if (!IsHeader(file)) return {};
  const std::vector<std::string_view> lines = Split(file.text, '\n');
  const bool there =
      std::any_of(lines.begin(), lines.end(), [](std::string_view line) { return TrimRight(line) == "#pragma once"; });
  if (there) return {};
  return {{file.path, 0, "no #pragma once"}};
}

Findings FindLongFiles(const SourceFile& file) {
  if (!IsUnder(file, "src/") || !IsCode(file)) return {};
  const auto lines = static_cast<std::size_t>(std::count(file.text.begin(), file.text.end(), '\n'));
  if (lines <= kMostLines) return {};
  return {{file.path, 0, std::to_string(lines) + " lines"}};
}

Findings FindForbiddenWords(const SourceFile& file) {
  return CheckLines(file, [](std::string_view line) -> std::optional<std::string> {
    const std::string checked = WithoutPublishedTitles(line);
    const std::string lower = ToLower(checked);
    for (const ForbiddenWord& word : ForbiddenWords()) {
      if (lower.find(word.part) == std::string::npos) continue;
      if (const std::optional<std::string> found = Matched(checked, word.pattern)) return word.name + (": " + *found);
    }
    return std::nullopt;
  });
}

}  // namespace quillon::lint
