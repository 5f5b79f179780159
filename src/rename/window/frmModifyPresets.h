#pragma once

#include <wx/button.h>
#include <wx/menu.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/Ports.h"
#include "rename/PresetCommands.h"
#include "settings/OptionValues.h"
#include "settings/Presets.h"

namespace quillon {

/// The presets that a dialog offers. They must outlive it.
struct PresetUse {
  const Presets& presets;
  bool confirms = true;  ///< before a preset is replaced or deleted
};

/// A menu, and what its entries do.
struct PresetMenu {
  static constexpr int kFirstEntry = wxID_HIGHEST + 1;

  std::unique_ptr<wxMenu> menu;
  std::vector<std::function<void()>> actions;  ///< of the entries with the ids from kFirstEntry
};

[[nodiscard]] PresetMenu MakePresetMenu(PresetCommands& commands);

/// The menu プリセット of frmModify, and the dialogs of its commands.
class frmModifyPresets final : private PresetDialog {
 public:
  /// How the rules' dialog is reached.
  struct Form {
    std::function<OptionValues::Modify()> rules;
    std::function<std::optional<OptionValues::Modify>()> checkedRules;
    std::function<void(const OptionValues::Modify&)> show;
  };

  frmModifyPresets(wxWindow& dialog, const PresetUse& use, bool regexAvailable, MessageBoxes& boxes, Form form);

  /// Opens the menu below the button and does what the user chooses.
  void Open(const wxButton& button);

 private:
  [[nodiscard]] OptionValues::Modify Rules() const override { return form_.rules(); }
  [[nodiscard]] std::optional<OptionValues::Modify> CheckedRules() override { return form_.checkedRules(); }
  void ShowRules(const OptionValues::Modify& rules) override { form_.show(rules); }
  [[nodiscard]] std::optional<std::string> AskName(const std::string& title, const std::string& present) override;
  [[nodiscard]] std::string FileToImport() override;
  [[nodiscard]] std::string FileToExport(const std::string& suggestion) override;
  [[nodiscard]] std::string ChooseFile(const char* title, const std::string& suggestion, long style);

  wxWindow& dialog_;
  Form form_;
  PresetCommands commands_;
};

}  // namespace quillon
