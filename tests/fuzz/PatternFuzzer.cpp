#include <cstddef>
#include <cstdint>
#include <string>

#include "base/Text.h"
#include "fuzz/Require.h"
#include "pattern/NamePattern.h"

// The input: a byte that says how long the pattern is, the pattern, and the text of every field.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quillon;
  if (size < 1 || size > 1024) return 0;
  const std::string bytes(data + 1, data + size);
  const std::string pattern = bytes.substr(0, data[0]);
  PatternValues values;
  values.name = values.folder = values.type = bytes.substr(pattern.size());
  values.song.title = values.song.artist = values.song.album = values.song.genre = values.name;
  values.song.track = 1;
  values.modified = static_cast<std::int64_t>(size) << (data[0] % 64u);
  const Result<NamePattern, PatternError> parsed = NamePattern::Parse(pattern);
  if (!parsed) {
    test::Require(parsed.Failure().position >= 1 && parsed.Failure().position <= CharacterCount(pattern));
    return 0;
  }
  const std::string name = parsed->Text(values);
  test::Require(CharacterCount(name) <= 32767 && Trim(name) == name);
  return 0;
}
