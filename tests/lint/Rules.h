#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Rules for the source tree that compiler and linker do not check. Each rule checks one file and returns its
/// violations; a file to which the rule does not apply has none.
namespace quillon::lint {

struct SourceFile {
  std::string path;  ///< from the checkout's root, with "/"
  std::string text;
};

struct Finding {
  std::string path;
  std::size_t line = 0;  ///< 1-based; 0 for the file as a whole
  std::string what;

  bool operator==(const Finding&) const = default;
};

using Findings = std::vector<Finding>;

/// System-dependent code belongs in src/platform. Its tests may be in folders named after the system or in files whose
/// names end with the system's name. Benchmarks run on Linux only and may include its headers, because they compare
/// with bare system calls.
[[nodiscard]] Findings FindSystemMacros(const SourceFile& file);
[[nodiscard]] Findings FindSystemHeaders(const SourceFile& file);

/// Under src only the folders "window", src/controls and src/quillon include the window library.
[[nodiscard]] Findings FindWindowHeaders(const SourceFile& file);

/// A folder of src includes itself and the folders below it.
[[nodiscard]] Findings FindUpwardIncludes(const SourceFile& file);

[[nodiscard]] Findings FindMissingPragmaOnce(const SourceFile& file);

inline constexpr std::size_t kMostLines = 500;
/// Files of src have one subject and stay short.
[[nodiscard]] Findings FindLongFiles(const SourceFile& file);

/// The project explains itself, without references to documents or places outside of it. Titles of published formats
/// are allowed.
[[nodiscard]] Findings FindForbiddenWords(const SourceFile& file);

}  // namespace quillon::lint
