#include <gtest/gtest.h>

#include <utility>

#include "platform/FileSystem.h"
#include "platform/PathStyle.h"
#include "platform/Program.h"
#include "platform/SharedLibrary.h"

namespace quillon::test {
namespace {

bool IsWindows() {
  return SystemPathStyle() == PathStyle::kWindows;
}

// A library that exists on every system of this kind, and one of its functions.
std::string SystemLibrary() {
  return IsWindows() ? "kernel32.dll" : "libm.so.6";
}
const char* SystemFunction() {
  return IsWindows() ? "GetTickCount" : "cos";
}

TEST(SharedLibrary, FileNamesAreThoseOfTheSystem) {
  EXPECT_EQ(SharedLibraryFileName("bregexp"), IsWindows() ? "BREGEXP.DLL" : "libbregexp.so");
}

TEST(SharedLibrary, SystemLibrariesAreFoundWithTheirFolder) {
  const auto folder = FindLibrary(SystemLibrary());
  ASSERT_TRUE(folder);
  EXPECT_EQ(folder->back(), IsWindows() ? '\\' : '/');
  const auto status = MakeFileReads()->Status(*folder + SystemLibrary());
  ASSERT_TRUE(status.Ok());
  EXPECT_EQ(status->kind, FileStatus::Kind::kFile) << *folder;
}

TEST(SharedLibrary, TheProgramsOwnFolderComesFirst) {
  EXPECT_EQ(FindLibrary(ProgramBaseName() + (IsWindows() ? ".exe" : "")), ProgramFolder());
}

TEST(SharedLibrary, AMissingLibraryIsNotFound) {
  EXPECT_EQ(FindLibrary(SharedLibraryFileName("no-such-library")), std::nullopt);
  EXPECT_EQ(FindLibrary(""), std::nullopt);
  EXPECT_EQ(FindLibrary("folder/" + SystemLibrary()), std::nullopt) << "names only";
}

TEST(SharedLibrary, ALoadedLibraryResolvesItsFunctions) {
  const auto folder = FindLibrary(SystemLibrary());
  ASSERT_TRUE(folder);
  const SharedLibrary library(*folder + SystemLibrary());
  ASSERT_TRUE(library.Loaded());
  EXPECT_NE(library.Symbol(SystemFunction()), nullptr);
  EXPECT_EQ(library.Symbol("NoSuchFunction"), nullptr);
}

TEST(SharedLibrary, OnlyFullPathsAreLoaded) {
  EXPECT_FALSE(SharedLibrary(SystemLibrary()).Loaded());
  EXPECT_FALSE(SharedLibrary(std::string(IsWindows() ? ".\\" : "./") + SystemLibrary()).Loaded());
  EXPECT_FALSE(SharedLibrary("").Loaded());
}

TEST(SharedLibrary, AnAbsentLibraryResolvesNothing) {
  const SharedLibrary library(ProgramFolder() + SharedLibraryFileName("no-such-library"));
  EXPECT_FALSE(library.Loaded());
  EXPECT_EQ(library.Symbol(SystemFunction()), nullptr);
  EXPECT_FALSE(SharedLibrary().Loaded());
}

TEST(SharedLibrary, MovesLeaveTheOldObjectWithoutTheLibrary) {
  const auto folder = FindLibrary(SystemLibrary());
  ASSERT_TRUE(folder);
  SharedLibrary first(*folder + SystemLibrary());
  ASSERT_TRUE(first.Loaded());
  SharedLibrary second(std::move(first));
  EXPECT_TRUE(second.Loaded());
  SharedLibrary third;
  third = std::move(second);
  EXPECT_NE(third.Symbol(SystemFunction()), nullptr);
}

}  // namespace
}  // namespace quillon::test
