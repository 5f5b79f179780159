#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <set>
#include <sstream>
#include <utility>

#include "base/Product.h"
#include "help/HelpFolder.h"

/// The pages that a browser shows.
namespace quillon::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::SizeIs;

bool IsOutside(const std::string& address) {
  return address.find("://") != std::string::npos;
}

/// The page, and the anchor on it, that a link on `page` leads to.
std::pair<std::string, std::string> Target(const std::string& page, const std::string& address) {
  const std::size_t mark = address.find('#');
  const std::string name = address.substr(0, mark);
  return {name.empty() ? page : name, mark == std::string::npos ? std::string() : address.substr(mark + 1)};
}

TEST(HelpPages, AreThere) {
  EXPECT_GE(Pages().size(), 20u);
  EXPECT_THAT(FilesBelow(HelpFolder()), Contains("index.html"));
}

TEST(HelpPages, AreMadeOfEverySource) {
  for (const std::string& name : FilesBelow(HelpSources() / "pages")) {
    EXPECT_TRUE(Pages().contains(name)) << name << " is in no chapter of contents.txt";
  }
}

TEST(HelpPages, HaveATitleThatIsTheirHeading) {
  std::set<std::string> titles;
  for (const auto& [name, page] : Pages()) {
    const std::vector<std::string> headings = page.Texts("//h1");
    ASSERT_THAT(headings, SizeIs(1)) << name;
    EXPECT_EQ(page.Texts("/html/head/title"), headings) << name;
    EXPECT_TRUE(titles.insert(headings.front()).second) << "two pages with the title " << headings.front();
  }
}

TEST(HelpPages, SayThatTheyAreJapaneseInUtf8) {
  for (const auto& [name, page] : Pages()) {
    EXPECT_THAT(page.Texts("/html/@lang"), Contains("ja")) << name;
    EXPECT_THAT(page.Texts("//meta/@content"), Contains("text/html; charset=UTF-8")) << name;
  }
}

TEST(HelpPages, HaveLinksThatLeadSomewhere) {
  for (const auto& [name, page] : Pages()) {
    for (const std::string& address : page.Texts("//a/@href")) {
      if (IsOutside(address)) {
        EXPECT_EQ(address, kProductUrl) << name;
        continue;
      }
      const auto [target, anchor] = Target(name, address);
      ASSERT_TRUE(Pages().contains(target)) << address << " on " << name;
      if (!anchor.empty()) {
        EXPECT_THAT(PageOf(target).Texts("//@id"), Contains(anchor)) << address << " on " << name;
      }
    }
  }
}

TEST(HelpPages, HaveUniqueAnchors) {
  for (const auto& [name, page] : Pages()) {
    const std::vector<std::string> ids = page.Texts("//@id");
    EXPECT_EQ(std::set<std::string>(ids.begin(), ids.end()).size(), ids.size()) << name;
  }
}

TEST(HelpPages, ShowEveryImageAndNoOther) {
  std::set<std::string> shown;
  for (const auto& [name, page] : Pages()) {
    for (const Node& image : page.Find("//img")) {
      shown.insert(image.Attribute("src"));
      EXPECT_NE(image.Attribute("alt"), "") << image.Attribute("src") << " on " << name;
    }
  }
  std::set<std::string> files;
  for (const std::string& name : FilesBelow(HelpFolder() / "images")) files.insert("images/" + name);
  EXPECT_EQ(shown, files);
}

TEST(HelpPages, ShowImagesInTheirOwnSize) {
  for (const auto& [name, page] : Pages()) {
    for (const Node& image : page.Find("//img")) {
      const std::string bytes = FileBytes(HelpFolder() / image.Attribute("src"));
      EXPECT_LT(bytes.size(), 40'000u) << image.Attribute("src");
      EXPECT_EQ(image.Attribute("width") + "x" + image.Attribute("height"), SizeOfPng(bytes))
          << image.Attribute("src") << " on " << name;
    }
  }
}

TEST(HelpPages, ShowThePicturesOfTheLinuxProgram) {
  const std::vector<std::string> names = FilesBelow(HelpFolder() / "images");
  EXPECT_EQ(names, FilesBelow(HelpSources() / "images" / "windows"));
  for (const std::string& name : names) {
    EXPECT_EQ(FileBytes(HelpFolder() / "images" / name), FileBytes(HelpSources() / "images" / "linux" / name)) << name;
  }
}

std::string LinkCalled(const Page& page, const std::string& text) {
  for (const Node& link : page.Find("//p[@class='nav']/a")) {
    if (link.Text().find(text) != std::string::npos) return link.Attribute("href");
  }
  return {};
}

TEST(HelpPages, LeadOnThroughAllOfThemAndBack) {
  std::vector<std::string> visited;
  for (std::string name = "index.html"; !name.empty(); name = LinkCalled(PageOf(name), "次へ")) {
    ASSERT_THAT(visited, testing::Not(Contains(name)));
    EXPECT_EQ(LinkCalled(PageOf(name), "前へ"), visited.empty() ? "" : visited.back()) << name;
    EXPECT_EQ(LinkCalled(PageOf(name), "目次"), "index.html") << name;
    visited.push_back(name);
  }
  EXPECT_THAT(visited, SizeIs(Pages().size()));
}

TEST(HelpPages, AreAllInTheTableOfContents) {
  const std::vector<std::string> links = PageOf("index.html").Texts("//ul[@class='contents']//a/@href");
  for (const auto& [name, page] : Pages()) {
    if (name != "index.html") {
      EXPECT_THAT(links, Contains(name));
    }
  }
}

/// The parts of a source's text between its placeholders.
std::vector<std::string> PartsOfSource(const std::string& source) {
  const std::optional<Page> page = Page::Parse("<div>" + source + "</div>", "UTF-8");
  EXPECT_TRUE(page);
  static const std::regex kFilledIn("@[A-Z]+@");
  const std::string text = page ? WithoutBlanks(page->Text()) : std::string();
  return {std::sregex_token_iterator(text.begin(), text.end(), kFilledIn, -1), {}};
}

TEST(HelpPages, HoldAllTextsOfTheirSources) {
  for (const auto& [name, page] : Pages()) {
    const std::string text = WithoutBlanks(page.Text());
    std::size_t at = 0;
    for (const std::string& part : PartsOfSource(FileBytes(HelpSources() / "pages" / name))) {
      const std::size_t found = text.find(part, at);
      ASSERT_NE(found, std::string::npos) << name << " lacks: " << part;
      at = found + part.size();
    }
    EXPECT_EQ(text.find('@'), std::string::npos) << name << " holds something that is not filled in";
  }
}

TEST(HelpPages, NameTheProduct) {
  const std::string index = PageOf("index.html").Text();
  EXPECT_THAT(index, HasSubstr(std::string(kProductName) + " " + kProductVersion));
  EXPECT_THAT(PageOf("about.html").Texts("//a/@href"), Contains(kProductUrl));
}

// A line break between two Japanese characters would be seen as a gap.
TEST(HelpPages, HaveNoLineBreaksInTheirSentences) {
  for (const auto& [name, page] : Pages()) {
    for (const Node& block : page.Find("//p | //li | //td | //dd | //dt | //th")) {
      for (const Node& text : block.Find("./text()")) {
        if (Trimmed(text.Text()).empty()) continue;
        EXPECT_EQ(text.Text().find('\n'), std::string::npos) << name << ": " << text.Text();
      }
    }
  }
}

}  // namespace
}  // namespace quillon::test
