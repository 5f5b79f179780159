#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>

#include "base/Product.h"
#include "base/UnexpectedError.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "platform/Program.h"

namespace quillon::cli {
namespace {

// An empty word is a mistake, most likely a variable of a script that was never set.
std::string RefuseEmptyPath(const std::string& path) {
  return path.empty() ? "an empty PATH names nothing" : "";
}

void AddSelection(CLI::App& command, Selection& selection) {
  command.add_option("PATH", selection.paths, "Files and folders")->required()->check(RefuseEmptyPath);
  command.add_flag("--subfolders", selection.subfolders, "Search the folders' subfolders, too");
  CLI::Option* extensions = command.add_option("--ext", selection.extensions,
                                               "Extensions to load from folders, separated by blanks (\"mid mp3\")");
  command.add_flag("--all", selection.all, "Load every file of the folders")->excludes(extensions);
}

// What the commands share that change files only when they are told to.
template <class BatchArguments>
void AddBatch(CLI::App& command, BatchArguments& arguments, const std::string& apply) {
  command.add_flag("--json", arguments.json, "One JSON object per line");
  command.add_flag("--apply", arguments.apply, apply + "; without it nothing is changed");
  AddSelection(command, arguments.selection);
}

struct Arguments {
  ListArguments list;
  InfoArguments info;
  ModifyArguments modify;
  RenameArguments rename;
  MoveArguments move;
  DeleteArguments remove;
  std::size_t listCount = 0;
  std::string readerName;
};

const std::map<std::string, Reader> kReaders = {{"midi", Reader::kMidi},
                                                {"id3v1", Reader::kId3v1},
                                                {"id3v2", Reader::kId3v2},
                                                {"riff", Reader::kRiff},
                                                {"html", Reader::kHtml}};

std::vector<std::string> Names(const std::map<std::string, Reader>& readers) {
  std::vector<std::string> names;
  names.reserve(readers.size());
  for (const auto& [name, reader] : readers) names.push_back(name);
  return names;
}

void AddList(CLI::App& app, Arguments& arguments) {
  CLI::App* command = app.add_subcommand("list", "Show the files' names, titles, artists, types and sizes");
  command->add_flag("--json", arguments.list.json, "One JSON object per line");
  AddSelection(*command, arguments.list.selection);
}

void AddInfo(CLI::App& app, Arguments& arguments) {
  CLI::App* command = app.add_subcommand("info", "Show what is known of each file");
  command->add_flag("--json", arguments.info.json, "One JSON object per line");
  command->add_option("--reader", arguments.readerName, "Show the record of this reader")
      ->check(CLI::IsMember(Names(kReaders)));
  command->add_option("FILE", arguments.info.paths, "Files")->required();
}

void AddModify(CLI::App& app, Arguments& arguments) {
  CLI::App* command = app.add_subcommand("modify", "Transform names from standard input by the modification rules");
  command->add_option("--settings", arguments.modify.settings, "The settings file that holds the rules")->required();
  command->add_option("--list-count", arguments.listCount, "How many rows the list is taken to hold");
}

void AddRename(CLI::App& app, Arguments& arguments) {
  CLI::App* command = app.add_subcommand("rename", "Show what would be renamed, or rename");
  RenameArguments& rename = arguments.rename;
  command->add_flag("--to-title", rename.toTitle, "Set the names to the titles");
  command->add_flag("--modify", rename.modify, "Transform the names by the modification rules");
  command->add_option("--settings", rename.settings, "The settings file that holds rules and options");
  AddBatch(*command, rename, "Rename the files");
}

void AddMove(CLI::App& app, Arguments& arguments) {
  CLI::App* command = app.add_subcommand("move", "Show what would be moved to a folder, or move");
  MoveArguments& move = arguments.move;
  command->add_option("--to", move.to, "The folder that the files go to")->required();
  AddBatch(*command, move, "Move the files");
}

void AddDelete(CLI::App& app, Arguments& arguments) {
  CLI::App* command = app.add_subcommand("delete", "Show what would be deleted, or move it to the recycle bin");
  DeleteArguments& remove = arguments.remove;
  command->add_flag("--for-good", remove.forGood, "Delete the files for good, not to the recycle bin");
  AddBatch(*command, remove, "Delete the files");
}

void AddMci(CLI::App& app) {
  CLI::App* command =
      app.add_subcommand("mci", "Send the command strings from standard input to the multimedia device");
  command->footer(
      "One command per line (Open \"song.mp3\" alias X); empty lines and lines that start with # are passed over.\n"
      "Each is answered by a line: the reply, or \"error\" and a number.\n"
      "Two commands are not for the device: \"wait N\" waits N milliseconds and answers nothing;\n"
      "\"await X MODE N\" waits until X has the mode, at most N milliseconds, and answers the mode it then has.\n"
      "On Linux up to 32 files are open at once; a further one is answered by \"error 264\".");
}

bool HasOwnExtensions(const CLI::App& app, const char* command) {
  return app.get_subcommand(command)->count("--ext") > 0;
}

int Run(CLI::App& app, Arguments& arguments) {
  if (app.got_subcommand("list")) {
    arguments.list.selection.ownExtensions = HasOwnExtensions(app, "list");
    return RunList(arguments.list);
  }
  if (app.got_subcommand("move")) {
    arguments.move.selection.ownExtensions = HasOwnExtensions(app, "move");
    return RunMove(arguments.move);
  }
  if (app.got_subcommand("delete")) {
    arguments.remove.selection.ownExtensions = HasOwnExtensions(app, "delete");
    return RunDelete(arguments.remove);
  }
  if (app.got_subcommand("info")) {
    if (!arguments.readerName.empty()) arguments.info.reader = kReaders.at(arguments.readerName);
    return RunInfo(arguments.info);
  }
  if (app.got_subcommand("modify")) {
    if (app.get_subcommand("modify")->count("--list-count") > 0) arguments.modify.listCount = arguments.listCount;
    return RunModify(arguments.modify);
  }
  if (app.got_subcommand("mci")) return RunMci();
  arguments.rename.selection.ownExtensions = HasOwnExtensions(app, "rename");
  return RunRename(arguments.rename);
}

int Main(int argc, char** argv) {
  KeepToOwnAndSystemLibraries();
  CLI::App app("Quillon gives many files proper names.", "quillon-cli");
  app.set_version_flag("--version", kProductVersion);
  app.require_subcommand(1);
  Arguments arguments;
  AddList(app, arguments);
  AddInfo(app, arguments);
  AddModify(app, arguments);
  AddRename(app, arguments);
  AddMove(app, arguments);
  AddDelete(app, arguments);
  AddMci(app);
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
    quillon::cli::Complain(std::string(quillon::kUnexpectedError) + ": " + quillon::DescribeException());
    return quillon::cli::kSomeFailed;
  }
}
