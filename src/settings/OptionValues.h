#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace quillon {

/// One find-and-replace rule of the name modification.
struct ReplaceRule {
  bool active = false;
  std::string find;
  std::string replacement;
  bool operator==(const ReplaceRule&) const = default;
};

enum class FindMethod { kText, kRegex };

/// Where deleted files go.
enum class DeleteTo { kNowhere, kRecycleBin };

/// File name extensions for a folder search, separated by blanks.
struct ExtensionGroup {
  bool on = false;
  std::string extensions;
};

/// What a name made from a pattern gets for a character that file names may not hold.
enum class PatternInvalid { kKept, kRemoved, kReplaced, kWide };

inline constexpr std::size_t kReplaceRuleCount = 5;
inline constexpr std::size_t kPatternHistoryLength = 10;
inline constexpr std::size_t kListColumnCount = 6;

/// Every setting. The initial values are the defaults of a missing settings file; SettingsTable.h has the file's own
/// sections and keys.
struct OptionValues {
  struct System {
    std::string loadFolder;  ///< last folder loaded, with trailing separator
    std::string moveFolder;  ///< last destination of a move, with trailing separator
    bool readPlayTimes = false;
    bool suppressConfirmations = false;  ///< questions are not shown and count as answered with yes
    bool alwaysOnTop = false;
  } system;

  /// Measures are twips.
  struct Window {
    std::optional<std::int32_t> top;   ///< empty: centred on the screen
    std::optional<std::int32_t> left;  ///< empty: centred on the screen
    std::int32_t height = 6655;
    std::int32_t width = 9520;
    std::array<std::int32_t, kListColumnCount> columnWidths = {1800, 1800, 1800, 660, 900, 2300};
  } window;

  struct Player {
    bool repeat = false;
    bool continuous = false;  ///< the list is played in an endless loop
  } player;

  struct Modify {
    bool replaceInvalid = false;  ///< replaces characters that are invalid in file names
    std::string invalidReplacement;
    std::array<ReplaceRule, kReplaceRuleCount> rules;
    FindMethod method = FindMethod::kText;
    bool ignoreCase = false;
    bool upper = false;
    bool lower = false;
    bool proper = false;
    bool wide = false;
    bool narrow = false;
    bool keepDialogOpen = false;  ///< the dialog stays open after applying its rules
    bool operator==(const Modify&) const = default;
  } modify;

  struct Update {
    bool skipFailedRows = false;  ///< without showing why each row failed
    bool checkFailedRows = true;
    bool uncheckAppliedRows = true;
    bool automatic = false;  ///< see ApplyMode
  } update;

  struct Rename {
    bool skipUntitledRows = true;
    bool checkSkippedRows = false;
    bool applyRules = false;  ///< the modification rules are applied when titles become rename names
    bool checkInvalidNames = false;
  } rename;

  struct List {
    bool checkLoadedRows = true;
    DeleteTo deleteTo = DeleteTo::kRecycleBin;
    bool confirmDeletion = true;
    bool clearBeforeLoading = false;
    bool searchSubfolders = false;
  } list;

  struct Find {
    bool filterByExtension = true;
    ExtensionGroup other;
    ExtensionGroup html = {false, "htm html"};
    ExtensionGroup media = {true, "mid midi wav mp3 mpg mpeg avi"};
    ExtensionGroup text = {false, "txt doc"};
  } find;

  struct Move {
    bool keepMovedRows = true;
  } move;

  /// The additions to the program, section [Extra] of the file. With the defaults it does what it did without them.
  struct Extra {
    bool readMoreTags = false;                                ///< the tags that the program's own readers leave out
    std::array<std::string, kPatternHistoryLength> patterns;  ///< used last first; empty ones at the end
    std::int32_t patternStart = 1;
    std::int32_t patternStep = 1;
    std::int32_t patternWidth = 1;  ///< digits of the counter, at least
    PatternInvalid patternInvalid = PatternInvalid::kKept;
    std::string patternReplacement;  ///< for PatternInvalid::kReplaced
    bool runRulesOnce = false;       ///< a replace rule is applied once, not once per row of the list
    bool confirmPending = false;     ///< asks at the end while rename names are not applied
    bool toolBarLabels = false;      ///< the tool bar shows its buttons' labels
    bool maximized = false;          ///< the main window
  } extra;

  /// The options dialog has stored its boxes. The settings file then gets 1 and 0, also where it holds another number
  /// that means the same. Not in the file.
  bool storedByDialog = false;
};

}  // namespace quillon
