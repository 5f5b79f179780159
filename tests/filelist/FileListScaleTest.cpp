#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "filelist/FileList.h"
#include "support/ByteOrder.h"
#include "support/Growth.h"
#include "support/MemoryFileSystem.h"
#include "support/Recorders.h"
#include "support/Rows.h"

namespace quillon {
namespace {

std::string PathOf(int number) {
  return "/folder " + std::to_string(number / 1000) + "/" + std::to_string(number) + ".mid";
}

void Fill(FileList& list, int count) {
  list.BeginChanges();
  for (int i = 1; i <= count; ++i) list.Add(test::RowFor(PathOf(i), PathStyle::kLinux));
  list.EndChanges();
}

struct Operation {
  const char* name;
  std::function<void(FileList&)> run;
};

std::vector<Operation> Operations() {
  return {
      {"add", [](FileList& list) { Fill(list, list.Count()); }},
      {"check one after the other, asking for the first",
       [](FileList& list) {
         for (int i = 1; i <= list.Count(); ++i) {
           list.SetChecked(i, true);
           (void)list.FirstCheckedIndex();
         }
       }},
      {"select one after the other, asking for the first",
       [](FileList& list) {
         for (int i = 1; i <= list.Count(); ++i) {
           list.SelectOnly(i);
           (void)list.SelectedIndex();
         }
       }},
      {"select all, then none",
       [](FileList& list) {
         for (int i = list.Count(); i > 0; --i) list.SetSelected(i, true);
         list.SelectNone();
       }},
      {"check all, invert, uncheck",
       [](FileList& list) {
         list.CheckAll();
         list.InvertChecks();
         list.UncheckAll();
       }},
      {"new locations",
       [](FileList& list) {
         for (int i = 1; i <= list.Count(); ++i) list.SetLocation(i, "/new" + list.Row(i).Location());
       }},
      {"edit in one step, take it back and do it again",
       [](FileList& list) {
         list.Edits().Begin(EditHistory::Merging::kNever);
         for (int i = 1; i <= list.Count(); ++i) list.SetRenameName(i, "new " + std::to_string(i));
         list.Edits().End();
         (void)list.UndoEdits();
         (void)list.RedoEdits();
       }},
      {"apply an edited list row by row",
       [](FileList& list) {
         list.Edits().Begin(EditHistory::Merging::kNever);
         for (int i = 1; i <= list.Count(); ++i) list.SetRenameName(i, "new " + std::to_string(i));
         list.Edits().End();
         list.Edits().Begin(EditHistory::Merging::kNever);
         for (int i = 1; i <= list.Count(); ++i) list.ForgetEdits(i);
         list.Edits().End();
       }},
      {"new rows in place",
       [](FileList& list) {
         for (int i = 1; i <= list.Count(); ++i) list.Replace(i, list.Row(i).Item());
       }},
      {"ask for files and folders",
       [](FileList& list) {
         for (int i = 1; i <= list.Count(); ++i) {
           (void)list.ContainsFile(PathOf(i));
           (void)list.ContainsFolder(PathOf(i));
         }
       }},
      {"remove every other row",
       [](FileList& list) { list.RemoveWhere([](int i, const FileRow&) { return i % 2 == 0; }); }},
      {"sort twice",
       [](FileList& list) {
         list.Sort(Column::kLocation, test::ByteOrder());
         list.Sort(Column::kType, test::ByteOrder());
       }},
      {"clear", [](FileList& list) { list.Clear(); }},
  };
}

TEST(FileListScale, NoOperationIsQuadratic) {
  for (const Operation& operation : Operations()) {
    const auto work = [&](int count) {
      FileList list(PathStyle::kLinux);
      Fill(list, count);
      return test::Seconds([&] { operation.run(list); });
    };
    EXPECT_FALSE(test::GrowsQuadratically(work)) << operation.name;
  }
}

// So many that the hashes of some are equal.
TEST(FileListScale, FilesOfOneNameAreToldApartByTheirFolders) {
  constexpr int kFolders = 300'000;
  FileList list(PathStyle::kLinux);
  const auto path = [](int folder, const char* name) { return "/" + std::to_string(folder) + "/" + name; };
  for (int i = 0; i < kFolders; ++i) list.Add(test::RowFor(path(i, i % 2 == 0 ? "a" : "b"), PathStyle::kLinux));
  int found = 0;
  for (int i = 0; i < kFolders; ++i) found += list.ContainsFile(path(i, "a")) ? 1 : 0;
  EXPECT_EQ(found, kFolders / 2);
}

}  // namespace
}  // namespace quillon
