#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What holds for the source tree beyond what compiler and linker check. Each rule looks at one file and says what
/// breaks it; files that a rule is not about break nothing.
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

/// Code that knows which system it runs on stands in src/platform. Tests of it may stand in folders named after the
/// system or in files that end with the system's name. Benchmarks, which run on Linux only, measure against bare system
/// calls and so include its headers.
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

/// The project explains itself: no words that point at papers or places outside of it. The titles under which formats
/// are published are fine.
[[nodiscard]] Findings FindForbiddenWords(const SourceFile& file);

}  // namespace quillon::lint
