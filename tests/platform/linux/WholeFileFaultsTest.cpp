#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/linux/Trace.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

using testing::ElementsAre;

constexpr int kRead = 0;
constexpr int kAbsent = 1;
constexpr int kUnreadable = 2;
constexpr int kTooLarge = 3;
constexpr int kReplaced = 0;
constexpr int kFailed = 4;

/// A small file, and a separate program that reads or replaces it under strace.
class WholeFileFaults : public testing::Test {
 protected:
  void SetUp() override {
    if (!CanTrace()) GTEST_SKIP() << "no program can be watched here";
  }

  [[nodiscard]] Trace Replace(const std::string& fault = {}) const {
    return RunTraced({QUILLON_WHOLE_FILE, "replace", path_, "new"}, fault);
  }

  [[nodiscard]] Trace Read(const std::string& fault = {}) const {
    return RunTraced({QUILLON_WHOLE_FILE, "read", path_}, fault);
  }

  [[nodiscard]] std::vector<std::string> Names() const {
    std::vector<std::string> names;
    const auto entries = MakeFileReads()->ReadFolder(folder_.Path());
    if (!entries) return {"unreadable"};
    for (const FolderEntry& entry : *entries) names.push_back(entry.name);
    return names;
  }

  TempFolder folder_;
  std::string path_ = folder_.Write("file.ini", "old");
};

/// The relevant calls of one replacement, by purpose; a call that was not made has an empty name.
struct ReplaceCalls {
  explicit ReplaceCalls(const Trace& trace) {
    int file = -1;
    int folder = -1;
    for (const TracedCall& call : trace.calls) {
      const bool mark = call.Has(".mark\"");
      const bool temporary = !mark && call.Has("/.quillon-");
      if (call.name == "openat" && mark && call.Has("O_CREAT")) Note("mark", makeMark, call);
      if (call.name == "unlink" && mark) Note("unmark", removeMark, call);
      if (call.name == "openat" && temporary) Note("create", create, call), file = call.result;
      if (call.name == "openat" && create.result > 0 && call.Has("O_DIRECTORY")) {
        Note("open folder", openFolder, call), folder = call.result;
      }
      if (call.name == "fchmod" && call.IsOn(file)) Note("permissions", permissions, call);
      if (call.name == "write" && call.IsOn(file)) Note("write", write, call);
      if (call.name == "fsync" && call.IsOn(file)) Note("flush", flush, call);
      if (call.name == "fsync" && call.IsOn(folder)) Note("flush folder", flushFolder, call);
      if (call.name == "close" && call.IsOn(file)) Note("close", close, call), file = -1;
      if (call.name.starts_with("rename") && temporary) Note("rename", rename, call);
    }
  }

  std::vector<std::string> order;
  TracedCall makeMark, removeMark, create, permissions, write, flush, close, rename, openFolder, flushFolder;

 private:
  void Note(const std::string& what, TracedCall& place, const TracedCall& call) {
    order.push_back(what);
    place = call;
  }
};

TEST_F(WholeFileFaults, ContentIsFlushedBeforeItsNameAndTheNameBeforeTheEnd) {
  const Trace trace = Replace();
  EXPECT_EQ(trace.exitCode, kReplaced);
  const ReplaceCalls calls(trace);
  EXPECT_THAT(calls.order, ElementsAre("mark", "create", "permissions", "write", "flush", "close", "rename",
                                       "open folder", "flush folder", "unmark"));
}

TEST_F(WholeFileFaults, TheTemporaryFileIsPrivateAndReplacesNothing) {
  const ReplaceCalls calls(Replace());
  EXPECT_TRUE(calls.create.Has("|O_CREAT|O_EXCL|")) << calls.create.line;
  EXPECT_FALSE(calls.create.Has("O_TRUNC")) << calls.create.line;
  EXPECT_TRUE(calls.create.Has(", 0600)")) << calls.create.line;
}

TEST_F(WholeFileFaults, AnyFailureLeavesTheOldContentAndNothingElse) {
  const ReplaceCalls calls(Replace());
  folder_.Write("file.ini", "old");
  struct Row {
    const char* name;
    const TracedCall& call;
    const char* how;
  };
  for (const Row& row : {
           Row{"no place", calls.create, "error=ENOSPC"},
           Row{"no permissions", calls.permissions, "error=EPERM"},
           Row{"a full disk", calls.write, "error=ENOSPC"},
           Row{"not flushed", calls.flush, "error=EIO"},
           Row{"lost at the end", calls.close, "error=EIO"},
           Row{"not renamed", calls.rename, "error=EIO"},
       }) {
    SCOPED_TRACE(row.name);
    ASSERT_NE(row.call.name, "");
    EXPECT_EQ(Replace(FaultOf(row.call, row.how)).exitCode, kFailed);
    EXPECT_EQ(folder_.Read("file.ini"), "old");
    EXPECT_THAT(Names(), ElementsAre("file.ini"));
  }
}

