#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "plan/Json.h"

namespace quillon::test {
namespace {

void ExpectTheLibrarysBytes(const std::string& text) {
  Json object;
  object["text"] = text;
  AddPath(object, "path", text);
  EXPECT_EQ(JsonLine().Text("text", text).Path("path", text).Take(), OneLine(object));
}

TEST(JsonLine, EveryByteIsWrittenAsTheLibraryWritesIt) {
  for (int byte = 0; byte < 256; ++byte) {
    SCOPED_TRACE(byte);
    const auto c = static_cast<char>(byte);
    ExpectTheLibrarysBytes(std::string(1, c));
    ExpectTheLibrarysBytes(std::string("before") + c + "after");
  }
}

TEST(JsonLine, CharactersOfEveryLengthAndDamagedOnesAreWrittenAsTheLibraryWritesThem) {
  for (const char* const text :
       {"", "さくら \"日本古謡\"", "é", "\U0001F3B5", "\uFFFD", "\u2028", "\xED\xA0\x80", "\xC0\x80",
        "\xF4\x90\x80\x80", "\xE3\x81", "\xE3\x81z", "\xF0\x9F\x8E", "\x80\x80", "C:\\a\\b", "a/b", "\x7F"}) {
    SCOPED_TRACE(text);
    ExpectTheLibrarysBytes(text);
  }
}

TEST(JsonLine, RandomBytesAreWrittenAsTheLibraryWritesThem) {
  // Lead and continuation bytes are frequent, so that whole characters come up, too.
  const std::string bytes = "a\"\\\n\x01\x7F\x80\x81\xA0\xBF\xC2\xC3\xE3\xED\xEF\xF0\xF4\xFF";
  for (unsigned seed = 1; seed <= 20000; ++seed) {
    std::minstd_rand random(seed);
    std::string text;
    for (std::size_t length = random() % 8; text.size() < length;) text += bytes[random() % bytes.size()];
    ExpectTheLibrarysBytes(text);
  }
}

TEST(JsonLine, NumbersAndTruthAreWrittenAsTheLibraryWritesThem) {
  Json object;
  object["most"] = std::numeric_limits<std::uint64_t>::max();
  object["least"] = std::numeric_limits<std::int64_t>::min();
  object["code"] = 75;
  object["copied"] = true;
  EXPECT_EQ(JsonLine()
                .Number("most", std::numeric_limits<std::uint64_t>::max())
                .Number("least", std::numeric_limits<std::int64_t>::min())
                .Number("code", 75)
                .True("copied")
                .Take(),
            OneLine(object));
  EXPECT_EQ(JsonLine().Take(), "{}");
}

}  // namespace
}  // namespace quillon::test
