#include "help/HelpFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>
#include <utility>

namespace quillon::test {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kBlanks = " \t\r\n";

std::map<std::string, Page> ReadPages() {
  std::map<std::string, Page> pages;
  for (const std::string& name : FilesBelow(HelpFolder())) {
    if (!name.ends_with(".html")) continue;
    std::optional<Page> page = Page::Parse(FileBytes(HelpFolder() / name), "UTF-8");
    EXPECT_TRUE(page) << name << " is not well formed";
    if (page) pages.emplace(name, *std::move(page));
  }
  return pages;
}

}  // namespace

fs::path HelpFolder() {
  return QUILLON_HELP_FOLDER;
}

fs::path CompiledHelp() {
  return QUILLON_HELP_FILE;
}

fs::path HelpSources() {
  return fs::path(QUILLON_SOURCE_DIR) / "help";
}

std::string FileBytes(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << "cannot read " << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string SizeOfPng(const std::string& bytes) {
  constexpr std::size_t kWidth = 16;
  constexpr std::size_t kHeight = 20;
  if (bytes.size() < kHeight + 4) return "no picture";
  const auto number = [&](std::size_t at) {  // below 65,536
    return static_cast<unsigned char>(bytes[at + 2]) * 256 + static_cast<unsigned char>(bytes[at + 3]);
  };
  return std::to_string(number(kWidth)) + "x" + std::to_string(number(kHeight));
}

const std::map<std::string, Page>& Pages() {
  static const std::map<std::string, Page> pages = ReadPages();
  return pages;
}

const Page& PageOf(const std::string& name) {
  return Pages().at(name);
}

std::vector<std::string> FilesBelow(const fs::path& folder) {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) names.push_back(fs::relative(entry.path(), folder).generic_string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string WithoutBlanks(std::string_view text) {
  std::string result;
  std::copy_if(text.begin(), text.end(), std::back_inserter(result),
               [](char c) { return kBlanks.find(c) == std::string_view::npos; });
  return result;
}

std::string Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

std::string PlainCaption(std::string_view caption) {
  static const std::regex kAccessKey(R"(\(&?[0-9A-Z]\)|\.\.\.$|&)");
  return std::regex_replace(std::string(caption.substr(0, caption.find('\t'))), kAccessKey, "");
}

}  // namespace quillon::test
