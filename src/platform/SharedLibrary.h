#pragma once

#include <optional>
#include <string>

/// Libraries that are found by name and loaded at run time.
namespace quillon {

/// The library's file name on this system: "BREGEXP.DLL" on Windows, "libbregexp.so" on Linux, for the name "bregexp".
[[nodiscard]] std::string SharedLibraryFileName(const std::string& name);

/// Searches for a library's file: in the program's own folder; then on Windows in the system's folders and those of
/// PATH, on Linux wherever the dynamic linker looks, which loads the library to find it. Never in the current folder,
/// by whatever entry a search path leads there. Returns the full path of the folder it was found in, with its trailing
/// separator; nullopt when it is nowhere.
[[nodiscard]] std::optional<std::string> FindLibrary(const std::string& fileName);

/// A loaded library; unloaded with the object. An empty one resolves nothing.
class SharedLibrary {
 public:
  SharedLibrary() = default;
  /// Loads from a full path; anything else loads nothing. On Windows the libraries that it needs itself come from its
  /// own folder or the system's, and from nowhere else.
  explicit SharedLibrary(const std::string& path);
  /// The library that FindLibrary finds; an empty one when it is nowhere.
  [[nodiscard]] static SharedLibrary Find(const std::string& fileName);
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
