#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/Process.h"

// What documents say of the sources is so.
namespace quillon::lint {
namespace {

namespace fs = std::filesystem;

const fs::path kRoot = QUILLON_SOURCE_DIR;

std::string Read(const fs::path& path) {
  std::ifstream file(kRoot / path, std::ios::binary);
  EXPECT_TRUE(file) << "cannot read " << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

using Groups = std::vector<std::string>;

/// The groups of every match, the whole of it first.
std::vector<Groups> Matches(const std::string& text, const std::string& pattern) {
  const std::regex compiled(pattern);
  std::vector<Groups> matches;
  for (auto match = std::sregex_iterator(text.begin(), text.end(), compiled); match != std::sregex_iterator();
       ++match) {
    matches.emplace_back();
    for (std::size_t i = 0; i < match->size(); ++i) matches.back().push_back(match->str(i));
  }
  return matches;
}

std::set<std::string> WordsOf(const std::string& text) {
  std::istringstream words(text);
  return {std::istream_iterator<std::string>(words), {}};
}

TEST(Architecture, StepsAreWhereTheWalksSay) {
  const std::string page = Read("docs/architecture.md");
  const std::vector<Groups> steps = Matches(page, "\\n[0-9]+\\. `([a-zA-Z/_0-9]+\\.(?:h|cpp))`: `([A-Za-z:]+)`");
  EXPECT_GT(steps.size(), 30U);
  for (const Groups& step : steps) {
    const std::string code = Read("src/" + step[1]);
    const bool isMember = step[2].find("::") != std::string::npos;
    EXPECT_TRUE(std::regex_search(code, std::regex("\\b" + step[2] + (isMember ? "\\(" : "\\b"))))
        << step[1] << " has no " << step[2];
  }
}

TEST(Architecture, FilesAreThere) {
  const std::string page = Read("docs/architecture.md");
  const std::vector<Groups> names = Matches(page, "`((?:[a-zA-Z_]+/)+[A-Za-z_]+\\.(?:h|cpp|txt|sh|py))`");
  EXPECT_GT(names.size(), 40U);
  for (const Groups& name : names) {
    EXPECT_TRUE(fs::exists(kRoot / name[1]) || fs::exists(kRoot / "src" / name[1])) << name[1];
  }
}

TEST(Architecture, FoldersAreTheOnesOfTheSources) {
  const std::string page = Read("docs/architecture.md");
  const std::size_t start = page.find("| folder |");
  const std::string table = page.substr(start, page.find("\n\n", start) - start);
  std::set<std::string> named;
  for (const Groups& name : Matches(table, "`([a-z/]+)`(?=[, |])")) named.insert(name[1]);
  for (const Groups& folder : Matches(Read("tests/lint/Rules.cpp"), "\\{\"([a-z/]+)/\", [0-9]+\\}")) {
    EXPECT_TRUE(named.contains(folder[1])) << folder[1];
  }
}

/// Whether a string literal of the source has Japanese letters; comments do not count.
bool HasJapaneseTexts(const std::string& source) {
  static const std::regex kLiteralOrComment("\"(?:\\\\.|[^\"\\\\\\n])*\"|//[^\\n]*");
  // The first bytes of kana and of the most common kanji in UTF-8.
  static const std::regex kJapanese("[\xe3-\xe9][\x80-\xbf][\x80-\xbf]");
  for (auto part = std::sregex_iterator(source.begin(), source.end(), kLiteralOrComment);
       part != std::sregex_iterator(); ++part) {
    const std::string text = part->str();
    if (text.front() == '"' && std::regex_search(text, kJapanese)) return true;
  }
  return false;
}

TEST(Architecture, TextsStandWhereItSays) {
  const std::string page = Read("docs/architecture.md");
  const std::size_t start = page.find("| what a person reads |");
  ASSERT_NE(start, std::string::npos);
  std::set<std::string> named;
  for (const Groups& name :
       Matches(page.substr(start, page.find("\n\n", start) - start), "`([A-Za-z_/]+\\.(?:h|cpp))`")) {
    named.insert(name[1]);
  }
  std::set<std::string> found;
  for (const auto& entry : fs::recursive_directory_iterator(kRoot / "src")) {
    const fs::path path = fs::relative(entry.path(), kRoot);
    const bool isSource = path.extension() == ".cpp" || path.extension() == ".h";
    if (isSource && HasJapaneseTexts(Read(path))) found.insert(fs::relative(path, "src").generic_string());
  }
  EXPECT_GT(found.size(), 40U);
  for (const std::string& path : found) EXPECT_TRUE(named.contains(path)) << path << " is not in the table";
  for (const std::string& path : named) EXPECT_TRUE(found.contains(path)) << path << " has no texts";
}

TEST(Architecture, GlossaryNamesKeysOfTheSettingsFile) {
  const std::string page = Read("docs/architecture.md");
  const std::string table = page.substr(page.find("| section and key |"));
  const std::string code = Read("src/settings/SettingsTable.h");
  int found = 0;
  for (const Groups& row : Matches(table, "\\n\\| ([^|]+) \\| ([^|]+) \\|")) {
    for (const Groups& key : Matches(row[1], "`[0-4]?([A-Za-z]+)`")) {
      ++found;
      EXPECT_NE(code.find(key[1] + "\""), std::string::npos) << key[1];
    }
    for (const Groups& option : Matches(row[2], "`([a-z]+\\.[a-zA-Z]+)[`\\[]")) {
      ++found;
      EXPECT_NE(code.find(option[1]), std::string::npos) << option[1];
    }
  }
  EXPECT_GT(found, 60);
}

/// The packages that a build with tests needs, and those that its tests need.
TEST(Readme, NamesThePackagesOfTheScripts) {
  const test::ProcessResult lists = test::RunProcess(
      "/bin/bash", {"-c", ". \"$0\"; echo \"${linux_packages[@]}\" \"${test_packages[@]}\" \"${window_packages[@]}\"",
                    (kRoot / "scripts/common.sh").string()});
  const std::set<std::string> packages = WordsOf(lists.output);
  ASSERT_GT(packages.size(), 30U) << lists.errors;
  for (const char* name : {"README.md", "README.ja.md"}) {
    SCOPED_TRACE(name);
    const std::string page = Read(name);
    const std::size_t start = page.find("sudo apt install g++");
    ASSERT_NE(start, std::string::npos);
    const std::set<std::string> named = WordsOf(page.substr(start, page.find("```", start) - start));
    for (const std::string& package : packages) EXPECT_TRUE(named.contains(package)) << package;
  }
}

std::string FirstMatch(const std::string& file, const std::string& pattern) {
  const std::vector<Groups> matches = Matches(Read(file), pattern);
  EXPECT_FALSE(matches.empty()) << file << " has no " << pattern;
  return matches.empty() ? "" : matches[0][1];
}

std::string Version() {
  return FirstMatch("CMakeLists.txt", "project\\(Quillon VERSION ([0-9.]+)");
}

std::string ProductSetting(const std::string& name) {
  return FirstMatch("cmake/Product.cmake", "set\\(" + name + " \"([^\"]*)\"\\)");
}

TEST(Changelogs, BeginWithTheVersionOfTheProject) {
  EXPECT_EQ(FirstMatch("CHANGELOG.md", "\n## ([0-9.]+)"), Version());
  EXPECT_EQ(FirstMatch("debian/changelog", "quillon \\(([0-9.]+)-[0-9]+\\)"), Version());
}

TEST(Changelogs, HaveTheDayOfTheProject) {
  static const std::vector<std::string> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                   "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  // A later revision of the package has a day of its own.
  const std::string entry = FirstMatch(
      "debian/changelog",
      "quillon \\(" + Version() + "-1\\)[\\s\\S]*?\\n -- [^\\n]*, ([0-9]{2} [A-Z][a-z]{2} [0-9]{4}) 00:00:00 \\+0000");
  const std::string date = ProductSetting("QUILLON_DATE");
  ASSERT_EQ(date.size(), 10U);
  const std::size_t month = std::stoul(date.substr(5, 2));
  ASSERT_TRUE(month >= 1 && month <= kMonths.size());
  EXPECT_EQ(entry, date.substr(8) + " " + kMonths[month - 1] + " " + date.substr(0, 4));
}

TEST(DebianControl, NamesMaintainerAndAddressOfTheProject) {
  EXPECT_EQ(FirstMatch("debian/control", "\nMaintainer: ([^\n]*)"), ProductSetting("QUILLON_MAINTAINER"));
  EXPECT_EQ(FirstMatch("debian/control", "\nHomepage: ([^\n]*)"), ProductSetting("QUILLON_URL"));
  EXPECT_EQ(FirstMatch("debian/watch", "\n([^ ]*)download"), ProductSetting("QUILLON_URL"));
}

TEST(Readme, NamesThePackagesOfThisVersion) {
  const std::string debian = FirstMatch("debian/changelog", "quillon \\(([^)]+)\\)");
  for (const char* name : {"README.md", "README.ja.md"}) {
    SCOPED_TRACE(name);
    const std::string page = Read(name);
    EXPECT_NE(page.find("quillon_" + debian + "_amd64.deb"), std::string::npos);
    EXPECT_NE(page.find("Quillon-" + Version() + "-setup.exe"), std::string::npos);
    EXPECT_NE(page.find("Quillon-" + Version() + "-portable.zip"), std::string::npos);
  }
}

}  // namespace
}  // namespace quillon::lint
