#include <gtest/gtest.h>

#include <string>

#include "media/TextLimit.h"
#include "media/basHTMLFile.h"
#include "support/MediaBuilders.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

using namespace test;  // builders are what these tests are written in

Result<std::string, HtmlTitleError> Read(const std::string& bytes) {
  MemorySource file(bytes);
  return ReadHtmlTitle(file);
}

struct TitleCase {
  const char* name;
  std::string page;
  std::string title;
};

TEST(HtmlTitle, IsTheTextBetweenTheTags) {
  const TitleCase cases[] = {
      {"in a page", HtmlPage("Song", "text"), "Song"},
      {"upper case", "<HTML><TITLE>Song</TITLE>", "Song"},
      {"mixed case", "<Title>Song</tITLE>", "Song"},
      {"over two lines, CRLF", "<title>one\r\ntwo</title>", "onetwo"},
      {"over two lines, LF", "<title>one\ntwo</title>", "onetwo"},
      {"over two lines, CR", "<title>one\rtwo</title>", "onetwo"},
      {"empty lines", "<title>\n\n\r\n\rSong\r\n</title>", "Song"},
      {"a tag over two lines", "<ti\r\ntle>Song</titl\ne>", "Song"},
      {"blanks stay", "<title>  Song \t</title>", "  Song \t"},
      {"entities stay", "<title>a &amp; b</title>", "a &amp; b"},
      {"code page 932", "<title>\x89\xCC</title>", "歌"},
      {"characters of two bytes in front", "\x89\xCC\x89\xCC<title>Song</title>", "Song"},
      {"half a character at a line's end", "<title>\x89\n\xCC</title>", "・ﾌ"},
      {"no end tag", "<title>Song", ""},
      {"nothing between", "<title></title>", ""},
      {"neither tag", "Song", ""},
      {"empty file", "", ""},
      {"two titles", "<title>one</title><title>two</title>", "one"},
      {"two start tags", "<title>one<title>two</title>", "one<title>two"},
      {"an end tag in front does not count", "</title><title>Song</title>", "Song"},
      {"an end tag only in front", "</title><title>Song", ""},
      {"attributes are not a start tag", "<title lang=ja>", ""},
      {"blank in the tag", "<title >", ""},
  };
  for (const TitleCase& c : cases) {
    SCOPED_TRACE(c.name);
    const auto title = Read(c.page);
    ASSERT_TRUE(title);
    EXPECT_EQ(*title, c.title);
  }
}

TEST(HtmlTitle, WithoutAStartTagItBeginsAtTheSeventhCharacter) {
  const TitleCase cases[] = {
      {"seven in front", "1234567</title>", "7"},
      {"six in front", "123456</title>", ""},
      {"many in front", "123456 the rest</title>", " the rest"},
      {"characters, not bytes", "\x89\xCC\x89\xCC\x89\xCC\x89\xCC\x89\xCC\x89\xCC\x8E\xE8z</title>", "手z"},
      {"line breaks do not count", "1\r\n2\r\n3\r\n4567</title>", "7"},
  };
  for (const TitleCase& c : cases) {
    SCOPED_TRACE(c.name);
    const auto title = Read(c.page);
    ASSERT_TRUE(title);
    EXPECT_EQ(*title, c.title);
  }
}

TEST(HtmlTitle, AnEndTagAmongTheFirstSixCharactersIsAnError) {
  for (const char* page : {"</title>", "1</title>", "12345</title>", "\x89\xCC\x89\xCC\x89\xCC</title>"}) {
    SCOPED_TRACE(page);
    const auto title = Read(page);
    ASSERT_FALSE(title);
    EXPECT_EQ(title.Failure(), HtmlTitleError::kNegativeLength);
  }
}

TEST(HtmlTitle, ATextIsReadUpTo64KiB) {
  const std::string whole(kLongestText, 'x');
  const TitleCase cases[] = {
      {"just as long", HtmlPage(whole, ""), whole},
      {"longer", HtmlPage(whole + "yz", ""), whole},
      {"half a character at the cut", HtmlPage(whole.substr(1) + "\x89\xCC", ""), whole.substr(1) + "・"},
      {"line breaks do not count", HtmlPage("\n" + whole + "\r\n", ""), whole},
      {"without a start tag", "123456" + whole + "</title>", whole},
      {"line breaks first", std::string(100'000, '\n') + "1234567</title>", "7"},
  };
  for (const TitleCase& c : cases) {
    SCOPED_TRACE(c.name);
    const auto title = Read(c.page);
    ASSERT_TRUE(title);
    EXPECT_EQ(*title, c.title);
  }
}

TEST(HtmlTitle, TagsAreFoundAnywhereInALongPage) {
  // Offsets around the ends of the windows that are read at once.
  for (std::size_t inFront = 65536 - 20; inFront < 65536 + 2; ++inFront) {
    SCOPED_TRACE(inFront);
    const auto title = Read(std::string(inFront, '<') + "<tit\r\nle>So\nng</ti\r\ntle>");
    ASSERT_TRUE(title);
    EXPECT_EQ(*title, "Song");
    const auto behindBreaks = Read(std::string(inFront, '\n') + "<title>Song</title>");
    ASSERT_TRUE(behindBreaks);
    EXPECT_EQ(*behindBreaks, "Song");
  }
}

TEST(HtmlTitle, AFileThatCannotBeReadToItsEndIsAnError) {
  MemorySource file("<title>Song</title>");
  file.unreadable = 1;
  const auto title = ReadHtmlTitle(file);
  ASSERT_FALSE(title);
  EXPECT_EQ(title.Failure(), HtmlTitleError::kUnreadable);
}

TEST(HtmlTitle, AMissingPathIsAnError) {
  const TempFolder folder;
  const auto title = ReadHtmlTitle(folder.At("none.html"));
  ASSERT_FALSE(title);
  EXPECT_EQ(title.Failure(), HtmlTitleError::kUnreadable);
}

TEST(HtmlTitle, ReadsByPath) {
  const TempFolder folder;
  const auto title = ReadHtmlTitle(folder.Write("a.html", HtmlPage("Song", "")));
  ASSERT_TRUE(title);
  EXPECT_EQ(*title, "Song");
}

TEST(HtmlTitle, EveryTruncationGivesTheTitleOrNothing) {
  const std::string page = HtmlPage("Song", "text");
  for (std::size_t length = 0; length < page.size(); ++length) {
    SCOPED_TRACE(length);
    const auto title = Read(page.substr(0, length));
    ASSERT_TRUE(title);
    EXPECT_EQ(*title, length < page.find("</title>") + 8 ? "" : "Song");
  }
}

}  // namespace
}  // namespace quillon
