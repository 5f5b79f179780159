#pragma once

#include <cstdlib>
#include <initializer_list>
#include <string>

#include "base/Text.h"

namespace quillon::test {

/// Aborts the fuzzer when a condition is violated.
inline void Require(bool promise) {
  if (!promise) std::abort();
}

/// Requires that every text is UTF-8 and no longer than its file can explain: one byte becomes at most three.
inline void RequireSoundTexts(std::initializer_list<std::string> texts, std::size_t fileLength) {
  for (const std::string& text : texts) Require(IsValidUtf8(text) && text.size() <= 3 * fileLength);
}

}  // namespace quillon::test
