#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/PathStyle.h"

namespace quillon::test {
namespace {

namespace fs = std::filesystem;

std::string ToText(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

char Separator() {
  return SystemPathStyle() == PathStyle::kWindows ? '\\' : '/';
}

std::string NewFolder() {
  static std::atomic<int> counter = 0;
  const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
  for (;;) {
    const std::string name = "quillon-test-" + std::to_string(now) + "-" + std::to_string(counter++);
    const fs::path folder = fs::temp_directory_path() / name;
    if (fs::create_directory(folder)) return ToText(folder) + Separator();
  }
}

// Standard libraries convert file times by way of either the system's clock or UTC.
template <typename Clock>
typename Clock::time_point FileTime(std::chrono::sys_seconds time) {
  if constexpr (requires { Clock::from_sys(time); }) {
    return Clock::from_sys(time);
  } else {
    using Utc = typename decltype(Clock::to_utc(typename Clock::time_point()))::clock;
    return Clock::from_utc(Utc::from_sys(time));
  }
}

}  // namespace

// char8_t means UTF-8 on both systems; on Windows a narrow path would be converted from the process's code page. On
// Linux the bytes are passed unchanged, even if they are invalid UTF-8.
fs::path ToPath(std::string_view text) {
  return {std::u8string(text.begin(), text.end())};
}

TempFolder::TempFolder() : path_(NewFolder()) {}

TempFolder::~TempFolder() {
  std::error_code ignored;
  fs::remove_all(ToPath(path_), ignored);
}

std::string TempFolder::At(std::string_view name) const {
  std::string path(name);
  if (Separator() != '/') std::replace(path.begin(), path.end(), '/', Separator());
  return path_ + path;
}

std::string TempFolder::Write(std::string_view name, std::string_view bytes) const {
  std::string path = At(name);
  fs::create_directories(ToPath(path).parent_path());
  std::ofstream file(ToPath(path), std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  EXPECT_TRUE(file) << "cannot write " << path;
  return path;
}

void TempFolder::SetModified(std::string_view name, std::chrono::sys_seconds time) const {
  fs::last_write_time(ToPath(At(name)), FileTime<fs::file_time_type::clock>(time));
}

std::string TempFolder::MakeFolder(std::string_view name) const {
  const std::string path = At(name);
  fs::create_directories(ToPath(path));
  return path + Separator();
}

bool TempFolder::Exists(std::string_view name) const {
  std::error_code ignored;
  return fs::exists(fs::symlink_status(ToPath(At(name)), ignored));
}

std::string TempFolder::Read(std::string_view name) const {
  std::ifstream file(ToPath(At(name)), std::ios::binary);
  EXPECT_TRUE(file) << "cannot read " << At(name);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace quillon::test
