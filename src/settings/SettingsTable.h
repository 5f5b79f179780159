#pragma once

#include <array>
#include <string>
#include <string_view>

#include "settings/OptionValues.h"

namespace quillon {

/// How a setting is stored beyond what its type says.
enum class SettingKind {
  kPlain,        ///< a text, a measure, or "True" and "False"
  kIsOne,        ///< an integer: 1 is on, any other is off
  kIsNotZero,    ///< an integer: 0 is off, any other is on
  kIsOneAsText,  ///< as kIsOne, but a text that is no integer is an error
  kGeometry,     ///< the main window's place and size: written in its normal state only
  kReplaceText,  ///< one blank alone is stored as "[SPACE]"
  kApart,        ///< as kIsOne; never written with the others
  kExtra,  ///< written only where it is in the file or differs from its default; a text keeps the blanks around it
};

/// Calls `visit(section, key, member, kind)` for every setting of a rule set. NonUnload, which stands among them in
/// [Modify], is a habit of the dialog.
template <class Modify, class Visitor>
void VisitRules(std::string_view section, Modify& modify, Visitor& visit) {
  using enum SettingKind;
  visit(section, "ReviceFlag", modify.replaceInvalid, kIsOne);
  visit(section, "ReviceText", modify.invalidReplacement, kPlain);
  for (std::size_t i = 0; i < kReplaceRuleCount; ++i) {
    const std::string number = std::to_string(i);
    visit(section, number + "ReplaceFlag", modify.rules[i].active, kIsOne);
    visit(section, number + "ReplaceObject", modify.rules[i].find, kReplaceText);
    visit(section, number + "ReplaceRepace", modify.rules[i].replacement, kReplaceText);
  }
  visit(section, "FindCtrl", modify.method, kIsOne);
  visit(section, "IgnoreCase", modify.ignoreCase, kIsOne);
  visit(section, "Upper", modify.upper, kIsOne);
  visit(section, "Lower", modify.lower, kIsOne);
  visit(section, "Proper", modify.proper, kIsOne);
  visit(section, "Wide", modify.wide, kIsOne);
  visit(section, "Narrow", modify.narrow, kIsOne);
}

/// Calls `visit(section, key, member, kind)` for every setting, in the order in which they are read and written.
/// `Options` is OptionValues or const OptionValues. The sections, the order and the odd spellings are fixed by the
/// file's format.
template <class Options, class Visitor>
void VisitSettings(Options& options, Visitor visit) {
  using enum SettingKind;
  visit("System", "DirPath", options.system.loadFolder, kPlain);
  visit("System", "MovePath", options.system.moveFolder, kPlain);
  visit("Window", "Top", options.window.top, kGeometry);
  visit("Window", "Left", options.window.left, kGeometry);
  visit("Window", "WindowHeight", options.window.height, kGeometry);
  visit("Window", "WindowWidth", options.window.width, kGeometry);
  constexpr std::array<std::string_view, kListColumnCount> kWidthKeys = {"Col1_Width", "Col2_Width", "Col3_Width",
                                                                         "Col4_Width", "Col5_Width", "Col6_Width"};
  for (std::size_t i = 0; i < kListColumnCount; ++i) {
    visit("Window", kWidthKeys[i], options.window.columnWidths[i], kPlain);
  }
  visit("Player", "Repeat", options.player.repeat, kIsNotZero);
  VisitRules("Modify", options.modify, visit);
  visit("Modify", "NonUnload", options.modify.keepDialogOpen, kIsOne);
  visit("Update", "ErrSkip", options.update.skipFailedRows, kIsNotZero);
  visit("Update", "UpdateErrChk", options.update.checkFailedRows, kIsOne);
  visit("Update", "UpdateRemChk", options.update.uncheckAppliedRows, kIsOne);
  visit("Update", "AutoUpdate", options.update.automatic, kApart);
  visit("Rename", "NoTitleSkip", options.rename.skipUntitledRows, kIsOne);
  visit("Rename", "RenameErrChk", options.rename.checkSkippedRows, kIsOne);
  visit("Rename", "RenameModify", options.rename.applyRules, kIsOne);
  visit("Rename", "InjusticeChk", options.rename.checkInvalidNames, kIsOne);
  visit("List", "LoadChk", options.list.checkLoadedRows, kIsOneAsText);
  visit("List", "DeltoTrashBox", options.list.deleteTo, kPlain);
  visit("List", "DelCompMsg", options.list.confirmDeletion, kIsOne);
  visit("List", "LoadRemove", options.list.clearBeforeLoading, kIsNotZero);
  visit("List", "SubFolder", options.list.searchSubfolders, kIsNotZero);
  visit("Find", "FilterChk", options.find.filterByExtension, kIsNotZero);
  visit("Find", "ExtEtc", options.find.other.on, kIsNotZero);
  visit("Find", "ExtHTML", options.find.html.on, kIsNotZero);
  visit("Find", "ExtMusic", options.find.media.on, kIsNotZero);
  visit("Find", "ExtText", options.find.text.on, kIsNotZero);
  visit("Find", "ExtEtcText", options.find.other.extensions, kPlain);
  visit("Find", "ExtHTMLText", options.find.html.extensions, kPlain);
  visit("Find", "ExtMusicText", options.find.media.extensions, kPlain);
  visit("Find", "ExtTextText", options.find.text.extensions, kPlain);
  visit("System", "LoadTime", options.system.readPlayTimes, kIsOne);
  visit("System", "Msgbox", options.system.suppressConfirmations, kIsNotZero);
  visit("Move", "RemainList", options.move.keepMovedRows, kIsOne);
  visit("Player", "AllPlay", options.player.continuous, kIsOne);
  visit("System", "Front", options.system.alwaysOnTop, kPlain);
  visit("Extra", "ReadMoreTags", options.extra.readMoreTags, kExtra);
  for (std::size_t i = 0; i < kPatternHistoryLength; ++i) {
    visit("Extra", "Pattern" + std::to_string(i), options.extra.patterns[i], kExtra);
  }
  visit("Extra", "PatternStart", options.extra.patternStart, kExtra);
  visit("Extra", "PatternStep", options.extra.patternStep, kExtra);
  visit("Extra", "PatternWidth", options.extra.patternWidth, kExtra);
  visit("Extra", "PatternInvalid", options.extra.patternInvalid, kExtra);
  visit("Extra", "PatternReplacement", options.extra.patternReplacement, kExtra);
  visit("Extra", "RunRulesOnce", options.extra.runRulesOnce, kExtra);
  visit("Extra", "ConfirmPending", options.extra.confirmPending, kExtra);
  visit("Extra", "ToolBarLabels", options.extra.toolBarLabels, kExtra);
  visit("Extra", "Maximized", options.extra.maximized, kExtra);
}

}  // namespace quillon
