#pragma once

#include <memory>
#include <string>

#include "filelist/FileList.h"
#include "filelist/FileLoader.h"
#include "filelist/WindowPorts.h"
#include "platform/FileSystem.h"
#include "rename/TitleRename.h"
#include "rename/basQuillon.h"
#include "settings/ApplyMode.h"

namespace quillon::benchmarks {

/// Ports that do nothing.
class Nobody final : public MessageBoxes,
                     public PendingMessages,
                     public StatusPanels,
                     public FilePanel,
                     public WindowState,
                     public PlayerControl,
                     public ProgressDisplay,
                     public SearchDisplay,
                     public FolderDialog,
                     public RegexEngine {
 public:
  bool Show(const Message&) override { return true; }
  void Process() override {}
  void SetPlayerText(const std::string&) override {}
  void SetModeText(const std::string&) override {}
  void Reset() override {}
  void ShowRow(int) override {}
  void ShowFileName(const std::string&) override {}
  void SetPointer(Pointer) override {}
  void SetEnabled(bool) override {}
  void FocusList() override {}
  void ScrollToRow(int) override {}
  void ReleaseFile(const std::string&) override {}
  void Stop() override {}
  void Choose(const std::string&) override {}
  void FileMoved(const std::string&, const std::string&) override {}
  void FileRemoved(const std::string&) override {}
  void Begin(const std::string&, const std::string&) override {}
  void Update(const std::string&, const std::string&) override {}
  void End() override {}
  void ShowFolder(const std::string&) override {}
  void PassedOver(const std::string&, Obstacle) override {}
  std::string Choose(const std::string&, const std::string&, const std::string&) override { return {}; }
  std::optional<std::string> Replace(std::string_view, std::string_view) override { return std::nullopt; }
};

/// The program without a window.
struct Program {
  Program() { options.list.searchSubfolders = true; }

  Nobody nobody;
  FileList list;
  OptionValues options;
  ApplyMode mode;
  std::unique_ptr<FileReads> files = MakeFileReads();
  std::unique_ptr<FileChanges> disk = MakeFileChanges();
  FileLoader loader{list, options, mode, {*files, nobody, nobody, nobody, nobody, nobody, nobody, nobody, nobody}};
  RenameEngine engine{list, options, mode, {*files, *disk, nobody, nobody, nobody, nobody}};
  TitleRename titles{list, options, mode, engine, {nobody, nobody, nobody, nobody, nobody}};
};

}  // namespace quillon::benchmarks
