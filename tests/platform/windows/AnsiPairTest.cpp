#include <windows.h>

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <string>

#include "platform/Ansi.h"
#include "platform/AnsiPair.h"
#include "platform/windows/Wide.h"

namespace quillon::test {
namespace {

constexpr UINT kCodePage = 932;

std::string SystemDecode(const std::string& bytes) {
  std::array<wchar_t, 4> units = {};
  const int count = ::MultiByteToWideChar(kCodePage, 0, bytes.data(), static_cast<int>(bytes.size()), units.data(), 4);
  return FromWide(std::wstring_view(units.data(), static_cast<std::size_t>(count)));
}

std::optional<std::string> SystemEncode(wchar_t unit) {
  std::array<char, 4> bytes = {};
  BOOL replaced = FALSE;
  const int count =
      ::WideCharToMultiByte(kCodePage, WC_NO_BEST_FIT_CHARS, &unit, 1, bytes.data(), 4, nullptr, &replaced);
  if (replaced || count <= 0) return std::nullopt;
  return std::string(bytes.data(), static_cast<std::size_t>(count));
}

TEST(AnsiAgainstTheSystem, EverySingleByteIsDecodedTheSame) {
  for (unsigned byte = 0; byte <= 0xFF; ++byte) {
    if (IsAnsiLeadByte(static_cast<unsigned char>(byte))) continue;
    const std::string bytes(1, static_cast<char>(byte));
    EXPECT_EQ(AnsiToUtf8(bytes), SystemDecode(bytes)) << byte;
  }
}

TEST(AnsiAgainstTheSystem, LeadBytesAreTheSame) {
  for (unsigned byte = 0; byte <= 0xFF; ++byte) {
    const auto value = static_cast<unsigned char>(byte);
    EXPECT_EQ(IsAnsiLeadByte(value), ::IsDBCSLeadByteEx(kCodePage, value) != FALSE) << byte;
  }
}

TEST(AnsiAgainstTheSystem, EveryPairIsDecodedTheSame) {
  for (unsigned lead = 0x81; lead <= 0xFC; ++lead) {
    if (!IsAnsiLeadByte(static_cast<unsigned char>(lead))) continue;
    for (unsigned trail = 0x40; trail <= 0xFC; ++trail) {
      if (trail == 0x7F) continue;
      const std::string bytes = {static_cast<char>(lead), static_cast<char>(trail)};
      EXPECT_EQ(AnsiToUtf8(bytes), SystemDecode(bytes)) << lead << ' ' << trail;
    }
  }
}

TEST(AnsiAgainstTheSystem, EveryCharacterIsEncodedTheSameOrNotAtAll) {
  for (unsigned unit = 0x80; unit <= 0xFFFF; ++unit) {
    if (unit >= 0xD800 && unit <= 0xDFFF) continue;
    const std::wstring text(1, static_cast<wchar_t>(unit));
    const std::optional<std::string> ours = Utf8ToAnsi(FromWide(text));
    const std::optional<std::string> systems = SystemEncode(text[0]);
    const bool exact = systems && SystemDecode(*systems) == FromWide(text);
    EXPECT_EQ(ours, exact ? systems : std::nullopt) << unit;
  }
}

}  // namespace
}  // namespace quillon::test
