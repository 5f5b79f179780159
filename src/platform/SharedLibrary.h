#pragma once

#include <optional>
#include <string>

/// Loading libraries by name at run time.
namespace quillon {

/// The library's file name on this system: "BREGEXP.DLL" on Windows, "libbregexp.so" on Linux, for the name "bregexp".
[[nodiscard]] std::string SharedLibraryFileName(const std::string& name);

/// Searches for a library's file: in the program's own folder; then on Windows in the system's folders and those of
/// PATH, on Linux wherever the dynamic linker looks, which loads the library to find it. Never in the current folder,
/// even if an entry of a search path leads there. Returns the full path of the library's folder, with a trailing
/// separator; nullopt when the library was not found.
[[nodiscard]] std::optional<std::string> FindLibrary(const std::string& fileName);

/// A loaded library, unloaded by the destructor. An empty object resolves no symbols.
class SharedLibrary {
 public:
  SharedLibrary() = default;
  /// Loads the library at a full path; any other path loads nothing. On Windows its dependencies are only loaded from
  /// its own folder or the system's.
  explicit SharedLibrary(const std::string& path);
  /// Loads the library that FindLibrary finds; an empty object when there is none.
  [[nodiscard]] static SharedLibrary Find(const std::string& fileName);
  SharedLibrary(SharedLibrary&& other) noexcept;
  SharedLibrary& operator=(SharedLibrary&& other) noexcept;
  SharedLibrary(const SharedLibrary&) = delete;
  SharedLibrary& operator=(const SharedLibrary&) = delete;
  ~SharedLibrary();

  [[nodiscard]] bool Loaded() const { return handle_ != nullptr; }

  /// The address of an exported C function; null when the library has no such symbol.
  [[nodiscard]] void* Symbol(const char* name) const;

 private:
  void* handle_ = nullptr;
};

}  // namespace quillon
