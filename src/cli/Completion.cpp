#include "cli/Completion.h"

#include "base/Text.h"

namespace quillon::cli {
namespace {

enum class Value { kNone, kText, kChoice, kFile, kFolder };

struct OptionWords {
  std::vector<std::string> names;  ///< "-h", "--help"; none for what is not an option
  std::string description;
  Value value = Value::kNone;
  std::vector<std::string> choices = {};

  [[nodiscard]] bool IsPositional() const { return names.empty(); }
};

struct CommandWords {
  std::string name;
  std::string description;
  std::vector<OptionWords> options;
};

// A choice's type ends with its words, as in "TEXT:{nfc,nfd}".
std::vector<std::string> ChoicesOf(const std::string& type) {
  const std::size_t open = type.find('{');
  const std::size_t close = type.rfind('}');
  if (open == std::string::npos || close == std::string::npos) return {};
  std::vector<std::string> choices;
  for (const std::string_view word : Split(std::string_view(type).substr(open + 1, close - open - 1), ',')) {
    choices.emplace_back(word);
  }
  return choices;
}

OptionWords WordsOf(const CLI::Option& option) {
  OptionWords words = {.names = {}, .description = option.get_description()};
  for (const std::string& name : option.get_snames()) words.names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) words.names.push_back("--" + name);
  if (option.get_items_expected_max() == 0) return words;  // a flag
  const std::string type = option.get_type_name();
  const std::string kind = words.IsPositional() ? option.get_name() : type;
  words.choices = ChoicesOf(type);
  if (!words.choices.empty()) {
    words.value = Value::kChoice;
  } else if (kind == "FOLDER") {
    words.value = Value::kFolder;
  } else {
    words.value = kind == "FILE" || kind == "PATH" ? Value::kFile : Value::kText;
  }
  return words;
}

CommandWords WordsOf(const CLI::App& app) {
  CommandWords words = {.name = app.get_name(), .description = app.get_description(), .options = {}};
  for (const CLI::Option* const option : app.get_options({})) words.options.push_back(WordsOf(*option));
  return words;
}

std::vector<CommandWords> CommandsOf(const CLI::App& app) {
  std::vector<CommandWords> commands;
  for (const CLI::App* const command : app.get_subcommands({})) commands.push_back(WordsOf(*command));
  return commands;
}

std::string Joined(const std::vector<std::string>& words, const char* separator) {
  std::string joined;
  for (const std::string& word : words) joined += (joined.empty() ? "" : separator) + word;
  return joined;
}

std::string Replaced(std::string text, std::string_view characters, const std::string& before) {
  for (std::size_t at = 0; (at = text.find_first_of(characters, at)) != std::string::npos; at += before.size() + 1) {
    text.insert(at, before);
  }
  return text;
}

std::vector<std::string> OptionNames(const CommandWords& command) {
  std::vector<std::string> names;
  for (const OptionWords& option : command.options) names.insert(names.end(), option.names.begin(), option.names.end());
  return names;
}

// bash

std::string BashValue(const OptionWords& option) {
  switch (option.value) {
    case Value::kChoice: return "_quillon_cli_words '" + Joined(option.choices, " ") + "'";
    case Value::kFile: return "_quillon_cli_paths -f";
    case Value::kFolder: return "_quillon_cli_paths -d";
    default: return ":";
  }
}

std::string BashCommand(const CommandWords& command) {
  std::string options;
  std::string positional = ":";
  for (const OptionWords& option : command.options) {
    if (option.IsPositional()) positional = BashValue(option);
    if (option.IsPositional() || option.value == Value::kNone) continue;
    options += "        " + Joined(option.names, "|") + ") " + BashValue(option) + "; return ;;\n";
  }
  const std::string words = "_quillon_cli_words '" + Joined(OptionNames(command), " ") + "'";
  const std::string values = options.empty() ? "" : "      case $previous in\n" + options + "      esac\n";
  return "    " + command.name + ")\n" + values + "      if [[ $current == -* ]]; then " + words + "; else " +
         positional + "; fi ;;\n";
}

std::string BashScript(const CommandWords& program, const std::vector<CommandWords>& commands) {
  std::vector<std::string> names;
  std::string cases;
  for (const CommandWords& command : commands) {
    names.push_back(command.name);
    cases += BashCommand(command);
  }
  return "# bash completion for quillon-cli\n"
         "_quillon_cli_words() { mapfile -t COMPREPLY < <(compgen -W \"$1\" -- \"$current\"); }\n"
         "_quillon_cli_paths() {\n"
         "  mapfile -t COMPREPLY < <(compgen \"$1\" -- \"$current\")\n"
         "  compopt -o filenames 2>/dev/null\n"
         "}\n"
         "_quillon_cli() {\n"
         "  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} command=\n"
         "  (( COMP_CWORD > 1 )) && command=${COMP_WORDS[1]}\n"
         "  COMPREPLY=()\n"
         "  case $command in\n"
         "    '') _quillon_cli_words '" +
         Joined(names, " ") + " " + Joined(OptionNames(program), " ") + "' ;;\n" + cases +
         "  esac\n"
         "  return 0\n"
         "}\n"
         "complete -F _quillon_cli quillon-cli";
}

// zsh

std::string ZshQuoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

std::string ZshValue(const OptionWords& option) {
  switch (option.value) {
    case Value::kChoice: return ":value:(" + Joined(option.choices, " ") + ")";
    case Value::kFile: return ":file:_files";
    case Value::kFolder: return ":folder:_files -/";
    case Value::kText: return ":value: ";
    case Value::kNone: break;
  }
  return "";
}

std::string ZshOptions(const CommandWords& command) {
  std::string lines;
  for (const OptionWords& option : command.options) {
    const std::string description = "[" + Replaced(option.description, "[]\\", "\\") + "]";
    for (const std::string& name : option.names) {
      lines += " \\\n        " + ZshQuoted(name + description + ZshValue(option));
    }
    if (option.IsPositional()) lines += " \\\n        " + ZshQuoted("*" + ZshValue(option));
  }
  return lines;
}

std::string ZshScript(const CommandWords& program, const std::vector<CommandWords>& commands) {
  std::string described;
  std::string cases;
  for (const CommandWords& command : commands) {
    described += "\n    " + ZshQuoted(command.name + ":" + Replaced(command.description, ":\\", "\\"));
    cases += "      " + command.name + ") _arguments" + ZshOptions(command) + " ;;\n";
  }
  return "#compdef quillon-cli\n"
         "_quillon-cli() {\n"
         "  local curcontext=\"$curcontext\" state\n"
         "  local -a commands\n"
         "  commands=(" +
         described +
         "\n  )\n"
         "  _arguments -C" +
         ZshOptions(program) +
         " \\\n        '1:command:->command' '*::argument:->argument'\n"
         "  case $state in\n"
         "    command) _describe command commands ;;\n"
         "    argument) case $words[1] in\n" +
         cases +
         "    esac ;;\n"
         "  esac\n"
         "}\n"
         "if [ \"$funcstack[1]\" = \"_quillon-cli\" ]; then _quillon-cli \"$@\"; else compdef _quillon-cli "
         "quillon-cli; fi";
}

// fish

std::string FishQuoted(const std::string& text) {
  return "'" + Replaced(text, "'\\", "\\") + "'";
}

std::string FishOption(const OptionWords& option, const std::string& when) {
  std::string line = "complete -c quillon-cli -n " + when;
  for (const std::string& name : option.names) {
    line += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
  }
  switch (option.value) {
    case Value::kNone: break;
    case Value::kText: line += " -x"; break;
    case Value::kChoice: line += " -x -a " + FishQuoted(Joined(option.choices, " ")); break;
    case Value::kFile: line += option.IsPositional() ? " -F" : " -r -F"; break;
    case Value::kFolder: line += " -x -a '(__fish_complete_directories)'"; break;
  }
  return line + " -d " + FishQuoted(option.description) + "\n";
}

std::string FishCommand(const CommandWords& command) {
  const std::string when = "'__fish_seen_subcommand_from " + command.name + "'";
  std::string lines;
  for (const OptionWords& option : command.options) lines += FishOption(option, when);
  return lines;
}

std::string FishScript(const CommandWords& program, const std::vector<CommandWords>& commands) {
  std::string script = "# fish completion for quillon-cli\ncomplete -c quillon-cli -f\n";
  for (const OptionWords& option : program.options) script += FishOption(option, "__fish_use_subcommand");
  for (const CommandWords& command : commands) {
    script += "complete -c quillon-cli -n __fish_use_subcommand -a " + command.name + " -d " +
              FishQuoted(command.description) + "\n" + FishCommand(command);
  }
  script.pop_back();
  return script;
}

}  // namespace

std::vector<std::string> CompletionShells() {
  return {"bash", "zsh", "fish"};
}

std::string CompletionScript(const CLI::App& app, const std::string& shell) {
  const CommandWords program = WordsOf(app);
  const std::vector<CommandWords> commands = CommandsOf(app);
  if (shell == "bash") return BashScript(program, commands);
  return shell == "zsh" ? ZshScript(program, commands) : FishScript(program, commands);
}

}  // namespace quillon::cli
