#include "app/CommandLine.h"

#include "base/Product.h"
#include "paths/basFileControl.h"

namespace quillon {
namespace {

constexpr const char* kUsage =
    "使い方: quillon [ファイルまたはフォルダ]...\n"
    "\n"
    "ファイルの名前をまとめて変えるウィンドウを開き、指定したファイルやフォルダを読み込みます。\n"
    "\n"
    "  --help     この説明を表示します\n"
    "  --version  バージョンを表示します\n";

std::vector<std::string> Words(const std::optional<std::string>& raw, const std::vector<std::string>& arguments) {
  if (!raw) return arguments;
  std::vector<std::string> words;
  for (const std::string& argument : SplitCommandLine(*raw)) words.push_back(UnquoteArgument(argument));
  return words;
}

bool NamesSomething(const std::string& path, FileReads& files) {
  const Result<FileStatus, FileError> status = files.Status(path);
  return status && status->kind != FileStatus::Kind::kAbsent;
}

CommandLineRequest::Kind KindOf(const std::string& word) {
  if (word == "--help") return CommandLineRequest::Kind::kHelp;
  return word == "--version" ? CommandLineRequest::Kind::kVersion : CommandLineRequest::Kind::kWrongUsage;
}

}  // namespace

CommandLineRequest ReadCommandLine(const std::optional<std::string>& raw, const std::vector<std::string>& arguments,
                                   FileReads& files) {
  CommandLineRequest request;
  for (const std::string& word : Words(raw, arguments)) {
    if (word.empty()) continue;
    std::string path = LongPath(FullPath(word));
    if (word.starts_with("--") && !NamesSomething(path, files)) return {KindOf(word), {}, word};
    request.paths.push_back(std::move(path));
  }
  return request;
}

std::string AnswerTo(const CommandLineRequest& request) {
  switch (request.kind) {
    case CommandLineRequest::Kind::kHelp: return kUsage;
    case CommandLineRequest::Kind::kVersion: return std::string(kProductName) + " " + kProductVersion + "\n";
    case CommandLineRequest::Kind::kWrongUsage: return request.word + ": このような指定はできません\n\n" + kUsage;
    case CommandLineRequest::Kind::kOpen: break;
  }
  return {};
}

Message BoxFor(const CommandLineRequest& request) {
  const bool mistake = request.kind == CommandLineRequest::Kind::kWrongUsage;
  return {kProductName, AnswerTo(request), mistake ? MessageIcon::kExclamation : MessageIcon::kInformation};
}

int ExitStatusOf(const CommandLineRequest& request) {
  constexpr int kBadUsage = 2;
  return request.kind == CommandLineRequest::Kind::kWrongUsage ? kBadUsage : 0;
}

}  // namespace quillon
