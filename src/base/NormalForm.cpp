#include "base/NormalForm.h"

#include <utf8proc.h>

#include <cstdlib>
#include <memory>

#include "base/Text.h"

namespace quillon {
namespace {

std::string NormalizedUtf8(std::string_view text, NormalForm form) {
  const int kind = form == NormalForm::kComposed ? UTF8PROC_COMPOSE : UTF8PROC_DECOMPOSE;
  utf8proc_uint8_t* result = nullptr;
  const utf8proc_ssize_t length =
      utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(text.data()), static_cast<utf8proc_ssize_t>(text.size()),
                   &result, static_cast<utf8proc_option_t>(UTF8PROC_STABLE | kind));
  const std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> owned(result, &std::free);
  if (length < 0) return std::string(text);
  return {reinterpret_cast<const char*>(result), static_cast<std::size_t>(length)};
}

}  // namespace

std::string Normalized(std::string_view text, NormalForm form) {
  std::string result;
  std::size_t begin = 0;
  for (std::size_t at = 0; at < text.size();) {
    const Character c = CharacterAt(text, at);
    if (!c.valid) {
      result += NormalizedUtf8(text.substr(begin, at - begin), form);
      result += text.substr(at, c.length);
      begin = at + c.length;
    }
    at += c.length;
  }
  return result += NormalizedUtf8(text.substr(begin), form);
}

}  // namespace quillon
