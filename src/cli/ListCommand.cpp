#include "cli/Commands.h"
#include "cli/Output.h"
#include "cli/Reasons.h"
#include "cli/Table.h"
#include "plan/Json.h"

namespace quillon::cli {
namespace {

std::string JsonRow(const FileItem& row) {
  Json object;
  object["rename_name"] = row.renameName;
  object["title"] = row.title;
  object["artist"] = row.artist;
  object["type"] = row.type.Text();
  object["size"] = ColumnText(row, Column::kSize);
  AddPath(object, "location", row.location);
  return OneLine(object);
}

void WriteRows(const FileList& list, Output& output) {
  std::vector<std::vector<std::string>> rows;
  rows.reserve(static_cast<std::size_t>(list.Count()) + 1);
  std::vector<std::string> cells;
  cells.reserve(kColumnCount);
  for (int column = 0; column < kColumnCount; ++column) cells.push_back(Heading(static_cast<Column>(column)));
  rows.push_back(cells);
  for (int index = 1; index <= list.Count(); ++index) {
    cells.clear();
    for (int column = 0; column < kColumnCount; ++column) {
      cells.push_back(ColumnText(list.Row(index), static_cast<Column>(column)));
    }
    rows.push_back(cells);
  }
  WriteTable(rows, output);
}

}  // namespace

int RunList(const ListArguments& arguments) {
  Session session({});
  session.tags = arguments.tags;
  const bool complete = session.Load(arguments.selection);
  if (session.list.Count() == 0) return kNothingLoaded;
  Output output;
  if (arguments.json) {
    for (int index = 1; index <= session.list.Count() && !output.Closed(); ++index) {
      output.Line(JsonRow(session.list.Row(index)));
    }
  } else {
    WriteRows(session.list, output);
  }
  return output.Flush() && complete ? kDone : kSomeFailed;
}

}  // namespace quillon::cli
