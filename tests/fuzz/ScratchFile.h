#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace quillon::test {

/// A file for one input after another, in memory where the system has such a place.
class ScratchFile {
 public:
  explicit ScratchFile(std::string_view extension) {
    const std::filesystem::path memory = "/dev/shm";
    std::error_code error;
    const bool useMemory = std::filesystem::is_directory(memory, error);
    const std::filesystem::path folder = useMemory ? memory : std::filesystem::temp_directory_path();
    path_ = folder / ("quillon-fuzz-" + std::to_string(std::random_device()()) + std::string(extension));
  }
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;
  ~ScratchFile() {
    std::error_code error;
    std::filesystem::remove(path_, error);
  }

  [[nodiscard]] std::string Path() const { return path_.string(); }

  void Write(std::string_view bytes) const {
    std::ofstream(path_, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }

  [[nodiscard]] std::string Bytes() const {
    std::ifstream file(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::filesystem::path path_;
};

}  // namespace quillon::test
