#include "cli/Table.h"

#include <utf8proc.h>

#include <algorithm>
#include <vector>

#include "base/Text.h"

namespace quillon::cli {
namespace {

bool IsPlain(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= 0x20 && c < 0x7F; });
}

// The character that is shown for this one.
char32_t Shown(char32_t codePoint) {
  const bool control = codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
  return control ? 0xFFFD : codePoint;
}

std::size_t WidthOf(std::string_view text) {
  if (IsPlain(text)) return text.size();
  std::size_t width = 0;
  for (std::size_t i = 0; i < text.size();) {
    const Character c = CharacterAt(text, i);
    const auto shown = static_cast<utf8proc_int32_t>(Shown(c.codePoint));
    width += static_cast<std::size_t>(std::max(0, utf8proc_charwidth(shown)));
    i += c.length;
  }
  return width;
}

void AppendOnOneLine(std::string& line, std::string_view text) {
  if (IsPlain(text)) {
    line += text;
    return;
  }
  for (std::size_t i = 0; i < text.size();) {
    const Character c = CharacterAt(text, i);
    AppendUtf8(line, Shown(c.codePoint));
    i += c.length;
  }
}

}  // namespace

std::string OnOneLine(std::string_view text) {
  std::string line;
  AppendOnOneLine(line, text);
  return line;
}

void WriteTable(std::size_t rows, std::size_t columns, const CellText& cell, Output& output) {
  std::vector<std::size_t> widths(columns);
  for (std::size_t row = 0; row < rows; ++row) {
    for (std::size_t i = 0; i + 1 < columns; ++i) widths[i] = std::max(widths[i], WidthOf(cell(row, i)));
  }
  std::string line;
  for (std::size_t row = 0; row < rows && !output.Closed(); ++row) {
    line.clear();
    for (std::size_t i = 0; i < columns; ++i) {
      const std::string text = cell(row, i);
      AppendOnOneLine(line, text);
      if (i + 1 < columns) line.append(widths[i] - WidthOf(text) + 2, ' ');
    }
    output.Line(line);
  }
}

}  // namespace quillon::cli
