#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "app/CommandTable.h"
#include "base/Text.h"
#include "dialogs/OptionTable.h"
#include "help/HelpFolder.h"
#include "help/SourceTexts.h"
#include "media/MediaType.h"
#include "tags/TagLibReader.h"

/// The help describes everything that the program has, and nothing else.
namespace quillon::test {
namespace {

using testing::HasSubstr;

std::string TextOf(const std::string& page) {
  return WithoutBlanks(PageOf(page).Text());
}

std::vector<Command> AllCommands() {
  std::vector<Command> commands;
  const auto append = [&](std::span<const Command> more) { commands.insert(commands.end(), more.begin(), more.end()); };
  for (const MenuEntries& menu : MenuBarEntries()) append(menu.commands);
  append(SortCommands());
  append(RowMenuCommands());
  std::erase(commands, Command::kSeparator);
  return commands;
}

/// The rows of the page of commands that begin with the caption.
std::vector<Node> RowsOf(const std::string& caption) {
  std::vector<Node> rows;
  for (const Node& row : PageOf("commands.html").Find("//tr[td]")) {
    const std::string first = row.Find("./td").front().Text();
    if (first == caption || first == caption + " ＊") rows.push_back(row);
  }
  return rows;
}

TEST(HelpCompleteness, NamesEveryMenu) {
  for (const MenuEntries& menu : MenuBarEntries()) {
    EXPECT_THAT(TextOf("commands.html"), HasSubstr(PlainCaption(menu.caption) + "メニュー"));
  }
  EXPECT_THAT(TextOf("commands.html"), HasSubstr(PlainCaption(kSortCaption)));
}

TEST(HelpCompleteness, NamesEveryCommandWithItsKeys) {
  for (const Command command : AllCommands()) {
    const CommandEntry& entry = EntryOf(command);
    const std::string caption = PlainCaption(entry.caption);
    if (std::ranges::find(SortCommands(), command) != SortCommands().end()) {
      EXPECT_THAT(TextOf("commands.html"), HasSubstr(caption));
      continue;
    }
    const std::vector<Node> rows = RowsOf(caption);
    EXPECT_FALSE(rows.empty()) << caption;
    for (const Node& row : rows) {
      EXPECT_EQ(row.Find("./td").at(1).Text(), entry.shortcut) << caption;
      const bool marked = row.Find("./td").front().Text() != caption;
      EXPECT_EQ(marked, entry.mode == InMode::kManual) << caption;
    }
  }
}

TEST(HelpCompleteness, ListsEveryKeyOfACommand) {
  const std::string keys = TextOf("keys.html");
  for (const Command command : AllCommands()) {
    const CommandEntry& entry = EntryOf(command);
    if (*entry.shortcut != '\0') {
      EXPECT_THAT(keys, HasSubstr(WithoutBlanks(PlainCaption(entry.caption))));
    }
  }
}

TEST(HelpCompleteness, NamesEveryButtonOfTheToolBar) {
  for (const ToolBarButton& button : ToolBarButtons()) {
    EXPECT_THAT(TextOf("window.html"), HasSubstr(button.label));
    EXPECT_THAT(TextOf("window.html"), HasSubstr(PlainCaption(button.allCaption)));
  }
}

TEST(HelpCompleteness, ExplainsEveryOptionUnderItsPage) {
  for (const OptionPage& page : OptionPages()) {
    EXPECT_THAT(PageOf("options.html").Texts("//h2"), testing::Contains(page.caption));
    for (const OptionFrame& frame : page.frames) {
      for (const OptionControl& control : frame.controls) {
        if (control.kind == OptionKind::kTextBox || control.kind == OptionKind::kNote) continue;
        bool found = false;
        for (const std::string& term :
             PageOf("options.html").Texts("//dt[preceding::h2[1]='" + std::string(page.caption) + "']")) {
          found = found || term.find(PlainCaption(control.caption)) != std::string::npos;
        }
        EXPECT_TRUE(found) << page.caption << ": " << control.caption;
      }
    }
  }
}

/// The lines of the messages that the page of messages quotes.
std::set<std::string> QuotedLines() {
  std::set<std::string> lines;
  for (const Node& cell : PageOf("messages.html").Find("//td[@class='message']")) {
    std::istringstream text(cell.TextWithoutPlaceholders());
    for (std::string line; std::getline(text, line);) {
      if (!Trimmed(line).empty()) lines.insert(Trimmed(line));
    }
  }
  return lines;
}

TEST(HelpCompleteness, QuotesOnlyMessagesThatTheProgramHas) {
  std::set<std::string> known;
  for (const SourceText& text : SourceTexts()) known.insert(text.line);
  EXPECT_GE(QuotedLines().size(), 50u);
  for (const std::string& line : QuotedLines()) EXPECT_TRUE(known.contains(line)) << line;
}

/// Recognises a message by its words, because messages are put together in many places.
bool LooksLikeAMessage(const SourceText& text) {
  static constexpr std::array<std::string_view, 8> kWords = {"ません", "ください", "します", "ですか",
                                                             "中断",   "既に",     "可能性", "エラーが"};
  // The messages of quillon-cli and of --help appear in a terminal; options, patterns and the preview of rules have
  // their own pages.
  const bool elsewhere = text.file.starts_with("cli/") || text.file.starts_with("pattern/") ||
                         text.file == "rename/ModifyPreview.cpp" || text.file == "rename/RegexProblem.cpp" ||
                         text.file == "app/CommandLine.cpp" || text.file == "dialogs/OptionTable.cpp";
  return !elsewhere && IsJapanese(text.line) && std::any_of(kWords.begin(), kWords.end(), [&](std::string_view word) {
    return text.line.find(word) != std::string::npos;
  });
}

TEST(HelpCompleteness, QuotesEveryMessageThatAsksOrReportsAFailure) {
  const std::set<std::string> quoted = QuotedLines();
  std::size_t count = 0;
  for (const SourceText& text : SourceTexts()) {
    if (!LooksLikeAMessage(text)) continue;
    ++count;
    EXPECT_TRUE(quoted.contains(text.line)) << text.file << ": " << text.line;
  }
  EXPECT_GE(count, 40u);
}

TEST(HelpCompleteness, NamesTheTypesWhoseTagsAreRead) {
  const std::vector<Node> codes = PageOf("tags.html").Find("//h2[@id='formats']/following-sibling::table[1]//code");
  std::size_t count = 0;
  for (const Node& code : codes) {
    std::istringstream extensions(code.Text());
    for (std::string extension; extensions >> extension; ++count) {
      EXPECT_TRUE(HasMoreTags(GetMediaType(ToUpper(extension)))) << extension;
    }
  }
  EXPECT_GE(count, 30u);
  for (const std::string_view extension : UsualMusicExtensions()) {
    EXPECT_THAT(TextOf("tags.html"), HasSubstr(std::string(extension)));
  }
}

struct Window {
  const char* file;
  const char* page;
};

TEST(HelpCompleteness, NamesEveryCaptionOfTheOtherWindows) {
  constexpr std::array kWindows = {Window{"rename/window/frmModifyLayout.cpp", "modify.html"},
                                   Window{"rename/ModifyPreview.cpp", "modify.html"},
                                   Window{"rename/RegexProblem.cpp", "regex.html"},
                                   Window{"rename/window/frmModifyPresets.cpp", "modify.html"},
                                   Window{"pattern/window/frmPatternLayout.cpp", "pattern.html"},
                                   Window{"pattern/PatternFields.cpp", "pattern.html"},
                                   Window{"pattern/PatternForm.cpp", "pattern.html"},
                                   Window{"pattern/PatternPreview.cpp", "pattern.html"},
                                   Window{"player/window/frmMoviePlayer.cpp", "player.html"},
                                   Window{"dialogs/window/frmDirShow.cpp", "list.html"},
                                   Window{"app/window/frmMainFindLine.cpp", "list.html"}};
  for (const auto& [file, page] : kWindows) {
    std::size_t count = 0;
    for (const SourceText& text : SourceTexts()) {
      if (text.file != file || !IsJapanese(text.line) || LooksLikeAMessage(text)) continue;
      ++count;
      EXPECT_THAT(TextOf(page), HasSubstr(WithoutBlanks(PlainCaption(text.line)))) << file;
    }
    EXPECT_GE(count, 1u) << file;
  }
}

}  // namespace
}  // namespace quillon::test
