/// A foreign library under our library's name: it has a `Replace`, but no version or, with QUILLON_OTHER_VERSION, a
/// different one.
#include "bregexp/bregexp.h"
#include "platform/ExportedSymbol.h"

extern "C" QUILLON_EXPORTED BregexpReplace Replace;

std::size_t Replace(const char*, std::size_t, const char*, std::size_t, char* result, std::size_t capacity, void**) {
  if (capacity > 0) *result = '!';
  return 1;
}

#ifdef QUILLON_OTHER_VERSION
extern "C" QUILLON_EXPORTED BregexpVersion QuillonRegexVersion;

int QuillonRegexVersion() {
  return kBregexpVersion + 1;
}
#endif
