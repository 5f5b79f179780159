#include "cli/GivenNames.h"

#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "cli/Input.h"
#include "cli/Messages.h"
#include "cli/Output.h"
#include "paths/basFileControl.h"
#include "plan/PlanLines.h"

namespace quillon::cli {
namespace {

void ComplainAt(const std::string& path, std::size_t line, const HelpText& text, const std::string& subject = {}) {
  Complain(path + ":" + std::to_string(line) + ": " + Localized(text) + (subject.empty() ? "" : ": " + subject));
}

// The row of each name, in the order of the lines; empty after a complaint.
std::vector<int> RowsOf(const std::vector<NameLine>& names, const std::string& path, const FileList& list) {
  std::unordered_map<std::string, int> listed;
  for (int row = 1; row <= list.Count(); ++row) listed.emplace(PathIdentity(list.Row(row).Location()), row);
  std::vector<int> rows;
  std::unordered_set<int> named;
  for (const NameLine& name : names) {
    const std::string location = FullPath(*name.path);
    const auto found = listed.find(PathIdentity(location));
    if (found == listed.end()) {
      ComplainAt(path, name.number, messages::kNotListed, location);
      return {};
    }
    if (!named.insert(found->second).second) {
      ComplainAt(path, name.number, messages::kNamedTwice, location);
      return {};
    }
    rows.push_back(found->second);
  }
  return rows;
}

}  // namespace

bool GiveNames(const std::string& path, Session& session) {
  const std::optional<std::string> text = ReadInput(path);
  if (!text) return false;
  const Result<std::vector<NameLine>, std::size_t> names = ReadNameLines(*text);
  if (!names) {
    ComplainAt(path, names.Failure(), messages::kNoName);
    return false;
  }
  const bool byPath = !names->empty() && names->front().path;
  if (byPath) {
    const std::vector<int> rows = RowsOf(*names, path, session.list);
    for (std::size_t i = 0; i < rows.size(); ++i) session.list.SetRenameName(rows[i], (*names)[i].name);
    return !rows.empty();
  }
  const auto count = static_cast<std::size_t>(session.list.Count());
  if (names->size() != count) {
    Complain(path + ": " + Localized(messages::kCountDiffers) + std::to_string(names->size()) + " / " +
             std::to_string(count));
    return false;
  }
  for (const NameLine& name : *names) session.list.SetRenameName(static_cast<int>(name.number), name.name);
  return true;
}

}  // namespace quillon::cli
