#include "platform/windows/Wide.h"

#include "platform/Wtf8.h"

namespace quillon {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

std::optional<std::wstring> ToWide(std::string_view text) {
  const std::optional<std::u16string> units = Wtf8ToUtf16(text);
  if (!units) return std::nullopt;
  return std::wstring(units->begin(), units->end());
}

std::string FromWide(std::wstring_view text) {
  return Utf16ToWtf8(std::u16string(text.begin(), text.end()));
}

}  // namespace quillon
