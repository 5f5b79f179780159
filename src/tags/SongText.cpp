#include "tags/SongText.h"

#include <id3v1genres.h>

#include <charconv>

#include "base/Text.h"
#include "media/StoredText.h"
#include "media/TextLimit.h"

namespace quillon {
namespace {

constexpr int kGenres = 256;
constexpr std::int64_t kLargestNumber = 32767;

/// The cut keeps characters whole.
std::string_view CutToCharacters(std::string_view text) {
  if (text.size() <= kLongestText) return text;
  std::size_t end = kLongestText;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0u) == 0x80) --end;
  return text.substr(0, end);
}

/// nullopt unless the whole text is a number.
std::optional<int> WholeNumber(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || text.empty()) return std::nullopt;
  return number;
}

}  // namespace

std::string SongText(std::string_view text) {
  text = Trim(CutToCharacters(text.substr(0, text.find('\0'))));
  if (text == "---") return {};
  return IsValidUtf8(text) ? std::string(text) : WithReplacementCharacters(text);
}

std::string TagText(const TagLib::String& text) {
  return SongText(text.to8Bit(true));
}

std::string StoredTitle(const TagLib::String& text) {
  return text.isLatin1() ? SongText(DecodeStoredText(text.to8Bit(false), StoredText::kUtf8OrAnsi)) : TagText(text);
}

std::string GenreName(int number) {
  return number >= 0 && number < kGenres ? TagText(TagLib::ID3v1::genre(number)) : std::string();
}

std::string GenreName(std::string_view genre) {
  genre = Trim(genre);
  if (const std::optional<int> number = WholeNumber(genre)) return GenreName(*number);
  const std::size_t close = genre.find(')');
  if (!genre.starts_with('(') || close == std::string_view::npos) return SongText(genre);
  const std::optional<int> number = WholeNumber(genre.substr(1, close - 1));
  if (!number) return SongText(genre);
  std::string name = GenreName(*number);
  return name.empty() ? SongText(genre.substr(close + 1)) : name;
}

int SongNumber(std::int64_t number) {
  return number > 0 && number <= kLargestNumber ? static_cast<int>(number) : 0;
}

int SongNumber(std::string_view text) {
  return SongNumber(LeadingNumber(text));
}

SongDetails DetailsOf(const TagLib::Tag& tag) {
  return {.title = TagText(tag.title()),
          .artist = TagText(tag.artist()),
          .album = TagText(tag.album()),
          .genre = TagText(tag.genre()),
          .track = SongNumber(std::int64_t{tag.track()}),
          .year = SongNumber(std::int64_t{tag.year()})};
}

}  // namespace quillon
