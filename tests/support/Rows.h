#pragma once

#include <string>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "filelist/FileList.h"
#include "paths/basFileControl.h"

/// Helpers to make and read rows of a file list.
namespace quillon::test {

/// An unchecked row for the file with this path; its rename name is the current base name.
inline FileItem RowFor(std::string location, PathStyle style = SystemPathStyle()) {
  FileItem row;
  row.renameName = BaseName(location, style);
  row.title = row.artist = "---";
  row.type = ToLower(Extension(location, style));
  row.location = std::move(location);
  return row;
}

template <class Of>
auto FromEachRow(const FileList& list, Of of) {
  std::vector<decltype(of(list.Row(1)))> values;
  for (int index = 1; index <= list.Count(); ++index) values.push_back(of(list.Row(index)));
  return values;
}

inline std::vector<std::string> Locations(const FileList& list) {
  return FromEachRow(list, [](const FileRow& row) { return row.Location(); });
}

inline std::vector<std::string> RenameNames(const FileList& list) {
  return FromEachRow(list, [](const FileRow& row) { return std::string(row.renameName); });
}

/// The indices of the rows for which `holds` is true.
template <class Holds>
std::vector<int> RowsWhere(const FileList& list, Holds holds) {
  std::vector<int> indices;
  for (int index = 1; index <= list.Count(); ++index) {
    if (holds(list.Row(index))) indices.push_back(index);
  }
  return indices;
}

inline std::vector<int> CheckedRows(const FileList& list) {
  return RowsWhere(list, [](const FileRow& row) { return row.checked; });
}

inline std::vector<int> SelectedRows(const FileList& list) {
  return RowsWhere(list, [](const FileRow& row) { return row.selected; });
}

}  // namespace quillon::test
