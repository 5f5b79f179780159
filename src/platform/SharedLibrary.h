#pragma once

#include <optional>
#include <string>

/// Libraries that are found by name and loaded at run time.
namespace quillon {

/// The library's file name on this system: "BREGEXP.DLL" on Windows, "libbregexp.so" on Linux, for the name "bregexp".
[[nodiscard]] std::string SharedLibraryFileName(const std::string& name);

/// Searches for a file in the program's own folder, then in the system's search order for libraries. Returns the folder
/// it was found in, with its trailing separator; nullopt when it is nowhere.
[[nodiscard]] std::optional<std::string> FindLibrary(const std::string& fileName);

/// A loaded library; unloaded with the object. An empty one resolves nothing.
class SharedLibrary {
 public:
  SharedLibrary() = default;
  explicit SharedLibrary(const std::string& path);
  SharedLibrary(SharedLibrary&& other) noexcept;
  SharedLibrary& operator=(SharedLibrary&& other) noexcept;
  SharedLibrary(const SharedLibrary&) = delete;
  SharedLibrary& operator=(const SharedLibrary&) = delete;
  ~SharedLibrary();

  [[nodiscard]] bool Loaded() const { return handle_ != nullptr; }

  /// The address of an exported C function; null when the library has none of that name.
  [[nodiscard]] void* Symbol(const char* name) const;

 private:
  void* handle_ = nullptr;
};

}  // namespace quillon
