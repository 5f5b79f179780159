#include "cli/Reasons.h"

#include <vector>

#include "cli/Messages.h"
#include "filelist/LoadTexts.h"
#include "platform/Program.h"
#include "rename/RowRun.h"

namespace quillon::cli {
namespace {

std::string Counted(int count, const char* none, const char* some) {
  return count == 0 ? none : std::string(some) + ": " + std::to_string(count);
}

const char* EnglishReason(ApplyCode code) {
  switch (code) {
    case ApplyCode::kNoName: return "there is no new name";
    case ApplyCode::kInvalidCharacter: return "the new name holds a character that a file name cannot hold";
    case ApplyCode::kTargetExists: return "a file of the new name exists";
    case ApplyCode::kNoAccess: return "the file cannot be accessed";
    case ApplyCode::kInvalidName: return "the new name is not valid, or too long";
    default: return "the file could not be renamed";
  }
}

std::string EnglishReason(const PatternError& error) {
  switch (error.mistake) {
    case PatternMistake::kUnclosed: return "this \"{\" has no \"}\"";
    case PatternMistake::kBraceWithin: return "no \"{\" can stand here in a field";
    case PatternMistake::kNoField: return "the field has no name";
    case PatternMistake::kUnknownField: return "there is no field \"" + error.field + "\"";
    case PatternMistake::kNoFormatHere: return "this field takes no \":\"";
    case PatternMistake::kDigits: return "the digits are a number from 1 to 20";
    case PatternMistake::kNoDateForm: return "the date has no form";
    case PatternMistake::kUnknownDatePart: return "a date is made of YYYY YY MM DD hh mm ss";
    case PatternMistake::kFormatWithChoice: return "a field takes \":\" or \"?\", not both";
    case PatternMistake::kTooDeep: return "more than 16 fields lie in one another";
  }
  return {};
}

const char* EnglishHeading(Column column) {
  switch (column) {
    case Column::kRenameName: return "New name";
    case Column::kTitle: return "Title";
    case Column::kArtist: return "Copyright/artist";
    case Column::kType: return "Type";
    case Column::kSize: return "Size";
    case Column::kLocation: return "Location";
  }
  return "";
}

std::vector<std::string> EnglishFacts(const std::string& filter, const FoundFiles& found) {
  std::vector<std::string> facts = {"extensions searched for: " + (filter.empty() ? "all" : filter)};
  const auto add = [&facts](const char* what, std::size_t count) {
    if (count > 0) facts.push_back(std::string(what) + ": " + std::to_string(count));
  };
  add("files with other extensions", found.otherFiles);
  add("subfolders not searched", found.unsearchedFolders);
  add("files in the recycle bin", found.inRecycleBin);
  return facts;
}

}  // namespace

std::string ReasonFor(const PatternError& error) {
  if (UserReadsJapanese()) return ErrorText(error);
  return "character " + std::to_string(error.position) + ": " + EnglishReason(error);
}

std::string ReasonFor(const PatternRefusal& refusal) {
  if (UserReadsJapanese()) return refusal.reason;
  return refusal.box == PatternBox::kPattern ? "the pattern is empty"
                                             : "the text for invalid characters in the settings file holds one itself";
}

std::string Heading(Column column) {
  return UserReadsJapanese() ? ColumnCaption(column) : EnglishHeading(column);
}

std::string ReasonFor(ApplyCode code) {
  return UserReadsJapanese() ? ApplyReason(code) : EnglishReason(code);
}

std::string ReasonFor(Obstacle obstacle) {
  switch (obstacle) {
    case Obstacle::kTooDeep: return Localized(messages::kTooDeep);
    case Obstacle::kGone: return Localized(messages::kVanished);
    case Obstacle::kNoAccess: break;
  }
  return Localized(messages::kNoAccess);
}

std::string ReasonForMove(const FileError& error) {
  if (UserReadsJapanese()) return MoveReason(error);
  switch (error.number) {
    case file_error::kAlreadyExists: return "the folder holds a file of the same name";
    case file_error::kAccess: return "the folder cannot be accessed";
    case file_error::kBothKept:
      return "the file was changed during the move, or could not be deleted; both files were kept";
    default: return {};
  }
}

std::string ReasonForDelete(const FileError& error) {
  const bool access = !UserReadsJapanese() && error.number == file_error::kAccess;
  return access ? "the file cannot be accessed" : DeleteReason(error);
}

std::string WhereLeft(const FileError& error) {
  if (UserReadsJapanese() || error.fileAt.empty()) return LeftAtText(error);
  const bool copy = error.number == file_error::kBothKept;
  return (copy ? "the copy was kept: " : "the file is here now: ") + error.fileAt;
}

std::string WhatWasNotKept(const NotKept& notKept) {
  if (UserReadsJapanese() || !notKept.Any()) return NotKeptText(notKept);
  std::string what;
  const auto add = [&what](bool lost, const char* name) {
    if (lost) what += (what.empty() ? "" : ", ") + std::string(name);
  };
  add(notKept.times, "times");
  add(notKept.accessRights, "access rights");
  add(notKept.attributes, "extended attributes");
  return "moved, but the target cannot keep everything: " + what;
}

std::string Counting(const HelpText& text, int count) {
  return UserReadsJapanese() ? std::to_string(count) + text.japanese : text.english + (": " + std::to_string(count));
}

std::string AppliedCount(int applied) {
  return UserReadsJapanese() ? AppliedLine(applied) : Counted(applied, "No file was renamed", "Files renamed");
}

std::string SkippedCount(int skipped) {
  return UserReadsJapanese() ? SkippedLine(skipped)
                             : Counted(skipped, "No file was skipped", "Files skipped because of errors");
}

std::string LeftAloneCount(int count) {
  if (UserReadsJapanese()) return LeftAloneText(count);
  return Counting(messages::kLeftAlone, count) +
         "\r\n"
         "See that the replacement does not hold the text that is searched for, or characters that are not allowed";
}

std::string LoadCaption() {
  return UserReadsJapanese() ? kLoadCaption : "Loading";
}

std::string NothingFound(const std::string& filter, const FoundFiles& found) {
  const bool japanese = UserReadsJapanese();
  const std::vector<std::string> facts = japanese ? NothingFoundFacts(filter, found) : EnglishFacts(filter, found);
  std::string text = japanese ? std::string(kNothingFoundText) + "（" : "no files were found in the folder (";
  for (const std::string& fact : facts) text += (&fact == &facts.front() ? "" : japanese ? "、" : "; ") + fact;
  return text + (japanese ? "）" : ")");
}

std::string FolderListed(const std::string& folder) {
  return UserReadsJapanese() ? FolderListedText(folder) : folder + "\r\n\r\nthis folder is loaded already";
}

std::string FileListed() {
  return UserReadsJapanese() ? FilesListedText(1) : "this file is loaded already";
}

std::string LoadFailure(const FileError& error) {
  if (UserReadsJapanese()) return LoadFailureText(error);
  if (error.number == file_error::kUnreachable) return "the path cannot be reached; nothing was loaded from it";
  return "an error ended the search; not all files were loaded (" + std::to_string(error.number) + ")";
}

}  // namespace quillon::cli
