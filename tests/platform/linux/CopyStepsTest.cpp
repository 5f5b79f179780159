#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <functional>
#include <string>

#include "platform/linux/ChildProcess.h"
#include "platform/linux/CopySteps.h"
#include "platform/linux/WriteLease.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

namespace fs = std::filesystem;

/// Actions between the steps of a move.
struct Disturbances {
  std::function<void()> afterOpening = [] {};
  std::function<void()> afterCopying = [] {};
  std::function<void()> afterPublishing = [] {};
  std::function<void()> beforeRemoving = [] {};  // of the source, which was unchanged a moment ago
};

class DisturbedSteps final : public CopySteps {
 public:
  explicit DisturbedSteps(const Disturbances& disturbances) : disturbances_(disturbances) {}

  FileOutcome Look(const std::string& path) override { return steps_.Look(path); }
  FileOutcome OpenSource(const std::string& from) override {
    return Then(steps_.OpenSource(from), disturbances_.afterOpening);
  }
  MoveOutcome CopyInto(const std::string& folder) override {
    return Then(steps_.CopyInto(folder), disturbances_.afterCopying);
  }
  [[nodiscard]] std::string Temporary() const override { return steps_.Temporary(); }
  FileOutcome Publish(const std::string& to) override {
    return Then(steps_.Publish(to), disturbances_.afterPublishing);
  }
  FileOutcome FlushFolder(const std::string& folder) override { return steps_.FlushFolder(folder); }
  SourceNow LookAtSource() override { return steps_.LookAtSource(); }
  FileOutcome RemoveSource() override {
    disturbances_.beforeRemoving();
    return steps_.RemoveSource();
  }
  FileOutcome RemoveCopy(const std::string& path) override { return steps_.RemoveCopy(path); }

 private:
  template <class Outcome>
  static Outcome Then(Outcome outcome, const std::function<void()>& happens) {
    happens();
    return outcome;
  }

  const Disturbances& disturbances_;
  LinuxCopySteps steps_;
};

/// Moves "here/song" to "there/song" by copying, although both folders are on one volume.
class CopyStepsOfTheSystem : public testing::Test {
 protected:
  void SetUp() override {
    folder_.Write("here/song", "content");
    folder_.MakeFolder("there");
  }

  MoveOutcome Move() {
    DisturbedSteps steps(disturbances_);
    return MoveByCopying(steps, folder_.At("here/song"), folder_.At("there/song"), PathStyle::kLinux);
  }

  [[nodiscard]] int FailureNumber() {
    const MoveOutcome outcome = Move();
    return outcome ? 0 : outcome.Failure().number;
  }

  void Append(const std::string& name, const std::string& bytes) const {
    folder_.Write(name, folder_.Read(name) + bytes);
  }

  [[nodiscard]] std::vector<std::string> NamesThere() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_.At("there"))) names.push_back(entry.path().filename());
    return names;
  }

  void ExpectBothKept(const std::string& source) {
    const MoveOutcome outcome = Move();
    ASSERT_FALSE(outcome);
    EXPECT_EQ(outcome.Failure().number, file_error::kBothKept);
    EXPECT_EQ(outcome.Failure().fileAt, folder_.At("there/song"));
    EXPECT_EQ(folder_.Read("here/song"), source);
    EXPECT_EQ(folder_.Read("there/song"), "content");
    EXPECT_THAT(NamesThere(), testing::ElementsAre("song"));
  }

  TempFolder folder_;
  Disturbances disturbances_;
};

TEST_F(CopyStepsOfTheSystem, MoveTheFile) {
  EXPECT_EQ(FailureNumber(), 0);
  EXPECT_FALSE(folder_.Exists("here/song"));
  EXPECT_EQ(folder_.Read("there/song"), "content");
  EXPECT_THAT(NamesThere(), testing::ElementsAre("song")) << "neither the temporary file nor its mark is left";
}

TEST_F(CopyStepsOfTheSystem, KeepASourceThatIsWrittenToWhileItsCopyIsFlushed) {
  disturbances_.afterCopying = [this] { Append("here/song", " and more"); };
  ExpectBothKept("content and more");
}

TEST_F(CopyStepsOfTheSystem, KeepASourceThatIsWrittenToAfterItsCopyHasTheNewName) {
  disturbances_.afterPublishing = [this] { Append("here/song", " and more"); };
  ExpectBothKept("content and more");
}

TEST_F(CopyStepsOfTheSystem, KeepASourceThatIsWrittenToJustBeforeItIsDeleted) {
  disturbances_.beforeRemoving = [this] { Append("here/song", " and more"); };
  ExpectBothKept("content and more");
}

