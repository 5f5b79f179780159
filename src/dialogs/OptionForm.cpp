#include "dialogs/OptionForm.h"

#include <cstdint>
#include <type_traits>

#include "app/settings/SettingsTable.h"

namespace quillon {
namespace {

bool Edits(const OptionControl& control, std::string_view section, std::string_view key) {
  return control.section == section && control.key == key;
}

template <class Fields, class Visitor>
void ForEachOf(Fields& fields, std::string_view section, std::string_view key, const Visitor& visit) {
  for (auto& [name, field] : fields) {
    if (Edits(*field.control, section, key)) visit(field);
  }
}

/// Fills fields with the settings that they edit.
template <class Fields>
struct FieldFiller {
  Fields& fields;

  template <class Member>
  void operator()(std::string_view section, std::string_view key, const Member& member, SettingKind) const {
    ForEachOf(fields, section, key, [&](auto& field) {
      if constexpr (std::is_same_v<Member, std::string>) {
        field.text = member;
      } else if constexpr (std::is_integral_v<Member>) {
        const bool on = member != 0;
        field.checked = on == (field.control->value != 0);
      }
    });
  }
};

/// Copies fields into the settings that they edit.
template <class Fields>
struct FieldReader {
  const Fields& fields;

  template <class Member>
  void operator()(std::string_view section, std::string_view key, Member& member, SettingKind kind) const {
    if (kind == SettingKind::kReadOnly) return;
    ForEachOf(fields, section, key, [&](const auto& field) {
      if constexpr (std::is_same_v<Member, std::string>) {
        member = field.text;
      } else if constexpr (std::is_integral_v<Member>) {
        const bool on = field.checked == (field.control->value != 0);
        member = static_cast<Member>(on ? 1 : 0);
      }
    });
  }
};

}  // namespace

OptionForm::OptionForm(OptionValues& options, ApplyModeSwitch& modeSwitch)
    : options_(options), modeSwitch_(modeSwitch), modeAtStart_(modeSwitch.IsOn()), manual_(!modeAtStart_) {
  for (const OptionPage& page : OptionPages()) {
    for (const OptionFrame& frame : page.frames) {
      for (const OptionControl& control : frame.controls) fields_[control.name] = {&control, false, {}};
    }
  }
  VisitSettings(static_cast<const OptionValues&>(options_), FieldFiller<decltype(fields_)>{fields_});
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
  Field& clicked = fields_.at(std::string(name));
  const OptionControl& control = *clicked.control;
  if (control.kind == OptionKind::kOptionButton) {
    ForEachOf(fields_, control.section, control.key, [](Field& field) { field.checked = false; });
  }
  clicked.checked = checked;
  if (name == "chkAutoUpdate") {
    ClickMode(checked, show);
  } else {
    show();
  }
}

void OptionForm::ClickMode(bool automatic, const std::function<void()>& show) {
  modeSwitch_.Switch(automatic, [&] {
    manual_ = !automatic;
    show();
  });
}

void OptionForm::cmdOK() {
  VisitSettings(options_, FieldReader<decltype(fields_)>{fields_});
}

void OptionForm::cmdCancel() {
  modeSwitch_.Restore(modeAtStart_);
}

}  // namespace quillon
