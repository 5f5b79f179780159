#include "settings/Settings.h"

#include <optional>
#include <string_view>
#include <utility>

#include "settings/SettingsTable.h"
#include "settings/TextConversion.h"

namespace quillon {
namespace {

constexpr std::string_view kStoredBlank = "[SPACE]";

bool IsQuoted(std::string_view text) {
  return text.size() >= 2 && text.starts_with('"') && text.ends_with('"');
}

// The file loses blanks around a value, so that a text that has some is stored in quotes, and so is one in quotes.
std::string StoredText(const std::string& text, SettingKind kind) {
  if (kind == SettingKind::kReplaceText && text == " ") return std::string(kStoredBlank);
  const bool quoted = kind == SettingKind::kExtra && (text.starts_with(' ') || text.ends_with(' ') || IsQuoted(text));
  return quoted ? "\"" + text + "\"" : text;
}

std::string TextFromStored(const std::string& text, SettingKind kind) {
  if (kind == SettingKind::kReplaceText && text == kStoredBlank) return " ";
  const bool quoted = kind == SettingKind::kExtra && IsQuoted(text);
  return quoted ? text.substr(1, text.size() - 2) : text;
}

/// True when the file has a value to convert. An empty number counts as missing; an empty text counts as present and is
/// an error.
bool IsThere(const IniFile& file, std::string_view section, std::string_view key, SettingKind kind) {
  const bool isText = kind == SettingKind::kPlain || kind == SettingKind::kIsOneAsText;
  return isText ? file.FindString(section, key).has_value() : file.FindInteger(section, key).has_value();
}

/// Reads an option that the file stores as a number; nullopt when it is not a number or does not fit.
std::optional<std::int16_t> NumberOf(const IniFile& file, std::string_view section, std::string_view key,
                                     SettingKind kind) {
  if (kind == SettingKind::kIsOneAsText) return IntegerFromText(file.ReadString(section, key, ""));
  const std::int32_t number = file.ReadInteger(section, key, 0);
  const auto fitting = static_cast<std::int16_t>(number);
  return fitting == number ? std::optional(fitting) : std::nullopt;
}

bool MeansOn(std::int16_t number, SettingKind kind) {
  return kind == SettingKind::kIsNotZero ? number != 0 : number == 1;
}

/// Reads an option that the file contains; nullopt for a value that does not fit.
std::optional<bool> IsOn(const IniFile& file, std::string_view section, std::string_view key, SettingKind kind) {
  if (kind == SettingKind::kPlain) return BooleanFromText(file.ReadString(section, key, ""));
  const std::optional<std::int16_t> number = NumberOf(file, section, key, kind);
  return number ? std::optional(MeansOn(*number, kind)) : std::nullopt;
}

/// Reads the members one after the other. A missing key leaves the member's default. Only the first error is kept.
class SettingsReader {
 public:
  SettingsReader(const IniFile& file, std::optional<SettingsError>& error) : file_(file), error_(error) {}

  void operator()(std::string_view section, std::string_view key, std::string& member, SettingKind kind) const {
    const std::optional<std::string> text = file_.FindString(section, key);
    if (text) member = TextFromStored(*text, kind);
  }

  void operator()(std::string_view section, std::string_view key, std::int32_t& member, SettingKind /*kind*/) const {
    member = file_.ReadInteger(section, key, member);
  }

  void operator()(std::string_view section, std::string_view key, std::optional<std::int32_t>& member,
                  SettingKind /*kind*/) const {
    member = file_.FindInteger(section, key);
  }

  void operator()(std::string_view section, std::string_view key, bool& member, SettingKind kind) const {
    if (!IsThere(file_, section, key, kind)) return;
    if (const std::optional<bool> on = IsOn(file_, section, key, kind)) {
      member = *on;
    } else if (kind != SettingKind::kExtra) {
      Fail(section, key);
    }
  }

  void operator()(std::string_view section, std::string_view key, FindMethod& member, SettingKind kind) const {
    bool regex = member == FindMethod::kRegex;
    (*this)(section, key, regex, kind);
    member = regex ? FindMethod::kRegex : FindMethod::kText;
  }

  void operator()(std::string_view section, std::string_view key, DeleteTo& member, SettingKind kind) const {
    bool recycled = member == DeleteTo::kRecycleBin;
    (*this)(section, key, recycled, kind);
    member = recycled ? DeleteTo::kRecycleBin : DeleteTo::kNowhere;
  }

  void operator()(std::string_view section, std::string_view key, PatternInvalid& member, SettingKind /*kind*/) const {
    const std::int32_t number = file_.ReadInteger(section, key, static_cast<std::int32_t>(member));
    constexpr auto kLast = static_cast<std::int32_t>(PatternInvalid::kWide);
    if (number >= 0 && number <= kLast) member = static_cast<PatternInvalid>(number);
  }

 private:
  void Fail(std::string_view section, std::string_view key) const {
    if (!error_) error_ = SettingsError{std::string(section), std::string(key), file_.ReadString(section, key, "")};
  }

