#pragma once

#include <array>
#include <string>
#include <string_view>

#include "settings/OptionValues.h"

namespace quillon {

/// How a setting differs from what its type alone says.
enum class SettingKind {
  kPlain,
  kGeometry,     ///< the main window's place and size: written in its normal state only
  kReplaceText,  ///< one blank alone is stored as "[SPACE]"
  kNumberText,   ///< an integer that is read as text
  kReadOnly,     ///< never written with the others
};

/// Calls `visit(section, key, member, kind)` for every setting, in the order in which they are read and written.
/// `Options` is OptionValues or const OptionValues. The sections, the order and the odd spellings are the file's
/// format.
template <class Options, class Visitor>
void VisitSettings(Options& options, Visitor visit) {
  using enum SettingKind;
  visit("System", "DirPath", options.system.dirPath, kPlain);
  visit("System", "MovePath", options.system.movePath, kPlain);
  visit("Window", "Top", options.window.top, kGeometry);
  visit("Window", "Left", options.window.left, kGeometry);
  visit("Window", "WindowHeight", options.window.height, kGeometry);
  visit("Window", "WindowWidth", options.window.width, kGeometry);
  constexpr std::array<std::string_view, kListColumnCount> kWidthKeys = {"Col1_Width", "Col2_Width", "Col3_Width",
                                                                         "Col4_Width", "Col5_Width", "Col6_Width"};
  for (std::size_t i = 0; i < kListColumnCount; ++i) {
    visit("Window", kWidthKeys[i], options.window.columnWidths[i], kPlain);
  }
  visit("Player", "Repeat", options.player.repeat, kPlain);
  visit("Modify", "ReviceFlag", options.modify.reviceFlag, kPlain);
  visit("Modify", "ReviceText", options.modify.reviceText, kPlain);
  for (std::size_t i = 0; i < kReplaceRuleCount; ++i) {
    const std::string number = std::to_string(i);
    visit("Modify", number + "ReplaceFlag", options.modify.rules[i].active, kPlain);
    visit("Modify", number + "ReplaceObject", options.modify.rules[i].find, kReplaceText);
    visit("Modify", number + "ReplaceRepace", options.modify.rules[i].replacement, kReplaceText);
  }
  visit("Modify", "FindCtrl", options.modify.findCtrl, kPlain);
  visit("Modify", "IgnoreCase", options.modify.ignoreCase, kPlain);
  visit("Modify", "Upper", options.modify.upper, kPlain);
  visit("Modify", "Lower", options.modify.lower, kPlain);
  visit("Modify", "Proper", options.modify.proper, kPlain);
  visit("Modify", "Wide", options.modify.wide, kPlain);
  visit("Modify", "Narrow", options.modify.narrow, kPlain);
  visit("Modify", "NonUnload", options.modify.nonUnload, kPlain);
  visit("Update", "ErrSkip", options.update.errSkip, kPlain);
  visit("Update", "UpdateErrChk", options.update.updateErrChk, kPlain);
  visit("Update", "UpdateRemChk", options.update.updateRemChk, kPlain);
  visit("Update", "AutoUpdate", options.update.autoUpdate, kReadOnly);
  visit("Rename", "NoTitleSkip", options.rename.noTitleSkip, kPlain);
  visit("Rename", "RenameErrChk", options.rename.renameErrChk, kPlain);
  visit("Rename", "RenameModify", options.rename.renameModify, kPlain);
  visit("Rename", "InjusticeChk", options.rename.injusticeChk, kPlain);
  visit("List", "LoadChk", options.list.loadChk, kNumberText);
  visit("List", "DeltoTrashBox", options.list.delToTrashBox, kPlain);
  visit("List", "DelCompMsg", options.list.delCompMsg, kPlain);
  visit("List", "LoadRemove", options.list.loadRemove, kPlain);
  visit("List", "SubFolder", options.list.subFolder, kPlain);
  visit("Find", "FilterChk", options.find.filterChk, kPlain);
  visit("Find", "ExtEtc", options.find.extEtc, kPlain);
  visit("Find", "ExtHTML", options.find.extHtml, kPlain);
  visit("Find", "ExtMusic", options.find.extMusic, kPlain);
  visit("Find", "ExtText", options.find.extText, kPlain);
  visit("Find", "ExtEtcText", options.find.extEtcText, kPlain);
  visit("Find", "ExtHTMLText", options.find.extHtmlText, kPlain);
  visit("Find", "ExtMusicText", options.find.extMusicText, kPlain);
  visit("Find", "ExtTextText", options.find.extTextText, kPlain);
  visit("System", "LoadTime", options.system.loadTime, kPlain);
  visit("System", "Msgbox", options.system.msgbox, kPlain);
  visit("Move", "RemainList", options.move.remainList, kPlain);
  visit("Player", "AllPlay", options.player.allPlay, kPlain);
  visit("System", "Front", options.system.front, kPlain);
}

}  // namespace quillon
