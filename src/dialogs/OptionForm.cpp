#include "dialogs/OptionForm.h"

#include <cstdint>
#include <vector>

#include "base/Text.h"
#include "settings/SettingsTable.h"
#include "settings/basINIControl.h"
#include "tags/TagLibReader.h"

namespace quillon {
namespace {

/// The fields that edit this setting; option buttons share one.
std::vector<OptionField*> FieldsOf(OptionFields& fields, std::string_view section, std::string_view key) {
  std::vector<OptionField*> found;
  for (auto& [name, field] : fields) {
    if (field.control->section == section && field.control->key == key) found.push_back(&field);
  }
  return found;
}

void Fill(OptionField& field, const std::string& setting) {
  field.text = setting;
}

void Fill(OptionField& field, bool setting) {
  field.checked = setting == field.control->on;
}

void Fill(OptionField& field, DeleteTo setting) {
  Fill(field, setting == DeleteTo::kRecycleBin);
}

void Store(const OptionField& field, std::string& setting) {
  setting = field.text;
}

void Store(const OptionField& field, bool& setting) {
  setting = field.checked == field.control->on;
}

void Store(const OptionField& field, DeleteTo& setting) {
  bool recycled = setting == DeleteTo::kRecycleBin;
  Store(field, recycled);
  setting = recycled ? DeleteTo::kRecycleBin : DeleteTo::kNowhere;
}

/// The extensions of further tagged files that this list of extensions lacks, separated by blanks.
std::string MissingExtensions(std::string_view group) {
  const std::string padded = " " + ToLower(group) + " ";
  std::string missing;
  for (const std::string_view extension : UsualMusicExtensions()) {
    if (padded.find(" " + std::string(extension) + " ") != std::string::npos) continue;
    missing += (missing.empty() ? "" : " ") + std::string(extension);
  }
  return missing;
}

// No control edits a window's place or width.
template <class Setting>
void Fill(OptionField&, const Setting&) {}
template <class Setting>
void Store(const OptionField&, Setting&) {}

}  // namespace

OptionForm::OptionForm(OptionValues& options, ApplyModeSwitch& modeSwitch, MessageBoxes& boxes)
    : options_(options),
      modeSwitch_(modeSwitch),
      boxes_(boxes),
      modeAtStart_(modeSwitch.Now()),
      manual_(!modeAtStart_.automatic) {
  for (const OptionPage& page : OptionPages()) {
    for (const OptionFrame& frame : page.frames) {
      for (const OptionControl& control : frame.controls) fields_[control.name] = {&control, false, {}};
    }
  }
  VisitSettings(options_, [this](std::string_view section, std::string_view key, const auto& setting, SettingKind) {
    for (OptionField* const field : FieldsOf(fields_, section, key)) Fill(*field, setting);
  });
}

bool OptionForm::Enabled(std::string_view name) const {
  const OptionControl& control = *fields_.at(std::string(name)).control;
  switch (control.needs) {
    case OptionNeeds::kNothing: return true;
    case OptionNeeds::kManualMode: return manual_;
    case OptionNeeds::kFilter: return Checked("chkExtensionFilter");
    case OptionNeeds::kOwnBox: return Enabled(control.checkBox) && Checked(control.checkBox);
  }
  return true;
}

void OptionForm::Click(std::string_view name, bool checked, const std::function<void()>& show) {
  OptionField& clicked = fields_.at(std::string(name));
  const OptionControl& control = *clicked.control;
  if (control.kind == OptionKind::kOptionButton) {
    for (OptionField* const field : FieldsOf(fields_, control.section, control.key)) field->checked = false;
  }
  clicked.checked = checked;
  if (name == "chkAutoUpdate") {
    ClickMode(checked, show);
  } else {
    show();
  }
  if (name == "chkReadMoreTags" && checked) OfferExtensions(show);
}

void OptionForm::OfferExtensions(const std::function<void()>& show) {
  std::string& group = fields_.at("txtExtensionMusic").text;
  const std::string more = MissingExtensions(group);
  const std::string joined = group.empty() ? more : group + " " + more;
  if (more.empty() || CharacterCount(joined) > IniFile::kLongestValue) return;
  const bool wanted =
      options_.system.suppressConfirmations ||
      boxes_.Show({"設定", "フォルダから読み込むメディアファイルの拡張子に、次のものも加えますか\r\n\r\n" + more,
                   MessageIcon::kQuestion, MessageButtons::kYesNo});
  if (!wanted) return;
  group = joined;
  show();
}

void OptionForm::ClickMode(bool automatic, const std::function<void()>& show) {
  modeSwitch_.Switch(automatic, [&] {
    manual_ = !automatic;
    show();
  });
}

void OptionForm::cmdOK() {
  VisitSettings(options_, [this](std::string_view section, std::string_view key, auto& setting, SettingKind kind) {
    if (kind == SettingKind::kApart) return;
    for (const OptionField* const field : FieldsOf(fields_, section, key)) Store(*field, setting);
  });
  options_.storedByDialog = true;
}

void OptionForm::cmdCancel() {
  modeSwitch_.Restore(modeAtStart_);
}

}  // namespace quillon
