#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "help/Page.h"

/// The finished help beside the program, and the files that it is made from.
namespace quillon::test {

[[nodiscard]] std::filesystem::path HelpFolder();
[[nodiscard]] std::filesystem::path CompiledHelp();
[[nodiscard]] std::filesystem::path HelpSources();

/// Fails the test when the file cannot be read.
[[nodiscard]] std::string FileBytes(const std::filesystem::path& path);

/// "658x470", read from fixed places of a PNG file.
[[nodiscard]] std::string SizeOfPng(const std::string& bytes);

/// The finished pages by their file names. Fails the test for one that is not well formed.
[[nodiscard]] const std::map<std::string, Page>& Pages();
[[nodiscard]] const Page& PageOf(const std::string& name);

/// Relative names with "/", in order.
[[nodiscard]] std::vector<std::string> FilesBelow(const std::filesystem::path& folder);

[[nodiscard]] std::string WithoutBlanks(std::string_view text);
[[nodiscard]] std::string Trimmed(std::string_view text);
/// A caption as the help writes it: without its access key, "..." and its shortcut.
[[nodiscard]] std::string PlainCaption(std::string_view caption);

}  // namespace quillon::test
