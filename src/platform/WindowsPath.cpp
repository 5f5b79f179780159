#include "platform/WindowsPath.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/Text.h"

namespace quillon {
namespace {

constexpr std::string_view kLiteral = R"(\\?\)";
constexpr std::string_view kDevice = R"(\\.\)";
constexpr std::string_view kLiteralNetwork = R"(\\?\UNC\)";

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsDevicePath(std::string_view path) {
  return path.starts_with(kLiteral) || path.starts_with(kDevice);
}

// The number of leading pieces that ".." must not remove: the drive, or server and share.
std::size_t RootPieces(std::string_view path) {
  return path.starts_with(R"(\\)") ? 2 : 1;
}

std::vector<std::string_view> TidyPieces(std::string_view path) {
  std::vector<std::string_view> pieces;
  for (const std::string_view piece : Split(path, '\\')) {
    if (piece.empty() || piece == ".") continue;
    if (piece != "..") {
      pieces.push_back(piece);
    } else if (pieces.size() > RootPieces(path)) {
      pieces.pop_back();
    }
  }
  return pieces;
}

}  // namespace

bool IsFullWindowsPath(std::string_view path) {
  const auto isSeparator = [&](std::size_t i) { return i < path.size() && (path[i] == '\\' || path[i] == '/'); };
  const bool onDrive = path.size() >= 3 && IsLetter(path[0]) && path[1] == ':' && isSeparator(2);
  return onDrive || (isSeparator(0) && isSeparator(1));
}

std::string TidyWindowsPath(std::string_view fullPath) {
  if (IsDevicePath(fullPath)) return std::string(fullPath);
  std::string path(fullPath);
  std::replace(path.begin(), path.end(), '/', '\\');
  const std::vector<std::string_view> pieces = TidyPieces(path);
  std::string tidy = path.starts_with(R"(\\)") ? R"(\\)" : "";
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (i > 0) tidy += '\\';
    tidy += pieces[i];
  }
  const bool isDriveRoot = pieces.size() == 1 && RootPieces(path) == 1;
  if (path.back() == '\\' || isDriveRoot) tidy += '\\';
  return tidy;
}

std::string LiteralWindowsPath(const std::string& tidyPath) {
  if (IsDevicePath(tidyPath)) return tidyPath;
  if (tidyPath.starts_with(R"(\\)")) return std::string(kLiteralNetwork) + tidyPath.substr(2);
  return std::string(kLiteral) + tidyPath;
}

std::string PlainWindowsPath(std::string_view literalPath) {
  if (literalPath.starts_with(kLiteralNetwork)) {
    return R"(\\)" + std::string(literalPath.substr(kLiteralNetwork.size()));
  }
  if (literalPath.starts_with(kLiteral)) literalPath.remove_prefix(kLiteral.size());
  return std::string(literalPath);
}

std::string_view StoredWindowsName(std::string_view name) {
  const std::size_t last = name.find_last_not_of(". ");
  return name.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

bool CanNameWindowsFile(std::string_view name) {
  if (name.find(':') != std::string_view::npos) return false;
  const std::string device = ToUpper(TrimRight(name.substr(0, name.find('.'))));
  constexpr std::array<std::string_view, 6> kPlain = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
  if (std::find(kPlain.begin(), kPlain.end(), device) != kPlain.end()) return false;
  constexpr std::array<std::string_view, 12> kPorts = {"1", "2", "3", "4", "5", "6", "7", "8", "9", "¹", "²", "³"};
  const bool mayBePort = device.starts_with("COM") || device.starts_with("LPT");
  return !mayBePort || std::find(kPorts.begin(), kPorts.end(), device.substr(3)) == kPorts.end();
}

}  // namespace quillon
