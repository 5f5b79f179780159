#include "SystemConversion.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace quillon::test {
namespace {

std::wstring ToWideString(const std::string& text) {
  const int length = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');
  wide.resize(static_cast<std::size_t>(
      MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), length, wide.data(), length)));
  return wide;
}

std::string ToUtf8(const std::wstring& wide) {
  const int length = static_cast<int>(wide.size());
  std::string text(3 * wide.size(), '\0');
  text.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, text.data(),
                                                           static_cast<int>(text.size()), nullptr, nullptr)));
  return text;
}

DWORD Flags(SystemConversion conversion) {
  switch (conversion) {
    case SystemConversion::kHalfWidth: return LCMAP_HALFWIDTH;
    case SystemConversion::kFullWidth: return LCMAP_FULLWIDTH;
    case SystemConversion::kLower: return LCMAP_LOWERCASE;
    case SystemConversion::kUpper: return LCMAP_UPPERCASE;
  }
  return 0;
}

}  // namespace

std::string Convert(SystemConversion conversion, const std::string& text) {
  const std::wstring in = ToWideString(text);
  std::wstring out(4 * in.size(), L'\0');
  const int length = LCMapStringEx(L"ja-JP", Flags(conversion), in.data(), static_cast<int>(in.size()), out.data(),
                                   static_cast<int>(out.size()), nullptr, nullptr, 0);
  EXPECT_GT(length, 0);
  out.resize(static_cast<std::size_t>(length));
  return ToUtf8(out);
}

}  // namespace quillon::test
