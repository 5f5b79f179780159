#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "bregexp/bregexp.h"
#include "platform/SharedLibrary.h"

namespace quillon::test {

/// The library, found and loaded by name as in the program, with one slot for compiled commands.
class LoadedLibrary {
 public:
  LoadedLibrary();
  LoadedLibrary(const LoadedLibrary&) = delete;
  LoadedLibrary& operator=(const LoadedLibrary&) = delete;
  ~LoadedLibrary();

  [[nodiscard]] bool Loaded() const { return replace_ != nullptr; }
  [[nodiscard]] void* Symbol(const char* name) const { return library_.Symbol(name); }
  [[nodiscard]] BregexpReplace* Function() const { return replace_; }

  std::string Replace(std::string_view command, std::string_view target);

  struct Defect {
    int number = 0;
    std::size_t offset = 0;
    bool operator==(const Defect&) const = default;
  };
  Defect Check(std::string_view command);

 private:
  SharedLibrary library_;
  BregexpReplace* replace_ = nullptr;
  void* slot_ = nullptr;
};

}  // namespace quillon::test
