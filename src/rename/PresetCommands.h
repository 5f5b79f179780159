#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/Ports.h"
#include "settings/OptionValues.h"
#include "settings/Presets.h"

namespace quillon {

/// What the commands of the preset menu need of the rules' dialog.
class PresetDialog {
 public:
  virtual ~PresetDialog() = default;

  /// The rules that the dialog shows.
  [[nodiscard]] virtual OptionValues::Modify Rules() const = 0;
  /// The same; nullopt when OK would refuse them: the user has been told why.
  [[nodiscard]] virtual std::optional<OptionValues::Modify> CheckedRules() = 0;
  /// Shows these rules. Nothing runs, and nothing is stored before OK. The dialog's own habit keepDialogOpen stays.
  virtual void ShowRules(const OptionValues::Modify& rules) = 0;

  /// Asks for a preset's name; nullopt when the user has cancelled.
  [[nodiscard]] virtual std::optional<std::string> AskName(const std::string& title, const std::string& present) = 0;
  /// Empty when the user has cancelled.
  [[nodiscard]] virtual std::string FileToImport() = 0;
  [[nodiscard]] virtual std::string FileToExport(const std::string& suggestion) = 0;
};

/// The commands of the menu プリセット. Failures are told in message boxes.
class PresetCommands {
 public:
  struct Options {
    bool regexAvailable = true;
    bool confirms = true;  ///< otherwise questions count as answered with yes
  };

  PresetCommands(const Presets& presets, PresetDialog& dialog, MessageBoxes& boxes, Options options)
      : presets_(presets), dialog_(dialog), boxes_(boxes), options_(options) {}

  /// The user's own presets, by whose names the commands below are called.
  [[nodiscard]] std::vector<std::string> Names() const { return presets_.Names(); }

  void Load(const std::string& name);
  void LoadBuiltIn(const Preset& preset) { Show(preset.rules); }

  /// Goes back to the rules before the last load, and from there to those before it.
  void GoBack();
  [[nodiscard]] bool CanGoBack() const { return !before_.empty(); }

  void Save();
  void Rename(const std::string& name);
  void Remove(const std::string& name);
  void Import();
  void Export(const std::string& name);

 private:
  [[nodiscard]] OptionValues::Modify Shown() const;
  void Show(const OptionValues::Modify& rules);
  [[nodiscard]] std::optional<std::string> AskName(const std::string& title, const std::string& present, bool replaces);
  [[nodiscard]] bool Accepts(const std::string& name, const std::string& present, bool replaces);
  [[nodiscard]] std::optional<SameName> AskSameName(const std::vector<std::string>& taken);
  [[nodiscard]] bool Confirms(const std::string& text);
  [[nodiscard]] bool Done(const std::optional<PresetError>& error);
  void Tell(const std::string& text, MessageIcon icon);

  const Presets& presets_;
  PresetDialog& dialog_;
  MessageBoxes& boxes_;
  Options options_;
  std::vector<OptionValues::Modify> before_;
  std::string lastName_;  ///< of the preset loaded or saved last, which a further save suggests
};

}  // namespace quillon
