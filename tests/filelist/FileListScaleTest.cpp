#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "filelist/FileList.h"
#include "filelist/FileLoader.h"
#include "filelist/ListCommands.h"
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
         for (int i = 1; i <= list.Count(); ++i) list.SetLocation(i, "/new" + list.Row(i).location);
       }},
      {"new rows in place",
       [](FileList& list) {
         for (int i = 1; i <= list.Count(); ++i) list.Replace(i, list.Row(i));
       }},
      {"ask for files and folders",
       [](FileList& list) {
         for (int i = 1; i <= list.Count(); ++i) {
           (void)list.ContainsFile(PathOf(i));
           (void)list.ContainsFolder(PathOf(i));
         }
       }},
      {"remove every other row",
       [](FileList& list) { list.RemoveWhere([](int i, const FileItem&) { return i % 2 == 0; }); }},
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

TEST(FileListScale, AFolderLoadIsNotQuadratic) {
  const auto work = [](int count) {
    test::MemoryFileSystem files({PathStyle::kLinux, false});
    for (int i = 1; i <= count; ++i) files.AddFile("/m/" + std::to_string(i) + ".txt");
    test::Recorders ports;
    FileList list(PathStyle::kLinux);
    OptionValues options;
    options.find.filterByExtension = false;
    ApplyMode mode;
    FileLoader loader(list, options, mode,
                      {files, ports.boxes, ports.pending, ports.search, ports.progress, ports.folders, ports.panels,
                       ports.filePanel, ports.player},
                      PathStyle::kLinux);
    const double seconds = test::Seconds([&] { loader.LoadFolder("/m/"); });
    EXPECT_EQ(list.Count(), count);
    return seconds;
  };
  EXPECT_FALSE(test::GrowsQuadratically(work));
}

TEST(FileListScale, RemovingUncheckedRowsIsNotQuadratic) {
  const auto work = [](int count) {
    test::Recorders ports;
    FileList list(PathStyle::kLinux);
    const OptionValues options;
    ApplyMode mode;
    ListCommands commands(list, options, mode, {ports.boxes, ports.panels, ports.filePanel, ports.player});
    Fill(list, count);
    for (int i = 1; i <= count; i += 2) list.SetChecked(i, true);
    const double seconds = test::Seconds([&] { commands.mnuUnChkListRem(); });
    EXPECT_EQ(list.Count(), (count + 1) / 2);
    return seconds;
  };
  EXPECT_FALSE(test::GrowsQuadratically(work));
}

}  // namespace
}  // namespace quillon
