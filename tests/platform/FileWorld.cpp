#include "platform/FileWorld.h"

#include <algorithm>
#include <filesystem>

#include "support/MemoryFileSystem.h"
#include "support/TempFolder.h"

namespace quillon {

void PrintTo(const FileError& error, std::ostream* out) {
  *out << error.number << " (" << error.description << ")";
}

}  // namespace quillon

namespace quillon::test {
namespace {

namespace fs = std::filesystem;

class SystemWorld final : public FileWorld {
 public:
  explicit SystemWorld(const FileReadsOptions& options) : reads_(MakeFileReads(options)) {}

  FileReads& Reads() override { return *reads_; }
  FileChanges& Changes() override { return *changes_; }
  [[nodiscard]] PathStyle Style() const override { return SystemPathStyle(); }

  [[nodiscard]] bool IgnoresCase() override {
    const TempFolder probe;
    probe.Write("letters");
    return probe.Exists("LETTERS");
  }

  [[nodiscard]] std::string At(std::string_view name) const override { return folder_.At(name); }
  std::string Write(std::string_view name, std::string_view bytes) override { return folder_.Write(name, bytes); }
  std::string MakeFolder(std::string_view name) override { return folder_.MakeFolder(name); }

  [[nodiscard]] bool MakeLink(std::string_view name, std::string_view target, bool toFolder) override {
    std::error_code failed;
    if (toFolder) {
      fs::create_directory_symlink(ToPath(At(target)), ToPath(At(name)), failed);
    } else {
      fs::create_symlink(ToPath(At(target)), ToPath(At(name)), failed);
    }
    return !failed;
  }

  [[nodiscard]] bool MakeHardLink(std::string_view name, std::string_view existing) override {
    std::error_code failed;
    fs::create_hard_link(ToPath(At(existing)), ToPath(At(name)), failed);
    return !failed;
  }

  [[nodiscard]] std::vector<std::string> Names(std::string_view folder) const override {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(ToPath(At(folder)))) {
      const std::u8string name = entry.path().filename().u8string();
      names.emplace_back(name.begin(), name.end());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  [[nodiscard]] std::string Read(std::string_view name) const override { return folder_.Read(name); }

 private:
  TempFolder folder_;
  std::unique_ptr<FileReads> reads_;
  std::unique_ptr<FileChanges> changes_ = MakeFileChanges();
};

class MemoryWorld final : public FileWorld {
 public:
  explicit MemoryWorld(MemoryFileSystem::Options options) : options_(options), files_(options) {
    files_.AddFolder(At(""));
  }

  FileReads& Reads() override { return files_; }
  FileChanges& Changes() override { return files_; }
  [[nodiscard]] PathStyle Style() const override { return options_.style; }
  [[nodiscard]] bool IgnoresCase() override { return options_.ignoreCase; }

  [[nodiscard]] std::string At(std::string_view name) const override {
    if (options_.style == PathStyle::kLinux) return "/home/user/" + std::string(name);
    std::string path(name);
    std::replace(path.begin(), path.end(), '/', '\\');
    return "C:\\Users\\user\\" + path;
  }

  std::string Write(std::string_view name, std::string_view bytes) override {
    files_.AddFile(At(name), bytes);
    return At(name);
  }

  std::string MakeFolder(std::string_view name) override {
    std::string path = At(std::string(name) + "/");
    files_.AddFolder(path);
    return path;
  }

  [[nodiscard]] bool MakeLink(std::string_view name, std::string_view target, bool) override {
    files_.AddLink(At(name), At(target));
    return true;
  }

  [[nodiscard]] bool MakeHardLink(std::string_view name, std::string_view existing) override {
    files_.AddHardLink(At(name), At(existing));
    return true;
  }

  [[nodiscard]] std::vector<std::string> Names(std::string_view folder) const override {
    std::vector<std::string> names = files_.NamesIn(At(folder));
    std::sort(names.begin(), names.end());
    return names;
  }

  [[nodiscard]] std::string Read(std::string_view name) const override { return files_.BytesOf(At(name)); }

 private:
  MemoryFileSystem::Options options_;
  MemoryFileSystem files_;
};

}  // namespace

std::string NameOf(WorldKind kind) {
  switch (kind) {
    case WorldKind::kSystem: return "System";
    case WorldKind::kSystemInTurn: return "SystemInTurn";
    case WorldKind::kMemoryLinux: return "MemoryLinux";
    case WorldKind::kMemoryLinuxIgnoringCase: return "MemoryLinuxIgnoringCase";
    case WorldKind::kMemoryWindows: return "MemoryWindows";
  }
  return "Unknown";
}

void PrintTo(WorldKind kind, std::ostream* out) {
  *out << NameOf(kind);
}

std::unique_ptr<FileWorld> MakeWorld(WorldKind kind) {
  switch (kind) {
    case WorldKind::kMemoryLinux:
      return std::make_unique<MemoryWorld>(MemoryFileSystem::Options{PathStyle::kLinux, false});
    case WorldKind::kMemoryLinuxIgnoringCase:
      return std::make_unique<MemoryWorld>(MemoryFileSystem::Options{PathStyle::kLinux, true});
    case WorldKind::kMemoryWindows:
      return std::make_unique<MemoryWorld>(MemoryFileSystem::Options{PathStyle::kWindows, true});
    case WorldKind::kSystemInTurn: return std::make_unique<SystemWorld>(FileReadsOptions{.readAhead = false});
    default: return std::make_unique<SystemWorld>(FileReadsOptions());
  }
}

}  // namespace quillon::test
