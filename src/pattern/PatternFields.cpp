#include "pattern/PatternFields.h"

#include <algorithm>
#include <array>

namespace quillon {
namespace {

using enum PatternField;

constexpr std::array kEntries = {
    PatternFieldEntry{kTitle, "title", "タイトル", "{title}"},
    PatternFieldEntry{kArtist, "artist", "アーティスト", "{artist}"},
    PatternFieldEntry{kAlbum, "album", "アルバム", "{album}", FieldFormat::kNone, true},
    PatternFieldEntry{kTrack, "track", "トラック番号", "{track:02}", FieldFormat::kDigits, true},
    PatternFieldEntry{kYear, "year", "年", "{year}", FieldFormat::kDigits, true},
    PatternFieldEntry{kGenre, "genre", "ジャンル", "{genre}", FieldFormat::kNone, true},
    PatternFieldEntry{kName, "name", "現在の名前", "{name}"},
    PatternFieldEntry{kFolder, "folder", "フォルダ名", "{folder}"},
    PatternFieldEntry{kType, "type", "種類", "{type}"},
    PatternFieldEntry{kDate, "date", "更新日", "{date}", FieldFormat::kDate, true},
    PatternFieldEntry{kSize, "size", "サイズ", "{size}", FieldFormat::kDigits},
    PatternFieldEntry{kNumber, "n", "連番", "{n}", FieldFormat::kDigits},
};

}  // namespace

std::span<const PatternFieldEntry> PatternFieldEntries() {
  return kEntries;
}

const PatternFieldEntry& EntryOf(PatternField field) {
  return kEntries.at(static_cast<std::size_t>(field));  // the table has the enumeration's order
}

std::optional<PatternField> FieldNamed(std::string_view name) {
  const auto* const found = std::find_if(kEntries.begin(), kEntries.end(),
                                         [name](const PatternFieldEntry& entry) { return entry.name == name; });
  return found == kEntries.end() ? std::nullopt : std::optional(found->field);
}

DatePart DatePartAt(std::string_view text) {
  using enum DatePart::Kind;
  // The long year first, because it begins like the short one.
  if (text.starts_with("YYYY")) return {kYear, 4};
  if (text.starts_with("YY")) return {kShortYear, 2};
  if (text.starts_with("MM")) return {kMonth, 2};
  if (text.starts_with("DD")) return {kDay, 2};
  if (text.starts_with("hh")) return {kHour, 2};
  if (text.starts_with("mm")) return {kMinute, 2};
  if (text.starts_with("ss")) return {kSecond, 2};
  return {};
}

}  // namespace quillon
