#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <optional>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "help/ChmFile.h"
#include "help/HelpFolder.h"
#include "platform/Ansi.h"

/// The compiled help file, for Windows' viewer.
namespace quillon::test {
namespace {

using testing::Contains;

constexpr std::uint32_t kJapanese = 0x411;

const ChmFile& Compiled() {
  static const ChmFile file(CompiledHelp().string());
  return file;
}

std::string Contained(const std::string& name) {
  const std::optional<std::string> bytes = Compiled().Read(name);
  EXPECT_TRUE(bytes) << name << " is not in the compiled help";
  return bytes.value_or("");
}

/// An entry of the contents or the index; `page` is empty for a chapter.
struct Entry {
  std::string name;
  std::string page;
};

std::vector<Entry> Entries(const std::string& file) {
  static const std::regex kEntry(
      "<param name=\"Name\" value=\"([^\"]*)\">\\s*(?:<param name=\"Local\" value=\"([^\"]*)\">)?");
  const std::string text = AnsiToUtf8(Contained(file));
  std::vector<Entry> entries;
  for (auto found = std::sregex_iterator(text.begin(), text.end(), kEntry); found != std::sregex_iterator(); ++found) {
    entries.push_back({(*found)[1], (*found)[2]});
  }
  return entries;
}

std::size_t Count(const std::string& text, std::string_view what) {
  std::size_t count = 0;
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++count;
  return count;
}

TEST(CompiledHelp, OpensInJapanese) {
  ASSERT_TRUE(Compiled().IsOpen());
  const ChmSystem system = Compiled().System();
  EXPECT_EQ(system.language, kJapanese);
  EXPECT_EQ(AnsiToUtf8(system.title), PageOf("index.html").Texts("//h1").front());
  EXPECT_EQ(system.defaultTopic, "index.html");
  EXPECT_EQ(system.contents, "help.hhc");
  EXPECT_EQ(system.index, "help.hhk");
}

// The systems' pictures differ in their sizes.
std::string WithoutImageSizes(const std::string& page) {
  static const std::regex kSize(" width=\"\\d+\" height=\"\\d+\"");
  return std::regex_replace(page, kSize, "");
}

TEST(CompiledHelp, HoldsThePagesOfTheFolderInWindowsCodePage) {
  for (const auto& [name, page] : Pages()) {
    const std::string bytes = Contained(name);
    std::string expected = FileBytes(HelpFolder() / name);
    expected.replace(expected.find("charset=UTF-8"), 13, "charset=Shift_JIS");
    EXPECT_EQ(WithoutImageSizes(AnsiToUtf8(bytes)), WithoutImageSizes(expected)) << name;
    const std::optional<Page> parsed = Page::Parse(bytes, "CP932");
    ASSERT_TRUE(parsed) << name;
    EXPECT_EQ(parsed->Text(), page.Text()) << name;
  }
}

TEST(CompiledHelp, HoldsTheStyleOfThePages) {
  EXPECT_EQ(Contained("style.css"), FileBytes(HelpFolder() / "style.css"));
}

TEST(CompiledHelp, ShowsThePicturesOfTheWindowsProgramInTheirOwnSize) {
  for (const auto& [name, page] : Pages()) {
    const std::optional<Page> compiled = Page::Parse(Contained(name), "CP932");
    ASSERT_TRUE(compiled) << name;
    for (const Node& image : compiled->Find("//img")) {
      const std::string source = image.Attribute("src");
      const std::string picture = source.substr(source.rfind('/') + 1);
      const std::string bytes = Contained(source);
      EXPECT_EQ(bytes, FileBytes(HelpSources() / "images" / "windows" / picture)) << source;
      EXPECT_NE(bytes, FileBytes(HelpSources() / "images" / "linux" / picture)) << source;
      EXPECT_EQ(image.Attribute("width") + "x" + image.Attribute("height"), SizeOfPng(bytes))
          << source << " on " << name;
    }
  }
}

TEST(CompiledHelp, HasATreeOfAllPages) {
  std::set<std::string> reached;
  std::size_t chapters = 0;
  for (const Entry& entry : Entries("help.hhc")) {
    if (entry.page.empty()) {
      ++chapters;
      continue;
    }
    ASSERT_TRUE(Pages().contains(entry.page)) << entry.page;
    EXPECT_EQ(entry.name, PageOf(entry.page).Texts("//h1").front());
    EXPECT_TRUE(reached.insert(entry.page).second) << entry.page << " stands there twice";
  }
  EXPECT_EQ(reached.size(), Pages().size());
  EXPECT_EQ(chapters, PageOf("index.html").Find("//ul[@class='contents']/li").size());
  const std::string tree = Contained("help.hhc");
  EXPECT_EQ(Count(tree, "<UL>"), chapters + 1);
  EXPECT_EQ(Count(tree, "<UL>"), Count(tree, "</UL>"));
}

TEST(CompiledHelp, HasAnIndexThatLeadsToItsPages) {
  const std::vector<Entry> entries = Entries("help.hhk");
  std::set<std::string> names;
  for (const Entry& entry : entries) {
    EXPECT_TRUE(names.insert(entry.name).second) << entry.name << " stands there twice";
    const std::size_t mark = entry.page.find('#');
    const std::string page = entry.page.substr(0, mark);
    ASSERT_TRUE(Pages().contains(page)) << entry.name << ": " << entry.page;
    if (mark == std::string::npos) continue;
    EXPECT_THAT(PageOf(page).Texts("//@id"), Contains(entry.page.substr(mark + 1))) << entry.name;
  }
  EXPECT_EQ(entries.size(), PageOf("keywords.html").Find("//h2/following-sibling::ul/li").size());
  EXPECT_GE(entries.size(), 100u);
}

}  // namespace
}  // namespace quillon::test
