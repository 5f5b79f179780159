#include "cli/Table.h"

#include <utf8proc.h>

#include <algorithm>

#include "base/Text.h"

namespace quillon::cli {
namespace {

struct Cell {
  std::string text;
  std::size_t width = 0;
};

Cell MakeCell(const std::string& text) {
  Cell cell;
  for (std::size_t i = 0; i < text.size();) {
    const Character c = CharacterAt(text, i);
    const bool control = c.codePoint < 0x20 || (c.codePoint >= 0x7F && c.codePoint < 0xA0);
    const char32_t shown = control ? 0xFFFD : c.codePoint;
    AppendUtf8(cell.text, shown);
    cell.width += static_cast<std::size_t>(std::max(0, utf8proc_charwidth(static_cast<utf8proc_int32_t>(shown))));
    i += c.length;
  }
  return cell;
}

}  // namespace

std::string OnOneLine(const std::string& text) {
  return MakeCell(text).text;
}

void WriteTable(const std::vector<std::vector<std::string>>& rows, Output& output) {
  std::vector<std::size_t> widths;
  for (const std::vector<std::string>& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], MakeCell(row[i]).width);
  }
  for (const std::vector<std::string>& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const Cell cell = MakeCell(row[i]);
      line += cell.text;
      if (i + 1 < row.size()) line.append(widths[i] - cell.width + 2, ' ');
    }
    output.Line(line);
  }
}

}  // namespace quillon::cli
