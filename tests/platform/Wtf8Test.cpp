#include <gtest/gtest.h>

#include "platform/Wtf8.h"

namespace quillon::test {
namespace {

TEST(Wtf8, EveryNameOfWindowsComesBackUnchanged) {
  struct Row {
    const char* name;
    std::u16string units;
    std::string bytes;
  };
  const Row rows[] = {{"nothing", u"", ""},
                      {"ASCII", u"song.mid", "song.mid"},
                      {"Japanese", u"曲名", "曲名"},
                      {"a pair of surrogates", u"\xD83D\xDE00", "😀"},
                      {"the last character", u"\xDBFF\xDFFF", "\xF4\x8F\xBF\xBF"},
                      {"a high surrogate alone", u"a\xD83D", "a\xED\xA0\xBD"},
                      {"a low surrogate alone", u"\xDE00z", "\xED\xB8\x80z"},
                      {"two in the wrong order", u"\xDE00\xD83D", "\xED\xB8\x80\xED\xA0\xBD"},
                      {"two high ones before a low one", u"\xD83D\xD83D\xDE00", "\xED\xA0\xBD😀"},
                      {"neighbours of the surrogates", u"\xD7FF\xE000", "\xED\x9F\xBF\xEE\x80\x80"}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Utf16ToWtf8(row.units), row.bytes);
    EXPECT_EQ(Wtf8ToUtf16(row.bytes), row.units);
  }
}

TEST(Wtf8, InvalidBytesAreRejected) {
  for (const char* bytes : {"\xFF", "a\x80", "\xED\xA0", "\xED\xA0z", "\xC0\x80", "\xF4\x90\x80\x80", "\xE3\x81"}) {
    EXPECT_EQ(Wtf8ToUtf16(bytes), std::nullopt);
  }
}

}  // namespace
}  // namespace quillon::test
