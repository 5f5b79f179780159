#include "platform/desktop/JapaneseCollation.h"

#include <windows.h>

#include <cstddef>
#include <limits>

#include "base/Text.h"
#include "platform/windows/Wide.h"

namespace quillon {
namespace {

// Without SORT_STRINGSORT hyphens and apostrophes would only be compared last.
constexpr DWORD kOptions = LCMAP_SORTKEY | NORM_IGNOREKANATYPE | NORM_IGNOREWIDTH | SORT_STRINGSORT;

/// Writes the key and returns its length in bytes; with a null `key` only returns the length. 0 on failure.
std::size_t Write(const std::wstring& text, std::string* key) {
  // The function returns a sort key as bytes, although the parameter's type is wchar_t*.
  auto* const buffer = key == nullptr ? nullptr : reinterpret_cast<wchar_t*>(key->data());
  const int size = key == nullptr ? 0 : static_cast<int>(key->size());
  const int length = ::LCMapStringEx(L"ja-JP", kOptions, text.data(), static_cast<int>(text.size()), buffer, size,
                                     nullptr, nullptr, 0);
  return static_cast<std::size_t>(length);
}

class WindowsCollation final : public Collation {
 public:
  [[nodiscard]] std::string KeyOf(std::string_view text) const override {
    constexpr std::size_t kMostBytes = std::numeric_limits<int>::max() / 16;
    if (text.empty() || text.size() > kMostBytes) return std::string(text);
    std::optional<std::wstring> wide = ToWide(text);
    if (!wide) wide = ToWide(WithReplacementCharacters(text));
    if (!wide) return std::string(text);
    // Most keys fit at the first attempt. Asking for the length first would take as long as making the key.
    std::string key(wide->size() * 8 + 16, '\0');
    std::size_t length = Write(*wide, &key);
    if (length == 0) {
      key.resize(Write(*wide, nullptr));
      length = Write(*wide, &key);
    }
    key.resize(length == 0 ? 0 : length - 1);  // without the terminating zero
    return key;
  }
};

}  // namespace

std::unique_ptr<Collation> MakeJapaneseCollation() {
  return std::make_unique<WindowsCollation>();
}

}  // namespace quillon
