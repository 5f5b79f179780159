#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "lint/Rules.h"

// These tests show every rule failing.
namespace quillon::lint {
namespace {

using Rule = Findings (*)(const SourceFile&);

struct Row {
  const char* name;
  const char* path;
  std::string text;
  std::vector<std::size_t> expectedLines;
};

void ExpectEach(Rule rule, const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    std::vector<std::size_t> lines;
    for (const Finding& finding : rule({row.path, row.text})) {
      EXPECT_EQ(finding.path, row.path);
      EXPECT_FALSE(finding.what.empty());
      lines.push_back(finding.line);
    }
    EXPECT_EQ(lines, row.expectedLines);
  }
}

TEST(SystemMacros, BelongIntoThePlatformFolder) {
  const std::string windows = std::string("_") + "WIN32";
  const std::string linux = std::string("__") + "linux__";
  ExpectEach(FindSystemMacros, {
                                   {"ifdef", "src/base/Text.cpp", "int a;\n#ifdef " + windows + "\n#endif\n", {2}},
                                   {"defined", "src/app/a.h", "#if defined(" + linux + ")\n#endif\n", {1}},
                                   {"twice", "src/app/a.h", "#if " + windows + "\n#elif " + linux + "\n", {1, 2}},
                                   {"in a test", "tests/base/TextTest.cpp", "#ifndef " + windows + "\n", {1}},
                                   {"in a benchmark", "benchmarks/Names.cpp", "#ifdef " + linux + "\n", {1}},
                                   {"platform", "src/platform/linux/a.cpp", "#ifdef " + linux + "\n", {}},
                                   {"test for one system", "tests/platform/linux/a.cpp", "#ifdef " + linux, {}},
                                   {"file for one system", "tests/support/Process_windows.cpp", windows, {}},
                                   {"a system's name in src is no excuse", "src/app/Start_linux.cpp", linux, {1}},
                                   {"part of a longer name", "src/app/a.h", "int MY" + windows + "_COUNT;\n", {}},
                                   {"only underscores", "src/app/a.h", "int _; int __;\n", {}},
                                   {"other macros", "src/app/a.h", "#ifdef NDEBUG\n#endif\n", {}},
                                   {"no code", "cmake/Dependencies.cmake", windows + "\n", {}},
                               });
}

TEST(SystemHeaders, BelongIntoThePlatformFolder) {
  ExpectEach(FindSystemHeaders,
             {
                 {"Windows", "src/app/a.cpp", "#include <windows.h>\n", {1}},
                 {"Windows, capital letter", "src/app/a.cpp", "#include <Windows.h>\n", {1}},
                 {"POSIX", "src/media/a.cpp", "#include <string>\n#include <unistd.h>\n", {2}},
                 {"POSIX folder", "src/media/a.cpp", "#include <sys/stat.h>\n", {1}},
                 {"each of these",
                  "src/cli/a.cpp",
                  "#include <fcntl.h>\n#include <dirent.h>\n#include <dlfcn.h>\n#include <iconv.h>\n",
                  {1, 2, 3, 4}},
                 {"GLib and GStreamer",
                  "src/player/a.h",
                  "#include <glib.h>\n#include <gio/gio.h>\n#include <gst/gst.h>\n",
                  {1, 2, 3}},
                 {"blanks", "src/app/a.cpp", "  #  include   <unistd.h>  // why\n", {1}},
                 {"platform", "src/platform/windows/a.cpp", "#include <windows.h>\n", {}},
                 {"a test for one system", "tests/support/Process_linux.cpp", "#include <unistd.h>\n", {}},
                 {"a benchmark", "benchmarks/Files.cpp", "#include <unistd.h>\n", {}},
                 {"a test for all", "tests/support/Process.cpp", "#include <unistd.h>\n", {1}},
                 {"standard library", "src/app/a.cpp", "#include <csignal>\n#include <system_error>\n", {}},
                 {"similar names", "src/app/a.cpp", "#include <systems.h>\n#include <gstring.h>\n", {}},
                 {"in a comment", "src/app/a.cpp", "// #include <unistd.h>\n", {}},
             });
}

TEST(WindowHeaders, BelongIntoWindows) {
  ExpectEach(FindWindowHeaders,
             {
                 {"logic", "src/rename/a.cpp", "#include <wx/string.h>\n", {1}},
                 {"logic, quoted", "src/rename/a.h", "#include \"wx/wx.h\"\n", {1}},
                 {"platform", "src/platform/a.cpp", "#include <wx/string.h>\n", {1}},
                 {"beside a window", "src/app/MainMenu.cpp", "#include <wx/menu.h>\n", {1}},
                 {"window", "src/app/window/frmMain.cpp", "#include <wx/frame.h>\n", {}},
                 {"window's header", "src/dialogs/window/frmOption.h", "#include <wx/dialog.h>\n", {}},
                 {"a window's name elsewhere", "src/filelist/lvwFiles.cpp", "#include <wx/listctrl.h>\n", {1}},
                 {"shared by windows", "src/controls/Twips.cpp", "#include <wx/a.h>\n", {}},
                 {"the program", "src/quillon/basSubMain.cpp", "#include <wx/a.h>\n", {}},
                 {"test", "tests/gui/a.cpp", "#include <wx/wx.h>\n", {}},
                 {"another library", "src/app/a.cpp", "#include <wxyz/a.h>\n", {}},
             });
}

TEST(Includes, PointDownwards) {
  ExpectEach(
      FindUpwardIncludes,
      {
          {"base knows nobody", "src/base/a.cpp", "#include \"platform/Ansi.h\"\n", {1}},
          {"own folder", "src/base/a.cpp", "#include \"base/Text.h\"\n", {}},
          {"platform uses base",
           "src/platform/linux/a.cpp",
           "#include \"base/Text.h\"\n#include \"platform/b.h\"\n",
           {}},
          {"platform and logic", "src/platform/a.cpp", "#include \"media/MediaInfo.h\"\n", {1}},
          {"settings use the platform", "src/settings/a.cpp", "#include \"platform/Ansi.h\"\n", {}},
          {"settings and application", "src/settings/a.cpp", "#include \"app/window/frmMain.h\"\n", {1}},
          {"settings and paths", "src/settings/a.cpp", "#include \"paths/basFileControl.h\"\n", {1}},
          {"paths and their list", "src/paths/a.cpp", "#include \"filelist/FileItem.h\"\n", {1}},
          {"list uses settings, paths, media",
           "src/filelist/a.cpp",
           "#include \"settings/OptionValues.h\"\n#include \"paths/a.h\"\n#include \"media/a.h\"\n",
           {}},
          {"media and the list", "src/media/a.cpp", "#include \"filelist/FileItem.h\"\n", {1}},
          {"list and application",
           "src/filelist/a.cpp",
           "#include \"base/a.h\"\n#include \"app/window/frmMain.h\"\n",
           {2}},
          {"rename uses the list", "src/rename/a.cpp", "#include \"filelist/FileList.h\"\n", {}},
          {"rename and fileops", "src/rename/a.cpp", "#include \"fileops/FileCommands.h\"\n", {1}},
          {"fileops and rename", "src/fileops/a.cpp", "#include \"rename/basQuillon.h\"\n", {1}},
          {"player and dialogs", "src/player/a.cpp", "#include \"dialogs/OptionForm.h\"\n", {1}},
          {"dialogs and player", "src/dialogs/a.cpp", "#include \"player/a.h\"\n", {1}},
          {"a window and its logic", "src/player/window/a.cpp", "#include \"player/a.h\"\n", {}},
          {"logic and its window", "src/player/a.cpp", "#include \"player/window/frmMoviePlayer.h\"\n", {1}},
          {"a window and another subsystem's", "src/rename/window/a.cpp", "#include \"filelist/window/a.h\"\n", {1}},
          {"windows and what they share", "src/rename/window/a.cpp", "#include \"controls/Twips.h\"\n", {}},
          {"what windows share and logic", "src/controls/a.cpp", "#include \"rename/a.h\"\n", {1}},
          {"main window uses every window", "src/app/window/a.cpp", "#include \"rename/window/frmModify.h\"\n", {}},
          {"application and command line", "src/app/a.cpp", "#include \"cli/Output.h\"\n", {1}},
          {"command line and application", "src/cli/a.cpp", "#include \"app/a.h\"\n#include \"rename/a.h\"\n", {1}},
          {"expressions use the platform", "src/bregexp/a.cpp", "#include \"platform/Ansi.h\"\n", {}},
          {"expressions and settings", "src/bregexp/a.cpp", "#include \"settings/OptionValues.h\"\n", {1}},
          {"a folder nobody placed", "src/new/a.cpp", "", {0}},
          {"not from src", "src/app/a.cpp", "#include \"Text.h\"\n", {1}},
          {"up by dots", "src/base/a.cpp", "#include \"../app/a.h\"\n", {1}},
          {"tests include anything", "tests/base/a.cpp", "#include \"cli/Output.h\"\n", {}},
          {"benchmarks include anything", "benchmarks/a.cpp", "#include \"app/a.h\"\n", {}},
          {"libraries", "src/base/a.cpp", "#include <utf8proc.h>\n", {}},
      });
}

TEST(PragmaOnce, StandsInEveryHeader) {
  ExpectEach(FindMissingPragmaOnce, {
                                        {"missing", "src/base/a.h", "int a;\n", {0}},
                                        {"missing in a test's", "tests/support/a.h", "", {0}},
                                        {"in a comment", "src/base/a.h", "// #pragma once\n", {0}},
                                        {"there", "src/base/a.h", "#pragma once\n\nint a;\n", {}},
                                        {"behind a comment", "src/base/a.h", "// a\n#pragma once\n", {}},
                                        {"no header", "src/base/a.cpp", "int a;\n", {}},
                                    });
}

TEST(LongFiles, EndAtTheLimit) {
  const std::string longest(kMostLines, '\n');
  ExpectEach(FindLongFiles, {
                                {"at the limit", "src/base/a.cpp", longest, {}},
                                {"above", "src/base/a.cpp", longest + "\n", {0}},
                                {"header above", "src/base/a.h", longest + "\n", {0}},
                                {"test", "tests/base/a.cpp", longest + "\n", {}},
                            });
}

TEST(ForbiddenWords, AreFoundInAnyFileAndAnyCase) {
  std::vector<Row> rows = {
      {"full name", "src/a.h", "a\n// spec#ification\n", {2}},
      {"capitals, plural", "README.md", "SPEC#IFICATIONS", {1}},
      {"its file", "a.txt", "see spec#.md.", {1}},
      {"reference", "a.cpp", "// As Spec#ified above", {1}},
      {"chapter", "a.cpp", "// Part# 12.3: list", {1}},
      {"chapter in lower case", "a.cpp", "// part# 1.2", {1}},
      {"helper", "a.py", "sub#agent", {1}},
      {"helpers", "a.py", "Sub#agents", {1}},
      {"report", "a.md", "Closing# notes", {1}},
      {"workplace", "run.sh", "cd /#work/main", {1}},
      {"workplace in quotes", "run.sh", "a\nb\n\"/#work/main\"", {3}},
      {"one finding a line", "a.md", "sub#agent, spec#ification", {1}},
      {"a title that is not published", "a.h", "MIDI Spec#ification", {1}},
      {"a published title and more", "a.h", "XDG Base Directory Spec#ification, our spec#ification", {1}},
      {"a published title", "a.h", "/// \"XDG Base Directory Spec#ification\" 0.8", {}},
      {"parts of words", "a.md", "specific, unspec#ificationlike", {}},
      {"whole numbers", "a.md", "Part 2 of 3", {}},
      {"a folder of another name", "a.md", "net/#work/x, ./#work/x, /workshop/", {}},
      {"other words", "a.md", "specify, agent, closing the note", {}},
  };
  // The words are written with "#" in them, because this file is checked, too.
  for (Row& row : rows) std::erase(row.text, '#');
  ExpectEach(FindForbiddenWords, rows);
}

}  // namespace
}  // namespace quillon::lint
