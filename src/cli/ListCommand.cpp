#include "cli/Commands.h"
#include "cli/Output.h"
#include "cli/Reasons.h"
#include "cli/Table.h"
#include "plan/Json.h"

namespace quillon::cli {
namespace {

std::string JsonRow(const FileRow& row) {
  JsonLine line;
  line.Text("rename_name", row.renameName).Text("title", row.title).Text("artist", row.artist);
  line.Text("type", row.type.Text()).Text("size", ColumnText(row, Column::kSize)).Path("location", row.Location());
  return line.Take();
}

void WriteRows(const FileList& list, Output& output) {
  const auto cell = [&](std::size_t row, std::size_t number) {
    const auto column = static_cast<Column>(number);
    return row == 0 ? Heading(column) : ColumnText(list.Row(static_cast<int>(row)), column);
  };
  WriteTable(static_cast<std::size_t>(list.Count()) + 1, kColumnCount, cell, output);
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
