#include "rename/ModifyForm.h"

#include "paths/basFileControl.h"

namespace quillon {
namespace {

ModifyRefusal NothingToFind(std::size_t rule) {
  return {rule,
          ModifyBox::kFind,
          0,
          {"設定", "検索する文字列を指定してください\r\n左のチェックを外すとこの項目は無効になります",
           MessageIcon::kExclamation}};
}

ModifyRefusal InvalidReplacement(std::size_t rule, int position) {
  return {rule,
          ModifyBox::kReplacement,
          static_cast<std::size_t>(position - 1),
          {"設定", "置換する文字列に不正な文字が含まれています\r\n不正な文字には置換することが出来ません",
           MessageIcon::kExclamation}};
}

}  // namespace

std::optional<ModifyRefusal> CheckModifyForm(const OptionValues::Modify& form) {
  for (std::size_t i = 0; i < kReplaceRuleCount; ++i) {
    if (form.rules[i].active && form.rules[i].find.empty()) return NothingToFind(i);
  }
  for (std::size_t i = 0; i < kReplaceRuleCount; ++i) {
    const int position = InvalidCharacterPosition(form.rules[i].replacement);
    if (position != 0) return InvalidReplacement(i, position);
  }
  return std::nullopt;
}

ModifyEnabling EnabledBoxes(const OptionValues::Modify& form, bool regexAvailable) {
  ModifyEnabling enabling;
  enabling.invalidReplacement = form.replaceInvalid;
  for (std::size_t i = 0; i < kReplaceRuleCount; ++i) enabling.ruleTexts[i] = form.rules[i].active;
  enabling.regularExpressions = regexAvailable;
  return enabling;
}

OptionValues::Modify ShownForm(const OptionValues::Modify& stored, bool regexAvailable) {
  OptionValues::Modify shown = stored;
  if (!regexAvailable) shown.method = FindMethod::kText;
  return shown;
}

OptionValues::Modify StoredForm(const OptionValues::Modify& shown, const OptionValues::Modify& stored,
                                bool regexAvailable) {
  OptionValues::Modify form = shown;
  if (!regexAvailable) form.method = stored.method;
  return form;
}

}  // namespace quillon
