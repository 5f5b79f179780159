#include <gtest/gtest.h>

#include <string>

#include "filelist/FailureDetails.h"
#include "support/MemoryFileSystem.h"

namespace quillon::test {
namespace {

/// The line about an error 53 of renaming `from` to `to`.
std::string WhyNotFound(MemoryFileSystem& files, const std::string& from, const std::string& to, PathStyle style) {
  const std::string details = FailureDetails(files, from, to, {file_error::kNotFound, {}}, style);
  return details.substr(details.rfind("\r\n") + 2);
}

TEST(FailureDetails, NameThePathsAndTheSystemsMessage) {
  MemoryFileSystem files({PathStyle::kLinux, false});
  const FileError error{file_error::kAccess, "Permission denied"};
  EXPECT_EQ(FailureDetails(files, "/m/a", "/m/b", error, PathStyle::kLinux),
            "ファイル： /m/a\r\n変更後： /m/b\r\nシステムのメッセージ： Permission denied");
  EXPECT_EQ(FailureDetails(files, "/m/a", "/m/a", {}, PathStyle::kLinux), "ファイル： /m/a");
  EXPECT_EQ(FailureDetails(files, "/m/a", "", {}, PathStyle::kLinux), "ファイル： /m/a");
}

TEST(FailureDetails, GiveTheCauseOfAnInvalidName) {
  MemoryFileSystem files({PathStyle::kLinux, false});
  files.AddFile("/m/a", "content");
  EXPECT_EQ(WhyNotFound(files, "/m/gone", "/m/b", PathStyle::kLinux),
            "ファイルがありません。ほかのプログラムが削除または移動した可能性があります");
  EXPECT_EQ(WhyNotFound(files, "/m/a", "/m/b:", PathStyle::kLinux), "このドライブでは使えない名前です");
  EXPECT_EQ(WhyNotFound(files, "/m/a", "/gone/a", PathStyle::kLinux), "移動先のフォルダがありません");
  std::string kana;
  for (int i = 0; i < 86; ++i) kana += "あ";
  EXPECT_EQ(WhyNotFound(files, "/m/a", "/m/" + kana, PathStyle::kLinux),
            "名前が長すぎます（258 バイト、上限 255 バイト）");
  const std::string deep = "/m/" + std::string(4093, '/') + "b";
  EXPECT_EQ(WhyNotFound(files, "/m/a", deep, PathStyle::kLinux), "パスが長すぎます（4097 バイト、上限 4095 バイト）");
}

TEST(FailureDetails, CountANamesLengthAsItsVolumeDoes) {
  MemoryFileSystem files({PathStyle::kLinux, false});
  files.AddFile("/m/a", "content");
  files.nameUnit = NameUnit::kUtf16;  // a stick, formatted on Windows
  std::string kana;
  for (int i = 0; i < 254; ++i) kana += "あ";
  EXPECT_EQ(WhyNotFound(files, "/m/a", "/m/" + kana + "?", PathStyle::kLinux), "このドライブでは使えない名前です");
  EXPECT_EQ(WhyNotFound(files, "/m/a", "/m/" + kana + "??", PathStyle::kLinux),
            "名前が長すぎます（256 文字、上限 255 文字）");
  const std::string deep = "/m/" + std::string(4093, '/') + "b";
  EXPECT_EQ(WhyNotFound(files, "/m/a", deep, PathStyle::kLinux), "パスが長すぎます（4097 バイト、上限 4095 バイト）");
}

TEST(FailureDetails, CountANamesLengthAsTheSystemDoes) {
  MemoryFileSystem files({PathStyle::kWindows, true});
  files.AddFile("C:\\m\\a", "content");
  const auto why = [&](const std::string& name) {
    return WhyNotFound(files, "C:\\m\\a", "C:\\m\\" + name, PathStyle::kWindows);
  };
  std::string kana;
  for (int i = 0; i < 255; ++i) kana += "あ";
  EXPECT_EQ(why(kana), "このドライブでは使えない名前です");
  EXPECT_EQ(why(kana + "あ"), "名前が長すぎます（256 文字、上限 255 文字）");
  std::string notes;
  for (int i = 0; i < 128; ++i) notes += "\xF0\x9D\x84\x9E";  // two units each
  EXPECT_EQ(why(notes), "名前が長すぎます（256 文字、上限 255 文字）");
}

}  // namespace
}  // namespace quillon::test
