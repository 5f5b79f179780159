#pragma once

#include <chm_lib.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace quillon::test {

/// The contents of a compiled help's "#SYSTEM" file; texts are its raw bytes.
struct ChmSystem {
  std::string contents;
  std::string index;
  std::string defaultTopic;
  std::string title;
  std::uint32_t language = 0;  ///< a Windows locale identifier
};

/// A compiled help file, read by CHMLib.
class ChmFile {
 public:
  explicit ChmFile(const std::string& path) : file_(chm_open(path.c_str())) {}

  [[nodiscard]] bool IsOpen() const { return file_ != nullptr; }
  /// The bytes of a file in it ("images/a.png"); nullopt when there is none.
  [[nodiscard]] std::optional<std::string> Read(const std::string& name) const;
  [[nodiscard]] ChmSystem System() const;

 private:
  struct Close {
    void operator()(chmFile* file) const { chm_close(file); }
  };
  std::unique_ptr<chmFile, Close> file_;
};

}  // namespace quillon::test
