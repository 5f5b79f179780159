#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "app/CommandLine.h"
#include "fuzz/Require.h"
#include "paths/basFileControl.h"

using namespace quillon;
using test::Require;

namespace {

// A quoted text is one argument, wherever it stands.
void RequireQuotedIsKept(const std::string& text) {
  if (text.empty() || text.find('"') != std::string::npos) return;
  const std::vector<std::string> arguments = SplitCommandLine("a \"" + text + "\" b");
  Require(arguments.size() == 3 && UnquoteArgument(arguments[1]) == text);
}

}  // namespace

// The input is the part of a command line behind the program's name.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string raw(data, data + size);
  const std::vector<std::string> arguments = SplitCommandLine(raw);
  std::size_t length = 0;
  for (const std::string& argument : arguments) {
    Require(!argument.empty());
    length += UnquoteArgument(argument).size();
  }
  Require(length <= size);
  RequireQuotedIsKept(raw);

  const std::unique_ptr<FileReads> files = MakeFileReads();
  const CommandLineRequest request = ReadCommandLine(raw, {}, *files);
  Require(request.paths.size() <= arguments.size());
  Require(AnswerTo(request).empty() == (request.kind == CommandLineRequest::Kind::kOpen));
  for (const std::string& path : request.paths) Require(path == FullPath(path));
  return 0;
}
