#include "rename/PresetCommands.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "paths/PortableName.h"
#include "paths/basFileControl.h"
#include "platform/FileSystem.h"

namespace quillon {
namespace {

constexpr const char* kCaption = "プリセット";
constexpr const char* kExtension = ".ini";
constexpr std::size_t kMostNamesShown = 10;

/// Whose fault it is: the settings file's, or that of the file which the user has chosen.
enum class In { kSettings, kChosenFile };

std::string ReasonFor(const PresetError& error, In place) {
  const bool settings = place == In::kSettings;
  switch (error.problem) {
    case PresetProblem::kUnreadable:
      return settings ? "設定ファイルを読み込めないため、プリセットは使えません"
                      : "ファイルを読み込めません。設定ファイルではないか、大きすぎます";
    case PresetProblem::kNotWritten:
      return settings ? "設定ファイルに書き込めません。プリセットは変わっていません"
                      : "ファイルに書き込めません。別の場所に書き出してください";
    case PresetProblem::kAbsent: return "プリセットがなくなっています";
    case PresetProblem::kNameTaken: return "同じ名前のプリセットがあります。別の名前にしてください";
    case PresetProblem::kDamaged: return "プリセットに正しくない値があるため、使えません\r\n" + error.where;
    case PresetProblem::kEmpty: return "このファイルには、プリセットも編集の規則もありません";
    case PresetProblem::kTooMany:
      static_assert(kMostPresets == 100);
      return "プリセットは 100 個まで保存できます。使わないものを削除してください";
  }
  return {};
}

/// A name for the rules of a file that has no presets.
std::string NameFor(const std::string& path) {
  std::string name = WithReplacementCharacters(NameWithoutExtension(path));
  std::ranges::replace(name, ']', ')');
  name = PresetNameFrom(FirstCharacters(name, kLongestPresetName));
  return PresetNameRefusal(name) ? kCaption : name;
}

std::string Listed(const std::vector<std::string>& names) {
  std::string lines;
  for (std::size_t i = 0; i < std::min(names.size(), kMostNamesShown); ++i) lines += "\r\n" + names[i];
  return names.size() > kMostNamesShown ? lines + "\r\n..." : lines;
}

}  // namespace

OptionValues::Modify PresetCommands::Shown() const {
  OptionValues::Modify rules = dialog_.Rules();
  rules.keepDialogOpen = false;
  return rules;
}

void PresetCommands::Show(const OptionValues::Modify& rules) {
  if (rules.method == FindMethod::kRegex && !options_.regexAvailable) {
    return Tell("正規表現が使えないため、このプリセットは使えません", MessageIcon::kExclamation);
  }
  OptionValues::Modify shown = Shown();
  if (shown != rules) before_.push_back(std::move(shown));
  dialog_.ShowRules(rules);
}

void PresetCommands::Load(const std::string& name) {
  const Result<OptionValues::Modify, PresetError> rules = presets_.Load(name);
  if (!rules) return Tell(ReasonFor(rules.Failure(), In::kSettings), MessageIcon::kStop);
  Show(*rules);
  lastName_ = name;
}

void PresetCommands::GoBack() {
  if (before_.empty()) return;
  dialog_.ShowRules(before_.back());
  before_.pop_back();
}

void PresetCommands::Save() {
  const std::optional<OptionValues::Modify> checked = dialog_.CheckedRules();
  if (!checked) return;
  OptionValues::Modify rules = *checked;
  rules.keepDialogOpen = false;
  const std::optional<std::string> name = AskName("現在の規則を保存", lastName_, true);
  if (!name || !Done(presets_.Save({*name, rules}))) return;
  lastName_ = *name;
  const Result<OptionValues::Modify, PresetError> stored = presets_.Load(*name);
  if (stored && *stored != rules) {
    Tell("保存しましたが、文字列の前後の空白と 127 文字を超える部分は保存されません", MessageIcon::kExclamation);
  }
}

void PresetCommands::Rename(const std::string& name) {
  const std::optional<std::string> newName = AskName("プリセットの名前の変更", name, false);
  if (!newName || *newName == name || !Done(presets_.Rename(name, *newName))) return;
  if (lastName_ == name) lastName_ = *newName;
}

void PresetCommands::Remove(const std::string& name) {
  if (!Confirms("このプリセットを削除しますか\r\n" + name)) return;
  (void)Done(presets_.Remove(name));
}

void PresetCommands::Import() {
  const std::string path = dialog_.FileToImport();
  if (path.empty()) return;
  const Result<std::vector<Preset>, PresetError> presets = ReadPresetFile(path, NameFor(path));
  if (!presets) return Tell(ReasonFor(presets.Failure(), In::kChosenFile), MessageIcon::kStop);
  const std::optional<SameName> sameName = AskSameName(presets_.Taken(*presets));
  if (!sameName) return;
  const Result<std::size_t, PresetError> added = presets_.Add(*presets, *sameName);
  if (!added) return Tell(ReasonFor(added.Failure(), In::kSettings), MessageIcon::kStop);
  Tell(
      *added == 0 ? "同じプリセットがもう保存されています" : std::to_string(*added) + " 個のプリセットを読み込みました",
      MessageIcon::kInformation);
}

void PresetCommands::Export(const std::string& name) {
  const Result<OptionValues::Modify, PresetError> rules = presets_.Load(name);
  if (!rules) return Tell(ReasonFor(rules.Failure(), In::kSettings), MessageIcon::kStop);
  const std::string path = dialog_.FileToExport(PortableName(name) + kExtension);
  if (path.empty()) return;
  if (path == presets_.Path() || MakeFileReads()->SameFile(path, presets_.Path())) {
    return Tell("設定ファイルには書き出せません。別の名前にしてください", MessageIcon::kExclamation);
  }
  const std::optional<PresetError> error = WritePresetFile(path, {name, *rules});
  if (error) Tell(ReasonFor(*error, In::kChosenFile), MessageIcon::kStop);
}

/// Asks until the name can be used. `present` is suggested; a name that another preset has may replace it, or not.
std::optional<std::string> PresetCommands::AskName(const std::string& title, const std::string& present,
                                                   bool replaces) {
  std::string suggested = present;
  for (;;) {
    const std::optional<std::string> typed = dialog_.AskName(title, suggested);
    if (!typed) return std::nullopt;
    std::string name = PresetNameFrom(*typed);
    if (Accepts(name, present, replaces)) return name;
    suggested = *typed;
  }
}

bool PresetCommands::Accepts(const std::string& name, const std::string& present, bool replaces) {
  if (const std::optional<std::string> refusal = PresetNameRefusal(name)) {
    Tell(*refusal, MessageIcon::kExclamation);
    return false;
  }
  const auto equals = [&](const std::string& other) { return EqualIgnoringCase(other, name); };
  if (std::ranges::none_of(Names(), equals)) return true;
  if (replaces) return Confirms("同じ名前のプリセットがあります。置き換えますか\r\n" + name);
  if (equals(present)) return true;
  Tell(ReasonFor({PresetProblem::kNameTaken}, In::kSettings), MessageIcon::kExclamation);
  return false;
}

/// Nullopt when the import was cancelled. OK keeps everything, so that it is the answer when no questions are asked.
std::optional<SameName> PresetCommands::AskSameName(const std::vector<std::string>& taken) {
  if (taken.empty() || !options_.confirms) return SameName::kNumber;
  const std::string text =
      "同じ名前で内容の違うプリセットがあります。番号を付けて両方を残しますか\r\n"
      "「置き換える」を押すと、保存されているほうは失われます" +
      Listed(taken);
  switch (boxes_.AskQuestion(
      {.message = {kCaption, text, MessageIcon::kQuestion, MessageButtons::kOkCancel}, .further = "置き換える(&R)"})) {
    case QuestionAnswer::kYes: return SameName::kNumber;
    case QuestionAnswer::kFurther: return SameName::kReplace;
    case QuestionAnswer::kNo: break;
  }
  return std::nullopt;
}

bool PresetCommands::Confirms(const std::string& text) {
  return !options_.confirms || boxes_.Show({kCaption, text, MessageIcon::kQuestion, MessageButtons::kYesNo});
}

/// Tells the failure of a change; true without one.
bool PresetCommands::Done(const std::optional<PresetError>& error) {
  if (error) Tell(ReasonFor(*error, In::kSettings), MessageIcon::kStop);
  return !error;
}

void PresetCommands::Tell(const std::string& text, MessageIcon icon) {
  boxes_.Show({kCaption, text, icon});
}

}  // namespace quillon