TEST_F(WholeFileFaults, AWriteOfZeroBytesIsNotRetriedForever) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer writes, too, and makes another exit status of it";
#endif
  const ReplaceCalls calls(Replace());
  folder_.Write("file.ini", "old");
  EXPECT_EQ(Replace(FaultOf(calls.write, "retval=0") + "+").exitCode, kFailed);
  EXPECT_EQ(folder_.Read("file.ini"), "old");
}

TEST_F(WholeFileFaults, AnInterruptedWriteIsRetried) {
  const ReplaceCalls calls(Replace());
  folder_.Write("file.ini", "old");
  EXPECT_EQ(Replace(FaultOf(calls.write, "error=EINTR")).exitCode, kReplaced);
  EXPECT_EQ(folder_.Read("file.ini"), "new");
}

TEST_F(WholeFileFaults, ATakenTemporaryNameIsRetried) {
  const ReplaceCalls calls(Replace());
  folder_.Write("file.ini", "old");
  EXPECT_EQ(Replace(FaultOf(calls.create, "error=EEXIST")).exitCode, kReplaced);
  EXPECT_EQ(folder_.Read("file.ini"), "new");
}

TEST_F(WholeFileFaults, ANameThatIsNotMadeDurableIsAnError) {
  const ReplaceCalls calls(Replace());
  EXPECT_EQ(Replace(FaultOf(calls.flushFolder, "error=EIO")).exitCode, kFailed);
  EXPECT_EQ(folder_.Read("file.ini"), "new");
  EXPECT_THAT(Names(), ElementsAre("file.ini"));
}

TEST_F(WholeFileFaults, FoldersThatCannotBeFlushedAreNoError) {
  const ReplaceCalls calls(Replace());
  EXPECT_EQ(Replace(FaultOf(calls.flushFolder, "error=EINVAL")).exitCode, kReplaced);
  EXPECT_EQ(Replace(FaultOf(calls.openFolder, "error=EACCES")).exitCode, kReplaced);
}

TEST_F(WholeFileFaults, APathThatCannotBeCheckedIsNotReplaced) {
  std::vector<TracedCall> looks;
  for (const TracedCall& call : Replace().calls) {
    if (call.name == "openat" && call.Has("O_EXCL")) break;
    if (call.name.find("stat") != std::string::npos && call.Has("/file.ini\"")) looks.push_back(call);
  }
  folder_.Write("file.ini", "old");
  ASSERT_FALSE(looks.empty());
  for (const TracedCall& look : looks) {
    const Trace blind = Replace(FaultOf(look, "error=EIO"));
    EXPECT_EQ(blind.exitCode, kFailed) << look.line;
    EXPECT_THAT(ReplaceCalls(blind).order, ElementsAre()) << look.line;
    EXPECT_EQ(folder_.Read("file.ini"), "old") << look.line;
  }
}

/// The calls of one read.
struct ReadCalls {
  explicit ReadCalls(const Trace& trace) {
    int file = -1;
    for (const TracedCall& call : trace.calls) {
      if (call.name == "openat" && call.Has("/file.ini\"")) open = call, file = call.result;
      if (call.name.find("stat") != std::string::npos && call.IsOn(file)) status = call;
      if (call.name == "pread64" && call.IsOn(file)) read = call;
    }
  }

  TracedCall open, status, read;
};

TEST_F(WholeFileFaults, OnlyMissingFilesAreAbsent) {
  const Trace trace = Read();
  EXPECT_EQ(trace.exitCode, kRead);
  const ReadCalls calls(trace);
  struct Row {
    const TracedCall& call;
    const char* how;
    int expected;
  };
  for (const Row& row : {
           Row{calls.open, "error=ENOENT", kAbsent},
           Row{calls.open, "error=ENOTDIR", kAbsent},
           Row{calls.open, "error=EACCES", kUnreadable},
           Row{calls.open, "error=EIO", kUnreadable},
           Row{calls.open, "error=EMFILE", kUnreadable},
           Row{calls.status, "error=EIO", kUnreadable},
           Row{calls.read, "error=EIO", kUnreadable},
           Row{calls.read, "retval=0", kUnreadable},
           Row{calls.read, "error=EINTR", kRead},
       }) {
    ASSERT_NE(row.call.name, "");
    EXPECT_EQ(Read(FaultOf(row.call, row.how)).exitCode, row.expected) << row.call.name << ' ' << row.how;
  }
}

TEST_F(WholeFileFaults, NothingIsReadFromALargerFile) {
  folder_.Write("file.ini", std::string(101, 'x'));
  const Trace trace = Read();
  EXPECT_EQ(trace.exitCode, kTooLarge);
  EXPECT_EQ(ReadCalls(trace).read.name, "");
}

}  // namespace
}  // namespace quillon::test
