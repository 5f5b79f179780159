#include "settings/Settings.h"

#include <optional>
#include <string_view>
#include <utility>

#include "settings/SettingsTable.h"
#include "settings/TextConversion.h"

namespace quillon {
namespace {

constexpr std::string_view kStoredBlank = "[SPACE]";

/// Fills one member after the other; a missing key leaves the member's default. Of several errors the first is kept.
class SettingsReader {
 public:
  SettingsReader(const IniFile& file, std::optional<SettingsError>& error) : file_(file), error_(error) {}

  void operator()(std::string_view section, std::string_view key, std::string& member, SettingKind kind) const {
    std::optional<std::string> text = file_.FindString(section, key);
    if (!text) return;
    member = kind == SettingKind::kReplaceText && *text == kStoredBlank ? " " : *std::move(text);
  }

  void operator()(std::string_view section, std::string_view key, std::int16_t& member, SettingKind kind) const {
    if (kind == SettingKind::kNumberText) {
      Convert(section, key, member, IntegerFromText);
    } else if (const std::optional<std::int32_t> number = file_.FindInteger(section, key)) {
      member = static_cast<std::int16_t>(*number);
      if (member != *number) Fail(section, key);
    }
  }

  void operator()(std::string_view section, std::string_view key, std::int32_t& member, SettingKind /*kind*/) const {
    member = file_.ReadInteger(section, key, member);
  }

  void operator()(std::string_view section, std::string_view key, std::optional<std::int32_t>& member,
                  SettingKind /*kind*/) const {
    member = file_.FindInteger(section, key);
  }

  void operator()(std::string_view section, std::string_view key, bool& member, SettingKind /*kind*/) const {
    Convert(section, key, member, BooleanFromText);
  }

 private:
  template <class Value, class Conversion>
  void Convert(std::string_view section, std::string_view key, Value& member, Conversion conversion) const {
    const std::optional<std::string> text = file_.FindString(section, key);
    if (!text) return;
    if (const std::optional<Value> value = conversion(*text)) {
      member = *value;
    } else {
      Fail(section, key);
    }
  }

  void Fail(std::string_view section, std::string_view key) const {
    if (!error_) error_ = SettingsError{std::string(section), std::string(key), file_.ReadString(section, key, "")};
  }

  const IniFile& file_;
  std::optional<SettingsError>& error_;
};

class SettingsWriter {
 public:
  SettingsWriter(IniFile& file, WindowGeometry geometry) : file_(file), geometry_(geometry) {}

  template <class Value>
  void operator()(std::string_view section, std::string_view key, const Value& member, SettingKind kind) const {
    if (kind == SettingKind::kReadOnly) return;
    if (kind == SettingKind::kGeometry && geometry_ == WindowGeometry::kKeep) return;
    Write(section, key, member, kind);
  }

 private:
  void Write(std::string_view section, std::string_view key, const std::string& text, SettingKind kind) const {
    const bool blank = kind == SettingKind::kReplaceText && text == " ";
    file_.WriteString(section, key, blank ? kStoredBlank : text);
  }

  void Write(std::string_view section, std::string_view key, std::int32_t number, SettingKind /*kind*/) const {
    file_.WriteString(section, key, std::to_string(number));
  }

  void Write(std::string_view section, std::string_view key, const std::optional<std::int32_t>& number,
             SettingKind kind) const {
    if (number) Write(section, key, *number, kind);
  }

  void Write(std::string_view section, std::string_view key, bool value, SettingKind /*kind*/) const {
    file_.WriteString(section, key, value ? "True" : "False");
  }

  IniFile& file_;
  WindowGeometry geometry_;
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

std::optional<OptionValues> LoadOptionValues(const std::string& path) {
  IniFile file(path);
  if (!file.Load()) return std::nullopt;
  Result<OptionValues, SettingsError> options = ReadOptionValues(file);
  return options ? std::optional(*std::move(options)) : std::nullopt;
}

void WriteOptionValues(IniFile& file, const OptionValues& options, WindowGeometry geometry) {
  VisitSettings(options, SettingsWriter(file, geometry));
}

bool WriteAutoUpdate(const std::string& path, std::int16_t autoUpdate) {
  IniFile file(path);
  if (!file.Load()) return false;
  file.WriteString(kUpdate, kAutoUpdate, std::to_string(autoUpdate));
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
