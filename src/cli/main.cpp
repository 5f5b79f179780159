#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdint>
#include <map>

#include "base/Product.h"
#include "base/UnexpectedError.h"
#include "cli/Commands.h"
#include "cli/Completion.h"
#include "cli/HelpLayout.h"
#include "cli/HelpTexts.h"
#include "cli/Messages.h"
#include "cli/Output.h"
#include "pattern/PatternForm.h"
#include "platform/Program.h"

namespace quillon::cli {
namespace {

/// More rows than any list has.
constexpr std::int64_t kMostRows = 1'000'000'000;

// An empty word is a mistake, most likely a variable of a script that was never set.
std::string RefuseEmptyPath(const std::string& path) {
  return path.empty() ? Localized(texts::kEmptyPath) : "";
}

void AddSelection(CLI::App& command, Selection& selection) {
  command.add_option("PATH", selection.paths, Localized(texts::kPaths))->required()->check(RefuseEmptyPath);
  command.add_flag("--subfolders", selection.subfolders, Localized(texts::kSubfolders));
  CLI::Option* extensions = command.add_option("--ext", selection.extensions, Localized(texts::kExtensions));
  command.add_flag("--all", selection.all, Localized(texts::kAll))->excludes(extensions);
}

// The options of the commands that change files only with --apply.
template <class BatchArguments>
void AddBatch(CLI::App& command, BatchArguments& arguments, const HelpText& apply) {
  command.add_flag("--json", arguments.json, Localized(texts::kJson));
  CLI::Option* const applies = command.add_flag("--apply", arguments.apply, Localized(apply));
  command.add_flag("--ask", arguments.ask, Localized(texts::kAsk))->excludes(applies);
  AddSelection(command, arguments.selection);
}

CLI::Option* AddFile(CLI::App& command, const char* name, std::string& path, const HelpText& text) {
  return command.add_option(name, path, Localized(text))->type_name("FILE")->check(RefuseEmptyPath);
}

void AddPreset(CLI::App& command, std::optional<std::string>& preset, const HelpText& text) {
  command.add_option("--preset", preset, Localized(text))->type_name("NAME");
}

// Only what really changes files is logged.
template <class BatchArguments>
void CheckLog(const BatchArguments& arguments) {
  const bool changes = arguments.apply || arguments.ask;
  if (!arguments.log.empty() && !changes) throw CLI::RequiresError("--log", "--apply");
}

// A plan names its files itself.
void AddPlan(CLI::App& command, RenameArguments& rename) {
  CLI::Option* const plan = AddFile(command, "--plan", rename.plan, texts::kPlan);
  CLI::Option* const paths = command.get_option("PATH");
  paths->required(false)->description(Localized(texts::kPathsOrPlan));
  for (const char* const other :
       {"PATH", "--to-title", "--format", "--start", "--step", "--names", "--modify", "--preset", "--once",
        "--portable", "--normalize", "--settings", "--tags", "--subfolders", "--ext", "--all"}) {
    plan->excludes(command.get_option(other));
  }
  command.callback([&rename] {
    if (rename.plan.empty() && rename.selection.paths.empty()) throw CLI::RequiredError("PATH");
    CheckLog(rename);
  });
}

struct Arguments {
  ListArguments list;
  InfoArguments info;
  ModifyArguments modify;
  RenameArguments rename;
  MoveArguments move;
  UndoArguments undo;
  DeleteArguments remove;
  std::int64_t listCount = 0;
  std::string tagsName;  ///< given to at most one command
  std::string readerName;
  std::string normalForm;
  std::string shell;
};

const std::map<std::string, Reader> kReaders = {{"midi", Reader::kMidi},
                                                {"id3v1", Reader::kId3v1},
                                                {"id3v2", Reader::kId3v2},
                                                {"riff", Reader::kRiff},
                                                {"html", Reader::kHtml}};

const std::map<std::string, TagSources> kTagSources = {{"standard", TagSources::kStandard}, {"all", TagSources::kAll}};

template <class Value>
std::vector<std::string> Names(const std::map<std::string, Value>& values) {
  std::vector<std::string> names;
  names.reserve(values.size());
  for (const auto& [name, value] : values) names.push_back(name);
  return names;
}

void AddTags(CLI::App& command, Arguments& arguments) {
  command.add_option("--tags", arguments.tagsName, Localized(texts::kTags))->check(CLI::IsMember(Names(kTagSources)));
}

void AddList(CLI::App& app, Arguments& arguments) {
  CLI::App* command = app.add_subcommand("list", Localized(texts::kList));
  command->add_flag("--json", arguments.list.json, Localized(texts::kJson));
  AddTags(*command, arguments);
  AddSelection(*command, arguments.list.selection);
}

void AddInfo(CLI::App& app, Arguments& arguments) {
  CLI::App* command = app.add_subcommand("info", Localized(texts::kInfo));
  command->add_flag("--json", arguments.info.json, Localized(texts::kJson));
  command->add_option("--reader", arguments.readerName, Localized(texts::kReader))
      ->check(CLI::IsMember(Names(kReaders)));
  AddTags(*command, arguments);
  command->add_option("FILE", arguments.info.paths, Localized(texts::kFiles))->required();
}

void AddModify(CLI::App& app, Arguments& arguments) {
  CLI::App* command = app.add_subcommand("modify", Localized(texts::kModify));
  ModifyArguments& modify = arguments.modify;
  command->add_option("--settings", modify.settings, Localized(texts::kModifySettings))->type_name("FILE");
  AddPreset(*command, modify.preset, texts::kModifyPreset);
  command->add_option("--list-count", arguments.listCount, Localized(texts::kListCount))
      ->check(CLI::Range(std::int64_t{0}, kMostRows).description(""));
  command->add_flag("--once", arguments.modify.once, Localized(texts::kOnce))->excludes("--list-count");
  command->callback([&modify] {
    if (modify.settings.empty() && !modify.preset) throw CLI::RequiredError("--settings");
  });
}

void AddRename(CLI::App& app, Arguments& arguments) {
  CLI::App* command = app.add_subcommand("rename", Localized(texts::kRename));
  RenameArguments& rename = arguments.rename;
  CLI::Option* const toTitle = command->add_flag("--to-title", rename.toTitle, Localized(texts::kToTitle));
  CLI::Option* const format =
      command->add_option("--format", rename.format, Localized(texts::kFormat))->excludes(toTitle);
  const CLI::Validator countRange = CLI::Range(-kLargestCount, kLargestCount).description("");
  command->add_option("--start", rename.start, Localized(texts::kStart))->needs(format)->check(countRange);
  command->add_option("--step", rename.step, Localized(texts::kStep))->needs(format)->check(countRange);
  AddFile(*command, "--names", rename.names, texts::kNames)->excludes(toTitle)->excludes(format);
  command->add_flag("--modify", rename.modify, Localized(texts::kModifyNames));
  command->add_flag("--once", rename.once, Localized(texts::kOnce));
  AddPreset(*command, rename.preset, texts::kRenamePreset);
  command->add_option("--settings", rename.settings, Localized(texts::kRenameSettings))->type_name("FILE");
  command->add_flag("--portable", rename.portable, Localized(texts::kPortable));
  command->add_option("--normalize", arguments.normalForm, Localized(texts::kNormalize))
      ->check(CLI::IsMember({"nfc", "nfd"}));
  AddTags(*command, arguments);
  AddBatch(*command, rename, texts::kRenameApply);
  AddFile(*command, "--log", rename.log, texts::kLog);
  AddPlan(*command, rename);
}

void AddMove(CLI::App& app, Arguments& arguments) {
  CLI::App* command = app.add_subcommand("move", Localized(texts::kMove));
  MoveArguments& move = arguments.move;
  command->add_option("--to", move.to, Localized(texts::kTo))->type_name("FOLDER")->required();
  AddBatch(*command, move, texts::kMoveApply);
  AddFile(*command, "--log", move.log, texts::kMoveLog);
  command->callback([&move] { CheckLog(move); });
}

void AddUndo(CLI::App& app, Arguments& arguments) {
  CLI::App* command = app.add_subcommand("undo", Localized(texts::kUndo));
  command->add_flag("--json", arguments.undo.json, Localized(texts::kJson));
  command->add_flag("--apply", arguments.undo.apply, Localized(texts::kUndoApply));
  command->add_option("FILE", arguments.undo.log, Localized(texts::kUndoFile))->required()->check(RefuseEmptyPath);
}

void AddDelete(CLI::App& app, Arguments& arguments) {
  CLI::App* command = app.add_subcommand("delete", Localized(texts::kDelete));
  DeleteArguments& remove = arguments.remove;
  command->add_flag("--for-good", remove.forGood, Localized(texts::kForGood));
  AddBatch(*command, remove, texts::kDeleteApply);
}

void AddMci(CLI::App& app) {
  CLI::App* command = app.add_subcommand("mci", Localized(texts::kMci));
  command->footer(Localized(texts::kMciFooter));
}

void AddCompletion(CLI::App& app, Arguments& arguments) {
  CLI::App* command = app.add_subcommand("completion", Localized(texts::kCompletion));
  command->add_option("SHELL", arguments.shell, Localized(texts::kShell))
      ->required()
      ->check(CLI::IsMember(CompletionShells()));
}

bool HasOwnExtensions(const CLI::App& app, const char* command) {
  return app.get_subcommand(command)->count("--ext") > 0;
}

int Run(CLI::App& app, Arguments& arguments) {
  const TagSources tags = arguments.tagsName.empty() ? TagSources::kStandard : kTagSources.at(arguments.tagsName);
  arguments.list.tags = arguments.info.tags = arguments.rename.tags = tags;
  if (app.got_subcommand("list")) {
    arguments.list.selection.ownExtensions = HasOwnExtensions(app, "list");
    return RunList(arguments.list);
  }
  if (app.got_subcommand("move")) {
    arguments.move.selection.ownExtensions = HasOwnExtensions(app, "move");
    return RunMove(arguments.move);
  }
  if (app.got_subcommand("undo")) return RunUndo(arguments.undo);
  if (app.got_subcommand("delete")) {
    arguments.remove.selection.ownExtensions = HasOwnExtensions(app, "delete");
    return RunDelete(arguments.remove);
  }
  if (app.got_subcommand("info")) {
    if (!arguments.readerName.empty()) arguments.info.reader = kReaders.at(arguments.readerName);
    return RunInfo(arguments.info);
  }
  if (app.got_subcommand("modify")) {
    if (app.get_subcommand("modify")->count("--list-count") > 0) {
      arguments.modify.listCount = static_cast<std::size_t>(arguments.listCount);
    }
    return RunModify(arguments.modify);
  }
  if (app.got_subcommand("mci")) return RunMci();
  if (app.got_subcommand("completion")) {
    Output output;
    output.Line(CompletionScript(app, arguments.shell));
    return output.Flush() ? kDone : kSomeFailed;
  }
  if (!arguments.normalForm.empty()) {
    arguments.rename.normalForm = arguments.normalForm == "nfc" ? NormalForm::kComposed : NormalForm::kDecomposed;
  }
  if (arguments.rename.preset) arguments.rename.modify = true;
  arguments.rename.selection.ownExtensions = HasOwnExtensions(app, "rename");
  return RunRename(arguments.rename);
}

int Main(int argc, char** argv) {
  KeepToOwnAndSystemLibraries();
  CLI::App app(Localized(texts::kProgram), "quillon-cli");
  LocalizeHelp(app);
  app.set_version_flag("--version", kProductVersion, Localized(texts::kVersion));
  app.require_subcommand(1);
  Arguments arguments;
  AddList(app, arguments);
  AddInfo(app, arguments);
  AddModify(app, arguments);
  AddRename(app, arguments);
  AddMove(app, arguments);
  AddUndo(app, arguments);
  AddDelete(app, arguments);
  AddMci(app);
  AddCompletion(app, arguments);
  std::vector<std::string> words = ProgramArguments(argc, argv);
  std::reverse(words.begin(), words.end());  // the parser takes them last word first
  try {
    app.parse(words);
  } catch (const CLI::ParseError& stop) {
    std::ostringstream out;
    std::ostringstream err;
    const bool asked = app.exit(stop, out, err) == 0;
    if (!asked) {
      Complain(err.str());
      return kBadUsage;
    }
    std::string text = out.str();
    if (!text.empty() && text.back() == '\n') text.pop_back();
    Output().Line(text);
    return kDone;
  }
  return Run(app, arguments);
}

}  // namespace
}  // namespace quillon::cli

int main(int argc, char** argv) {
  try {
    return quillon::cli::Main(argc, argv);
  } catch (...) {
    quillon::cli::Complain(quillon::cli::Localized(quillon::cli::messages::kUnexpected) + ": " +
                           quillon::DescribeException());
    return quillon::cli::kSomeFailed;
  }
}