  const IniFile& file_;
  std::optional<SettingsError>& error_;
};

enum class Numbers { kKept, kOneAndZero };

/// The text to write for an option. A number in the file that already has this meaning is kept, even if no dialog would
/// write it.
std::string OptionText(const IniFile& file, std::string_view section, std::string_view key, bool on, SettingKind kind,
                       Numbers numbers) {
  if (kind == SettingKind::kPlain) return on ? "True" : "False";
  if (numbers == Numbers::kKept && IsThere(file, section, key, kind)) {
    const std::optional<std::int16_t> number = NumberOf(file, section, key, kind);
    if (number && MeansOn(*number, kind) == on) return std::to_string(*number);
  }
  return on ? "1" : "0";
}

class SettingsWriter {
 public:
  /// `defaults` has the default of each setting that is written only where it differs; null: all are written.
  SettingsWriter(IniFile& file, WindowGeometry geometry, Numbers numbers, const IniFile* defaults)
      : file_(file), geometry_(geometry), numbers_(numbers), defaults_(defaults) {}

  template <class Value>
  void operator()(std::string_view section, std::string_view key, const Value& member, SettingKind kind) const {
    if (kind == SettingKind::kApart) return;
    if (kind == SettingKind::kGeometry && geometry_ == WindowGeometry::kKeep) return;
    Write(section, key, member, kind);
  }

 private:
  void Write(std::string_view section, std::string_view key, const std::string& text, SettingKind kind) const {
    Put(section, key, StoredText(text, kind), kind);
  }

  void Write(std::string_view section, std::string_view key, std::int32_t number, SettingKind kind) const {
    Put(section, key, std::to_string(number), kind);
  }

  void Write(std::string_view section, std::string_view key, const std::optional<std::int32_t>& number,
             SettingKind kind) const {
    if (number) Write(section, key, *number, kind);
  }

  void Write(std::string_view section, std::string_view key, bool on, SettingKind kind) const {
    Put(section, key, OptionText(file_, section, key, on, kind, numbers_), kind);
  }

  void Write(std::string_view section, std::string_view key, FindMethod method, SettingKind kind) const {
    Write(section, key, method == FindMethod::kRegex, kind);
  }

  void Write(std::string_view section, std::string_view key, DeleteTo place, SettingKind kind) const {
    Write(section, key, place == DeleteTo::kRecycleBin, kind);
  }

  void Write(std::string_view section, std::string_view key, PatternInvalid choice, SettingKind kind) const {
    Write(section, key, static_cast<std::int32_t>(choice), kind);
  }

  void Put(std::string_view section, std::string_view key, const std::string& text, SettingKind kind) const {
    const bool asMissing = kind == SettingKind::kExtra && defaults_ != nullptr && !file_.FindString(section, key) &&
                           defaults_->FindString(section, key) == text;
    if (!asMissing) file_.WriteString(section, key, text);
  }

  IniFile& file_;
  WindowGeometry geometry_;
  Numbers numbers_;
  const IniFile* defaults_;
};

constexpr std::string_view kUpdate = "Update";
constexpr std::string_view kAutoUpdate = "AutoUpdate";

}  // namespace

Result<OptionValues, SettingsError> ReadOptionValues(const IniFile& file) {
  OptionValues options;
  std::optional<SettingsError> error;
  VisitSettings(options, SettingsReader(file, error));
  if (error) return *std::move(error);
  return options;
}

Result<OptionValues::Modify, SettingsError> ReadRules(const IniFile& file, std::string_view section) {
  OptionValues::Modify rules;
  std::optional<SettingsError> error;
  SettingsReader reader(file, error);
  VisitRules(section, rules, reader);
  if (error) return *std::move(error);
  return rules;
}

std::optional<OptionValues> LoadOptionValues(const std::string& path) {
  IniFile file(path);
  if (!file.Load()) return std::nullopt;
  Result<OptionValues, SettingsError> options = ReadOptionValues(file);
  return options ? std::optional(*std::move(options)) : std::nullopt;
}

void WriteOptionValues(IniFile& file, const OptionValues& options, WindowGeometry geometry) {
  const OptionValues initial;
  IniFile defaults{std::string()};
  VisitSettings(initial, SettingsWriter(defaults, geometry, Numbers::kOneAndZero, nullptr));
  const Numbers numbers = options.storedByDialog ? Numbers::kOneAndZero : Numbers::kKept;
  VisitSettings(options, SettingsWriter(file, geometry, numbers, &defaults));
}

void WriteRules(IniFile& file, std::string_view section, const OptionValues::Modify& rules) {
  SettingsWriter writer(file, WindowGeometry::kKeep, Numbers::kOneAndZero, nullptr);
  VisitRules(section, rules, writer);
}

bool WriteAutoUpdate(const std::string& path, bool automatic) {
  IniFile file(path);
  if (!file.Load()) return false;
  file.WriteString(kUpdate, kAutoUpdate,
                   OptionText(file, kUpdate, kAutoUpdate, automatic, SettingKind::kApart, Numbers::kKept));
  return file.Save();
}

Message InitialisationError() {
  return {"初期化エラー",
          "設定ファイルが壊れている可能性があります\r\n"
          "再度起動してください\r\n"
          "それでも初期化エラーが出る場合はヘルプを参照してください",
          MessageIcon::kStop, MessageButtons::kOk};
}

}  // namespace quillon