TEST_F(CopyStepsOfTheSystem, KeepASourceOfTheSameLengthAndTimeWithOtherContent) {
  disturbances_.afterCopying = [this] {
    struct stat before = {};
    ASSERT_EQ(::stat(folder_.At("here/song").c_str(), &before), 0);
    folder_.Write("here/song", "CONTENT");
    const std::array<timespec, 2> times = {before.st_atim, before.st_mtim};
    ASSERT_EQ(::utimensat(AT_FDCWD, folder_.At("here/song").c_str(), times.data(), 0), 0);
  };
  ExpectBothKept("CONTENT");
}

TEST_F(CopyStepsOfTheSystem, KeepAFileThatHasTakenTheSourcesPlace) {
  disturbances_.afterCopying = [this] {
    fs::remove(folder_.At("here/song"));
    folder_.Write("here/song", "another");
  };
  ExpectBothKept("another");
}

// Otherwise, data written between the last check and the deletion would be lost.
TEST_F(CopyStepsOfTheSystem, KeepASourceThatSomebodyHasOpenForWriting) {
  for (const bool fromTheStart : {true, false}) {
    std::optional<Descriptor> writer;
    const auto open = [&] { writer.emplace(::open(folder_.At("here/song").c_str(), O_WRONLY | O_CLOEXEC)); };
    if (fromTheStart) open();
    disturbances_.afterPublishing = open;
    EXPECT_EQ(FailureNumber(), file_error::kAccess);
    ASSERT_TRUE(writer && writer->Open());
    EXPECT_EQ(::pwrite(writer->Number(), "CON", 3, 0), 3);
    EXPECT_EQ(folder_.Read("here/song"), "CONtent");
    EXPECT_TRUE(NamesThere().empty());
    writer.reset();
    folder_.Write("here/song", "content");
  }
}

TEST_F(CopyStepsOfTheSystem, KeepASourceThatSomebodyHasMappedForWriting) {
  void* memory = nullptr;
  {
    const Descriptor writer(::open(folder_.At("here/song").c_str(), O_RDWR | O_CLOEXEC));
    memory = ::mmap(nullptr, 7, PROT_READ | PROT_WRITE, MAP_SHARED, writer.Number(), 0);
  }
  ASSERT_NE(memory, MAP_FAILED);
  EXPECT_EQ(FailureNumber(), file_error::kAccess);
  EXPECT_TRUE(NamesThere().empty());
  EXPECT_EQ(::munmap(memory, 7), 0);
  EXPECT_EQ(FailureNumber(), 0);
}

