#include "help/SourceTexts.h"

#include <filesystem>
#include <regex>
#include <sstream>

#include "base/Text.h"
#include "help/HelpFolder.h"

namespace quillon::test {
namespace {

namespace fs = std::filesystem;

constexpr char32_t kFirstKana = 0x3040;
constexpr char32_t kLastKanji = 0x9FFF;

std::string Unescaped(const std::string& literal) {
  std::string text;
  for (std::size_t i = 0; i < literal.size(); ++i) {
    if (literal[i] != '\\' || i + 1 == literal.size()) {
      text += literal[i];
      continue;
    }
    const char escape = literal[++i];
    text += escape == 'n' || escape == 'r' ? '\n' : escape == 't' ? '\t' : escape;
  }
  return text;
}

void AppendLines(const std::string& file, const std::string& code, std::vector<SourceText>& texts) {
  // A comment, a character, or a string with its content.
  static const std::regex kToken(R"re(//[^\n]*|'(?:[^'\\\n]|\\.)*'|"((?:[^"\\\n]|\\.)*)")re");
  for (auto token = std::sregex_iterator(code.begin(), code.end(), kToken); token != std::sregex_iterator(); ++token) {
    if (!(*token)[1].matched) continue;
    std::istringstream lines(Unescaped((*token)[1]));
    for (std::string line; std::getline(lines, line);) {
      if (!Trimmed(line).empty()) texts.push_back({file, Trimmed(line)});
    }
  }
}

std::vector<SourceText> ReadTexts() {
  const fs::path source = fs::path(QUILLON_SOURCE_DIR) / "src";
  std::vector<SourceText> texts;
  for (const std::string& file : FilesBelow(source)) {
    if (file.ends_with(".cpp") || file.ends_with(".h")) AppendLines(file, FileBytes(source / file), texts);
  }
  return texts;
}

}  // namespace

const std::vector<SourceText>& SourceTexts() {
  static const std::vector<SourceText> texts = ReadTexts();
  return texts;
}

bool IsJapanese(const std::string& text) {
  for (std::size_t i = 0; i < text.size();) {
    const Character c = CharacterAt(text, i);
    if (c.valid && c.codePoint >= kFirstKana && c.codePoint <= kLastKanji) return true;
    i += c.length;
  }
  return false;
}

}  // namespace quillon::test
