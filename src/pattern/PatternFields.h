#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "pattern/NamePattern.h"

namespace quillon {

/// What can follow a field's colon.
enum class FieldFormat { kNone, kDigits, kDate };

struct PatternFieldEntry {
  PatternField field = PatternField::kTitle;
  const char* name = "";     ///< within the braces
  const char* caption = "";  ///< of the button that inserts it
  const char* text = "";     ///< what the button inserts
  FieldFormat format = FieldFormat::kNone;
  bool needsFile = false;
};

/// Every field, in the order of their buttons.
[[nodiscard]] std::span<const PatternFieldEntry> PatternFieldEntries();
[[nodiscard]] const PatternFieldEntry& EntryOf(PatternField field);
[[nodiscard]] std::optional<PatternField> FieldNamed(std::string_view name);

/// The part of a date that the text begins with.
struct DatePart {
  enum class Kind { kText, kYear, kShortYear, kMonth, kDay, kHour, kMinute, kSecond };
  Kind kind = Kind::kText;
  std::size_t length = 1;  ///< bytes
};
[[nodiscard]] DatePart DatePartAt(std::string_view text);

}  // namespace quillon