TEST_F(CopyStepsOfTheSystem, KeepAWriterWaitingAndLetItGoOn) {
  const std::string path = folder_.At("here/song");
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  std::optional<WriteLease> lease(file.Number());
  EXPECT_FALSE(lease->Refused());
  const int refused = ::open(path.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
  EXPECT_EQ(refused, -1);
  EXPECT_EQ(errno, EWOULDBLOCK);
  lease.reset();
  const Descriptor writer(::open(path.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC));
  EXPECT_TRUE(writer.Open());
}

TEST_F(CopyStepsOfTheSystem, TreatAMissingSourceAsMoved) {
  disturbances_.afterPublishing = [this] { fs::remove(folder_.At("here/song")); };
  EXPECT_EQ(FailureNumber(), 0);
  EXPECT_EQ(folder_.Read("there/song"), "content");
}

TEST_F(CopyStepsOfTheSystem, RejectASourceThatEndsEarly) {
  disturbances_.afterOpening = [this] { fs::resize_file(folder_.At("here/song"), 3); };
  EXPECT_EQ(FailureNumber(), file_error::kOwn + EIO);
  EXPECT_EQ(folder_.Read("here/song"), "con");
  EXPECT_TRUE(NamesThere().empty());
}

TEST_F(CopyStepsOfTheSystem, RejectASourceThatGrowsMeanwhile) {
  disturbances_.afterOpening = [this] { Append("here/song", " and more"); };
  EXPECT_EQ(FailureNumber(), file_error::kAccess);
  EXPECT_EQ(folder_.Read("here/song"), "content and more");
  EXPECT_TRUE(NamesThere().empty());
}

TEST_F(CopyStepsOfTheSystem, KeepAnotherProgramsFileAtTheNewName) {
  disturbances_.afterCopying = [this] { folder_.Write("there/song", "rival"); };
  EXPECT_EQ(FailureNumber(), file_error::kAlreadyExists);
  EXPECT_EQ(folder_.Read("here/song"), "content");
  EXPECT_EQ(folder_.Read("there/song"), "rival");
  EXPECT_THAT(NamesThere(), testing::ElementsAre("song"));
}

TEST_F(CopyStepsOfTheSystem, DeleteNothingButTheCopyItself) {
  LinuxCopySteps steps;
  ASSERT_EQ(steps.OpenSource(folder_.At("here/song")), std::nullopt);
  ASSERT_TRUE(steps.CopyInto(folder_.At("there/")));
  folder_.Write("there/song", "rival");
  EXPECT_EQ(steps.RemoveCopy(folder_.At("there/song")), std::nullopt);
  EXPECT_EQ(folder_.Read("there/song"), "rival");
  EXPECT_EQ(steps.RemoveCopy(steps.Temporary()), std::nullopt);
  EXPECT_FALSE(fs::exists(steps.Temporary()));
}

// A file size limit makes the system kill the process in the middle of copying.
TEST_F(CopyStepsOfTheSystem, LeftoversOfAKilledMoveArePrivateAndDeletedAfterADay) {
  folder_.Write("here/song", std::string(100'000, 'x'));
  ASSERT_EQ(::chmod(folder_.At("here/song").c_str(), 0666), 0);
  const int result = RunInChild([this] {
    ::umask(0);
    const rlimit limit = {5000, 5000};
    if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return kCannotSetUp;
    return Move() ? 1 : 2;
  });
  ASSERT_EQ(result, kDied);
  EXPECT_EQ(folder_.Read("here/song").size(), 100'000U);
  ASSERT_EQ(NamesThere().size(), 2U) << "the temporary file and its mark";
  for (const std::string& name : NamesThere()) {
    struct stat status = {};
    ASSERT_EQ(::stat((folder_.At("there/") + name).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777u, 0600U) << name;
  }
  MakeFileChanges()->RemoveLeftovers(folder_.At("there"));
  EXPECT_EQ(NamesThere().size(), 2U) << "a move may still be at it";
  for (const std::string& name : NamesThere()) {
    fs::last_write_time(folder_.At("there/") + name, fs::file_time_type::clock::now() - std::chrono::hours(25));
  }
  MakeFileChanges()->RemoveLeftovers(folder_.At("there"));
  EXPECT_TRUE(NamesThere().empty());
}

TEST_F(CopyStepsOfTheSystem, NeverWriteIntoAFileThatIsThere) {
  folder_.Write("there/taken", "somebody's");
  std::optional<OpenedSource> source;
  ASSERT_EQ(OpenCopySource(folder_.At("here/song"), source), 0);
  MadeCopy made;
  EXPECT_EQ(CopyWithAttributes(*source, folder_.At("there/taken"), made), EEXIST);
  EXPECT_EQ(folder_.Read("there/taken"), "somebody's");
}

TEST_F(CopyStepsOfTheSystem, ASparseFileStaysSparse) {
  constexpr std::size_t kLength = 8'000'001;
  std::string content(kLength, '\0');
  content[4'100'000] = 'x';
  {
    const Descriptor file(::open(folder_.At("here/song").c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC));
    ASSERT_EQ(::ftruncate(file.Number(), kLength), 0);
    ASSERT_EQ(::pwrite(file.Number(), "x", 1, 4'100'000), 1);
  }
  struct stat before = {};
  ASSERT_EQ(::stat(folder_.At("here/song").c_str(), &before), 0);
  if (before.st_blocks > 1000) GTEST_SKIP() << "this volume has no sparse files";
  EXPECT_EQ(FailureNumber(), 0);
  struct stat after = {};
  ASSERT_EQ(::stat(folder_.At("there/song").c_str(), &after), 0);
  EXPECT_LT(after.st_blocks, 1000);
  EXPECT_TRUE(folder_.Read("there/song") == content);
}

TEST_F(CopyStepsOfTheSystem, OpenFilesAndLinksOnly) {
  folder_.MakeFolder("folder");
  ASSERT_EQ(::mkfifo(folder_.At("pipe").c_str(), 0600), 0);
  for (const char* const name : {"folder", "pipe"}) {
    LinuxCopySteps steps;
    const FileOutcome outcome = steps.OpenSource(folder_.At(name));
    ASSERT_TRUE(outcome) << name;
    EXPECT_EQ(outcome->number, file_error::kOwn + EXDEV);
  }
}

}  // namespace
}  // namespace quillon::test
