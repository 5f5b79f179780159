#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/NormalForm.h"
#include "cli/Session.h"

/// The commands. Each returns the exit status.
namespace quillon::cli {

struct ListArguments {
  Selection selection;
  TagSources tags = TagSources::kStandard;
  bool json = false;
};
[[nodiscard]] int RunList(const ListArguments& arguments);

enum class Reader { kByType, kMidi, kId3v1, kId3v2, kRiff, kHtml };

struct InfoArguments {
  std::vector<std::string> paths;
  Reader reader = Reader::kByType;
  TagSources tags = TagSources::kStandard;  ///< for Reader::kByType
  bool json = false;
};
[[nodiscard]] int RunInfo(const InfoArguments& arguments);

struct ModifyArguments {
  std::string settings;
  std::optional<std::string> preset;     ///< see UsePreset
  std::optional<std::size_t> listCount;  ///< empty: the number of names read
  bool once = false;                     ///< each rule is applied once
};
[[nodiscard]] int RunModify(const ModifyArguments& arguments);

struct RenameArguments {
  Selection selection;
  std::string settings;
  TagSources tags = TagSources::kStandard;
  bool toTitle = false;
  std::optional<std::string> format;  ///< a NamePattern
  std::optional<std::int32_t> start;  ///< of its counter; empty: as the settings say
  std::optional<std::int32_t> step;
  bool modify = false;
  bool once = false;                     ///< each modification rule is applied once
  std::optional<std::string> preset;     ///< see UsePreset; with it `modify` is set
  std::string names;                     ///< the file with the names, "-" for standard input; empty for none
  std::string plan;                      ///< the same for a plan, which takes the place of the selection
  bool portable = false;                 ///< names that can be used on every system
  std::optional<NormalForm> normalForm;  ///< of Unicode
  std::string log;                       ///< the file that renames are logged to; empty for none
  bool ask = false;                      ///< instead of `apply`: shows what would be done, and asks
  bool apply = false;
  bool json = false;
};
[[nodiscard]] int RunRename(const RenameArguments& arguments);
/// The same by a plan.
[[nodiscard]] int RunPlan(const RenameArguments& arguments);

struct MoveArguments {
  Selection selection;
  std::string to;   ///< the folder
  std::string log;  ///< as above
  bool ask = false;
  bool apply = false;
  bool json = false;
};
[[nodiscard]] int RunMove(const MoveArguments& arguments);

struct UndoArguments {
  std::string log;
  bool apply = false;
  bool json = false;
};
[[nodiscard]] int RunUndo(const UndoArguments& arguments);

struct DeleteArguments {
  Selection selection;
  bool forGood = false;  ///< instead of moving them to the recycle bin
  bool ask = false;
  bool apply = false;
  bool json = false;
};
[[nodiscard]] int RunDelete(const DeleteArguments& arguments);

/// Sends the lines of standard input to the multimedia device and writes each answer as soon as it arrives.
[[nodiscard]] int RunMci();

}  // namespace quillon::cli
