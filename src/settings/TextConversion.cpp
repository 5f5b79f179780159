#include "settings/TextConversion.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "base/Text.h"

namespace quillon {
namespace {

std::optional<bool> Word(std::string_view text) {
  if (EqualIgnoringCase(text, "True")) return true;
  if (EqualIgnoringCase(text, "False")) return false;
  return std::nullopt;
}

std::optional<double> Number(std::string_view text) {
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  // The sign has been removed. This rejects a second sign and the words for infinity and not-a-number.
  if (text.empty() || text.find_first_of("0123456789.") != 0) return std::nullopt;
  double value = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || stop != end) return std::nullopt;
  return negative ? -value : value;
}

/// Rounds halves to the even neighbour, independently of the processor's rounding mode.
double RoundHalfToEven(double value) {
  const double below = std::floor(value);
  const double fraction = value - below;
  if (fraction < 0.5) return below;
  if (fraction > 0.5) return below + 1;
  return std::fmod(below, 2) == 0 ? below : below + 1;
}

}  // namespace

std::optional<std::int16_t> IntegerFromText(std::string_view text) {
  text = Trim(text);
  if (const std::optional<bool> word = Word(text)) return static_cast<std::int16_t>(*word ? -1 : 0);
  const std::optional<double> number = Number(text);
  if (!number) return std::nullopt;
  using Limits = std::numeric_limits<std::int16_t>;
  const double rounded = RoundHalfToEven(*number);
  if (rounded < Limits::min() || rounded > Limits::max()) return std::nullopt;
  return static_cast<std::int16_t>(rounded);
}

std::optional<bool> BooleanFromText(std::string_view text) {
  text = Trim(text);
  if (const std::optional<bool> word = Word(text)) return word;
  const std::optional<double> number = Number(text);
  if (!number) return std::nullopt;
  return *number != 0;
}

}  // namespace quillon
