#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "platform/TemporaryMark.h"
#include "platform/TemporaryName.h"
#include "platform/windows/Handle.h"
#include "platform/windows/Wide.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

TEST(TemporaryMarkInUse, StaysWithItsFileHoweverOld) {
  const TempFolder folder;
  const auto mark = MarkTemporary(folder.Path());
  ASSERT_TRUE(mark);
  const std::string name = (*mark)->Path().substr(folder.Path().size());
  folder.Write(name, "half a copy");
  {
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const std::wstring path = ToWide(folder.At(MarkName(name))).value_or(L"");
    const Handle file(
        ::CreateFileW(path.c_str(), FILE_WRITE_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
    const FILETIME old = {0, 0x01C00000};
    ASSERT_TRUE(::SetFileTime(file.Get(), nullptr, nullptr, &old));
  }
  RemoveMarkedLeftovers(folder.Path());
  EXPECT_TRUE(folder.Exists(name));
  EXPECT_TRUE(folder.Exists(MarkName(name)));
}

}  // namespace
}  // namespace quillon::test
