#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace quillon {

/// One find-and-replace rule of the name modification.
struct ReplaceRule {
  std::int16_t active = 0;
  std::string find;
  std::string replacement;
};

inline constexpr std::size_t kReplaceRuleCount = 5;
inline constexpr std::size_t kListColumnCount = 6;

/// Every setting, by section and key. Check boxes hold 0 and 1; window measures are twips. The initial values are the
/// defaults of a missing settings file.
struct OptionValues {
  struct System {
    std::string dirPath;   ///< last folder loaded, with trailing separator
    std::string movePath;  ///< last destination of a move, with trailing separator
    std::int16_t loadTime = 0;
    std::int16_t msgbox = 0;  ///< 1: confirmations are not shown and count as yes
    bool front = false;       ///< always on top
  } system;

  struct Window {
    std::optional<std::int32_t> top;   ///< empty: centred on the screen
    std::optional<std::int32_t> left;  ///< empty: centred on the screen
    std::int32_t height = 6655;
    std::int32_t width = 9520;
    std::array<std::int32_t, kListColumnCount> columnWidths = {1800, 1800, 1800, 660, 900, 2300};
  } window;

  struct Player {
    std::int16_t repeat = 0;
    std::int16_t allPlay = 0;
  } player;

  struct Modify {
    std::int16_t reviceFlag = 0;
    std::string reviceText;
    std::array<ReplaceRule, kReplaceRuleCount> rules;
    std::int16_t findCtrl = 0;  ///< 1: the rules are regular expressions
    std::int16_t ignoreCase = 0;
    std::int16_t upper = 0;
    std::int16_t lower = 0;
    std::int16_t proper = 0;
    std::int16_t wide = 0;
    std::int16_t narrow = 0;
    std::int16_t nonUnload = 0;
  } modify;

  struct Update {
    std::int16_t errSkip = 0;
    std::int16_t updateErrChk = 1;
    std::int16_t updateRemChk = 1;
    std::int16_t autoUpdate = 0;
  } update;

  struct Rename {
    std::int16_t noTitleSkip = 1;
    std::int16_t renameErrChk = 0;
    std::int16_t renameModify = 0;
    std::int16_t injusticeChk = 0;
  } rename;

  struct List {
    std::int16_t loadChk = 1;
    bool delToTrashBox = true;
    std::int16_t delCompMsg = 1;
    std::int16_t loadRemove = 0;
    std::int16_t subFolder = 0;
  } list;

  struct Find {
    std::int16_t filterChk = 1;
    std::int16_t extEtc = 0;
    std::int16_t extHtml = 0;
    std::int16_t extMusic = 1;
    std::int16_t extText = 0;
    std::string extEtcText;
    std::string extHtmlText = "htm html";
    std::string extMusicText = "mid midi wav mp3 mpg mpeg avi";
    std::string extTextText = "txt doc";
  } find;

  struct Move {
    std::int16_t remainList = 1;
  } move;
};

}  // namespace quillon
