#include "cli/CliProgram.h"

#include <gtest/gtest.h>

#include <sstream>

#include "platform/PathStyle.h"

namespace quillon::test {

// A cross-built test finds the program by the drive under which Wine shows the root folder.
std::string CliPath() {
  const std::string path = QUILLON_CLI;
  return SystemPathStyle() == PathStyle::kWindows && path.front() == '/' ? "Z:" + path : path;
}

ProcessResult Cli(const std::vector<std::string>& arguments, std::string_view input) {
  return RunProcess(CliPath(), arguments, input);
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::vector<Json> JsonLines(const std::string& text) {
  std::vector<Json> objects;
  for (const std::string& line : Lines(text)) objects.push_back(Json::parse(line));
  return objects;
}

void ExpectWrongUsage(const std::vector<std::string>& arguments) {
  SCOPED_TRACE(testing::PrintToString(arguments));
  const ProcessResult result = Cli(arguments);
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_EQ(result.output, "");
  EXPECT_NE(result.errors, "");
}

}  // namespace quillon::test
