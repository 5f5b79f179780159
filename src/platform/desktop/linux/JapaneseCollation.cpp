#include "platform/desktop/JapaneseCollation.h"

#include <unicode/ucol.h>
#include <unicode/ustring.h>

#include <cstdint>
#include <limits>

#include "base/Text.h"

namespace quillon {
namespace {

struct CloseCollator {
  void operator()(UCollator* collator) const { ucol_close(collator); }
};

using Collator = std::unique_ptr<UCollator, CloseCollator>;

/// Returns null when the library's data is missing.
Collator OpenCollator() {
  UErrorCode error = U_ZERO_ERROR;
  Collator collator(ucol_open("ja", &error));
  if (U_FAILURE(error)) return nullptr;
  // The next level would distinguish hiragana from katakana.
  ucol_setStrength(collator.get(), UCOL_TERTIARY);
  return collator;
}

std::u16string ToUtf16(std::string_view text) {
  constexpr UChar32 kReplacement = 0xFFFD;
  std::u16string wide(text.size(), u'\0');
  std::int32_t length = 0;
  UErrorCode error = U_ZERO_ERROR;
  u_strFromUTF8WithSub(wide.data(), static_cast<std::int32_t>(wide.size()), &length, text.data(),
                       static_cast<std::int32_t>(text.size()), kReplacement, nullptr, &error);
  wide.resize(static_cast<std::size_t>(length));
  return wide;
}

class IcuCollation final : public Collation {
 public:
  [[nodiscard]] std::string KeyOf(std::string_view text) const override {
    constexpr std::size_t kMostBytes = std::numeric_limits<std::int32_t>::max() / 2;
    if (collator_ == nullptr || text.size() > kMostBytes) return std::string(text);
    const std::u16string wide = ToUtf16(text);
    // Most keys fit at the first attempt; for the others the library returns the needed length.
    std::string key(wide.size() * 4 + 16, '\0');
    std::size_t length = Write(wide, key);
    if (length > key.size()) {
      key.resize(length);
      length = Write(wide, key);
    }
    key.resize(length == 0 ? 0 : length - 1);  // without the terminating zero
    return key;
  }

 private:
  [[nodiscard]] std::size_t Write(const std::u16string& text, std::string& key) const {
    return static_cast<std::size_t>(
        ucol_getSortKey(collator_.get(), text.data(), static_cast<std::int32_t>(text.size()),
                        reinterpret_cast<std::uint8_t*>(key.data()), static_cast<std::int32_t>(key.size())));
  }

  Collator collator_ = OpenCollator();
};

}  // namespace

std::unique_ptr<Collation> MakeJapaneseCollation() {
  return std::make_unique<IcuCollation>();
}

}  // namespace quillon
