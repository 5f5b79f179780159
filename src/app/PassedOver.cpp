#include "app/PassedOver.h"

#include <utility>

namespace quillon {
namespace {

constexpr std::size_t kMostNamed = 5;

}  // namespace

void PassedOverPaths::Begin(const std::string& status, const std::string& target) {
  status_.ShowForNow(status);
  display_.Begin(status, target);
}

void PassedOverPaths::End() {
  display_.End();
  status_.ShowAgain();
}

void PassedOverPaths::PassedOver(const std::string& path) {
  ++count_;
  if (named_.size() < kMostNamed) named_.push_back(path);
  display_.PassedOver(path);
}

void PassedOverPaths::Tell(MessageBoxes& boxes) {
  const int count = std::exchange(count_, 0);
  const std::vector<std::string> named = std::exchange(named_, {});
  if (count == 0) return;
  std::string text =
      std::to_string(count) + " 個のフォルダ または ファイルにアクセスできないため、読み込みませんでした\r\n";
  for (const std::string& path : named) text += "\r\n" + path;
  if (named.size() < static_cast<std::size_t>(count)) text += "\r\n...";
  boxes.Show({"フォルダ参照", text, MessageIcon::kExclamation});
}

}  // namespace quillon
