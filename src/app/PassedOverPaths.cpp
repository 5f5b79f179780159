#include "app/PassedOverPaths.h"

#include <utility>

#include "paths/basFileControl.h"

namespace quillon {
namespace {

constexpr std::size_t kMostNamed = 5;
constexpr std::size_t kLongestNamed = 200;  // characters: a box must fit the screen

}  // namespace

PassedOverPaths::Paths& PassedOverPaths::Of(Obstacle obstacle) {
  switch (obstacle) {
    case Obstacle::kTooDeep: return tooDeep_;
    case Obstacle::kGone: return gone_;
    case Obstacle::kNoAccess: break;
  }
  return noAccess_;
}

void PassedOverPaths::Add(const std::vector<PassedOver>& paths) {
  for (const PassedOver& passed : paths) {
    Paths& alike = Of(passed.obstacle);
    ++alike.count;
    if (alike.named.size() < kMostNamed) alike.named.push_back(ShortenPath(passed.path, kLongestNamed));
  }
}

std::string PassedOverPaths::Text(const Paths& paths, const char* what) {
  if (paths.count == 0) return {};
  std::string text = std::to_string(paths.count) + what + "\r\n";
  for (const std::string& path : paths.named) text += "\r\n" + path;
  if (paths.named.size() < static_cast<std::size_t>(paths.count)) text += "\r\n...";
  return text;
}

void PassedOverPaths::Tell(MessageBoxes& boxes) {
  std::string text;
  for (const std::string& part :
       {Text(std::exchange(noAccess_, {}), " 個のフォルダ または ファイルにアクセスできないため、読み込みませんでした"),
        Text(std::exchange(tooDeep_, {}), " 個のフォルダは階層が深すぎるため、読み込みませんでした"),
        Text(std::exchange(gone_, {}), " 個のファイルは途中でなくなったため、読み込みませんでした")}) {
    if (!text.empty() && !part.empty()) text += "\r\n\r\n";
    text += part;
  }
  if (!text.empty()) boxes.Show({"フォルダ参照", text, MessageIcon::kExclamation});
}

}  // namespace quillon
