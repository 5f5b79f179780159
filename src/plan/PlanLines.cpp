#include "plan/PlanLines.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "plan/Json.h"

namespace quillon {
namespace {

bool BeginsAsObject(std::string_view line) {
  const std::size_t brace = line.find_first_not_of(" \t");
  if (brace == std::string_view::npos || line[brace] != '{') return false;
  const std::size_t quote = line.find_first_not_of(" \t", brace + 1);
  return quote != std::string_view::npos && line[quote] == '"';
}

std::optional<NameLine> ObjectLine(std::string_view line, std::size_t number) {
  const std::optional<Json> object = ParseObject(line);
  if (!object) return std::nullopt;
  std::optional<std::string> path = PathOf(*object, "path");
  std::optional<std::string> name = PathOf(*object, "name");
  if (!path || path->empty() || !name || IsBlank(*name)) return std::nullopt;
  return NameLine{number, std::move(path), *std::move(name)};
}

}  // namespace

Result<std::vector<PlanLine>, std::size_t> ReadPlanLines(std::string_view text) {
  std::vector<PlanLine> plan;
  std::size_t number = 0;
  for (const std::string_view line : TextLines(text)) {
    ++number;
    if (IsBlank(line)) continue;
    const std::optional<Json> object = ParseObject(line);
    if (!object) return number;
    std::optional<std::string> from = PathOf(*object, "old");
    std::optional<std::string> to = PathOf(*object, "new");
    if (!from || from->empty() || !to || to->empty()) return number;
    plan.push_back({number, *std::move(from), *std::move(to)});
  }
  return plan;
}

Result<std::vector<NameLine>, std::size_t> ReadNameLines(std::string_view text) {
  std::vector<std::string_view> lines = TextLines(text);
  while (!lines.empty() && IsBlank(lines.back())) lines.pop_back();
  const auto first = std::find_if_not(lines.begin(), lines.end(), IsBlank);
  const bool objects = first != lines.end() && BeginsAsObject(*first);
  std::vector<NameLine> names;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (!objects) {
      if (IsBlank(lines[i]) || !IsValidUtf8(lines[i])) return i + 1;
      names.push_back({i + 1, std::nullopt, std::string(lines[i])});
    } else if (!IsBlank(lines[i])) {
      std::optional<NameLine> name = ObjectLine(lines[i], i + 1);
      if (!name) return i + 1;
      names.push_back(*std::move(name));
    }
  }
  return names;
}

}  // namespace quillon
