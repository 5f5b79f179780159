#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/FileOpener.h"
#include "platform/FilesInTurn.h"

namespace quillon {

/// The answers to what a caller is expected to ask of one file.
class PreparedFile final : public ByteSource {
 public:
  /// Gets the answers. Without them, for want of memory or descriptors, the file is not prepared. The space of the file
  /// before is used again.
  void Prepare(FileOpener& opener, const PathList::File& file, const FileNeeds& needs);

  /// Closes the file.
  void Release();

  [[nodiscard]] bool IsPrepared() const { return prepared_; }
  [[nodiscard]] bool IsOpen() const { return open_; }
  [[nodiscard]] const std::optional<Result<FileStatus, FileError>>& Status() const { return status_; }

  [[nodiscard]] std::uint64_t Size() const override { return size_; }
  [[nodiscard]] bool IsHiddenOrSystem() const override { return hiddenOrSystem_; }
  std::size_t ReadAt(std::uint64_t offset, char* into, std::size_t count) override;
  [[nodiscard]] std::string_view InMemory(std::uint64_t offset, std::size_t count) const override;

 private:
  void ReadParts(const FileNeeds& needs);

  /// Bytes of the file that have been read.
  struct Part {
    std::uint64_t offset = 0;
    std::vector<char> bytes;
    std::size_t length = 0;

    void Read(ByteSource& file, std::uint64_t from, std::size_t count);
    [[nodiscard]] bool Holds(std::uint64_t from, std::size_t count) const {
      return from >= offset && from - offset <= length && count <= length - (from - offset);
    }
  };

  bool prepared_ = false;
  bool open_ = false;
  bool hiddenOrSystem_ = false;
  std::uint64_t size_ = 0;
  Part head_;
  Part tail_;
  std::unique_ptr<ByteSource> file_;  // none when the head is the whole file
  std::optional<Result<FileStatus, FileError>> status_;
};

}  // namespace quillon
