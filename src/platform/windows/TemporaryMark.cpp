#include "platform/TemporaryMark.h"

#include <windows.h>

#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "platform/TemporaryName.h"
#include "platform/windows/Handle.h"
#include "platform/windows/SystemError.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/Wide.h"

namespace quillon {
namespace {

constexpr std::uint64_t kTicksPerDay = std::uint64_t{24} * 60 * 60 * 10'000'000;

class WindowsTemporaryMark final : public TemporaryMark {
 public:
  WindowsTemporaryMark(Handle file, std::string path) : file_(std::move(file)), path_(std::move(path)) {}

  ~WindowsTemporaryMark() override {
    if (kept_) return;
    FILE_DISPOSITION_INFO disposition = {};
    disposition.DeleteFile = TRUE;
    ::SetFileInformationByHandle(file_.Get(), FileDispositionInfo, &disposition, sizeof disposition);
  }

  [[nodiscard]] const std::string& Path() const override { return path_; }
  void Keep() override { kept_ = true; }

 private:
  Handle file_;  // opened without sharing, so that no other process can delete the mark
  std::string path_;
  bool kept_ = false;
};

std::uint64_t TicksOf(const FILETIME& time) {
  return std::uint64_t{time.dwHighDateTime} << 32u | time.dwLowDateTime;
}

bool IsOlderThanADay(const Handle& file) {
  FILETIME written = {};
  FILETIME now = {};
  ::GetSystemTimeAsFileTime(&now);
  return ::GetFileTime(file.Get(), nullptr, nullptr, &written) && TicksOf(now) > TicksOf(written) + kTicksPerDay;
}

// An interrupted creation leaves a mark with only part of the text, or none.
bool HoldsMarkText(const Handle& file) {
  std::array<char, kMarkText.size() + 1> bytes = {};
  DWORD got = 0;
  if (!::ReadFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &got, nullptr)) return false;
  return kMarkText.starts_with(std::string_view(bytes.data(), got));
}

bool RemoveFile(const std::wstring& path) {
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return ::GetLastError() == ERROR_FILE_NOT_FOUND;
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return false;
  ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  return ::DeleteFileW(path.c_str()) != 0;
}

void RemoveLeftover(const std::string& folder, const std::string& name) {
  const std::optional<std::wstring> path = SystemPath(folder + name);
  const std::optional<std::wstring> markPath = SystemPath(folder + MarkName(name));
  if (!path || !markPath) return;
  const Handle mark(::CreateFileW(markPath->c_str(), GENERIC_READ | DELETE, 0, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  if (!mark.Open() || !IsOlderThanADay(mark) || !HoldsMarkText(mark) || !RemoveFile(*path)) return;
  FILE_DISPOSITION_INFO disposition = {};
  disposition.DeleteFile = TRUE;
  ::SetFileInformationByHandle(mark.Get(), FileDispositionInfo, &disposition, sizeof disposition);
}

std::vector<std::string> MarkedNames(const std::string& folder) {
  std::vector<std::string> names;
  // The "*" of the pattern is appended later, because SystemPath does not accept it in a name.
  const std::optional<std::wstring> path = SystemPath(folder + "x");
  if (!path) return names;
  WIN32_FIND_DATAW found = {};
  HANDLE const search = ::FindFirstFileW((path->substr(0, path->size() - 1) + L".quillon-*").c_str(), &found);
  if (reinterpret_cast<LONG_PTR>(search) == -1) return names;
  do {
    if (std::optional<std::string> name = MarkedName(FromWide(found.cFileName))) names.push_back(*std::move(name));
  } while (::FindNextFileW(search, &found));
  ::FindClose(search);
  return names;
}

bool Fill(const Handle& mark) {
  DWORD written = 0;
  return ::WriteFile(mark.Get(), kMarkText.data(), static_cast<DWORD>(kMarkText.size()), &written, nullptr) != 0;
}

}  // namespace

Result<std::unique_ptr<TemporaryMark>, FileError> MarkTemporaryFile(const std::string& path) {
  const std::optional<std::wstring> markPath = SystemPath(MarkName(path));
  if (!markPath) return InvalidNameError();
  Handle file(::CreateFileW(markPath->c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_READ, nullptr, CREATE_NEW,
                            FILE_ATTRIBUTE_HIDDEN, nullptr));
  if (!file.Open()) return ErrorOf(::GetLastError());
  const FileOutcome failed = OutcomeOf(Fill(file));
  std::unique_ptr<TemporaryMark> mark = std::make_unique<WindowsTemporaryMark>(std::move(file), path);
  if (failed) return *failed;
  return mark;
}

void RemoveMarkedLeftovers(const std::string& folder) {
  for (const std::string& name : MarkedNames(folder)) RemoveLeftover(folder, name);
}

}  // namespace quillon
