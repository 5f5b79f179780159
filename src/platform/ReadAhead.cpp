#include "platform/ReadAhead.h"

#include <algorithm>
#include <atomic>
#include <bit>
#include <chrono>
#include <limits>
#include <thread>
#include <utility>
#include <vector>

#include "platform/PreparedFile.h"
#include "platform/WaitingThreads.h"
#include "platform/Worker.h"

namespace quillon {
namespace {

using Clock = std::chrono::steady_clock;

/// A file that the system has in memory takes about a tenth of this.
constexpr auto kLongForAFile = std::chrono::microseconds(50);
/// More threads are started after so many slow pieces of work in a row: one may just have lost the processor.
constexpr int kSlowPieces = 2;
/// The files of a piece of work. More would make the reader wait, fewer would make the threads meet more often.
constexpr std::size_t kLargestPiece = 8;
/// The files that are announced at a time.
constexpr std::size_t kAnnouncedAtOnce = 16;
constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();

struct alignas(64) Slot {
  std::atomic<bool> done = false;
  PathList::File file;
  FileNeeds needs;
  PreparedFile prepared;
};

class ReadAhead final : public FilesInTurn {
 public:
  ReadAhead(const PathList& list, NeedsOf needs, MakeFileOpener makeOpener, const ReadAheadLimits& limits)
      : count_(list.size()),
        upcoming_(list.begin()),
        needs_(std::move(needs)),
        makeOpener_(std::move(makeOpener)),
        mostThreads_(std::min(limits.threads, limits.files)),
        slots_(std::min(std::bit_floor(limits.files), std::bit_ceil(list.size()))),
        ownOpener_(makeOpener_()) {
    threads_.reserve(mostThreads_);
    Announce();
    StartThreads(1);
  }
  ReadAhead(const ReadAhead&) = delete;
  ReadAhead& operator=(const ReadAhead&) = delete;

  ~ReadAhead() override { EndThreads(); }

  void Next() override {
    if (started_) {
      Release();
      ++current_;
    }
    started_ = true;
    Announce();
    if (slowPieces_.load(std::memory_order_relaxed) >= kSlowPieces) {
      slowPieces_.store(0, std::memory_order_relaxed);
      StartThreads(threads_.size());
    }
  }

  ByteSource* Open() override {
    PreparedFile& prepared = Current().prepared;
    AwaitCurrent();
    // What could not be prepared, or was not expected, is read as if there were no forecast.
    if (!prepared.IsPrepared() || Current().needs.what != FileNeeds::What::kContents) {
      opened_ = OpenNow();
      return opened_.get();
    }
    return prepared.IsOpen() ? &prepared : nullptr;
  }

  Result<FileStatus, FileError> Status() override {
    AwaitCurrent();
    const PreparedFile& prepared = Current().prepared;
    return prepared.Status() ? *prepared.Status() : ownOpener_->Status(Current().file);
  }

  void Release() override {
    AwaitCurrent();  // also when nobody has asked for it: its slot is used again
    Current().prepared.Release();
    opened_ = nullptr;
  }

 private:
  /// Indices of files that one thread prepares.
  struct Piece {
    std::size_t first = 0;
    std::size_t end = 0;
  };

  Slot& SlotOf(std::size_t index) { return slots_[index & (slots_.size() - 1)]; }
  Slot& Current() { return SlotOf(current_); }

  void EndThreads() {
    ends_.store(true);
    idle_.Wake();
    for (std::thread& thread : threads_) thread.join();
    threads_.clear();
  }

  // The current file needs what the prepared ones keep open. Without them, each file is read in its turn.
  std::unique_ptr<ByteSource> OpenNow() {
    FileOpener::Opened opened = ownOpener_->Open(Current().file);
    if (!opened.lacksResources || ends_.load(std::memory_order_relaxed)) return std::move(opened.file);
    EndThreads();
    mostThreads_ = 0;
    for (Slot& slot : slots_) slot.prepared.Release();
    return ownOpener_->Open(Current().file).file;
  }

  // Lets the threads have the next files, in the slots that are free.
  void Announce() {
    std::size_t announced = announced_.load(std::memory_order_relaxed);
    const std::size_t end = std::min(count_, current_ + slots_.size());
    if (end - announced < std::min(kAnnouncedAtOnce, slots_.size() / 2) && (end != count_ || announced == end)) return;
    for (; announced < end; ++announced, ++upcoming_) {
      Slot& slot = SlotOf(announced);
      slot.file = *upcoming_;
      slot.needs = needs_(slot.file);
      slot.done.store(false, std::memory_order_relaxed);
    }
    announced_.store(announced);
    idle_.Wake();
  }

  void StartThreads(std::size_t count) {
    for (; count > 0 && threads_.size() < mostThreads_; --count) {
      const std::shared_ptr<FileOpener> opener = makeOpener_();
      std::optional<std::thread> thread = StartWorker([this, opener] { Work(*opener); });
      if (!thread) {
        mostThreads_ = threads_.size();
        return;
      }
      threads_.push_back(std::move(*thread));
    }
  }

  Piece TakePiece(std::size_t length) {
    std::size_t first = nextPiece_.load(std::memory_order_relaxed);
    for (;;) {
      const std::size_t end = std::min(announced_.load(std::memory_order_acquire), first + length);
      if (first >= end) return {};
      if (nextPiece_.compare_exchange_weak(first, end, std::memory_order_relaxed)) return {first, end};
    }
  }

  void Prepare(std::size_t index, FileOpener& opener) {
    Slot& slot = SlotOf(index);
    slot.prepared.Prepare(opener, slot.file, slot.needs);
    slot.done.store(true);
    if (awaited_.load() == index) reader_.Wake();
  }

  // What the threads do.
  void Work(FileOpener& opener) {
    for (std::size_t length = 1;;) {
      if (ends_.load(std::memory_order_relaxed)) return;
      const Piece piece = TakePiece(length);
      if (piece.first == piece.end) {
        idle_.WaitUntil([this] { return ends_.load() || nextPiece_.load() < announced_.load(); });
        continue;
      }
      const Clock::time_point start = Clock::now();
      for (std::size_t index = piece.first; index < piece.end; ++index) {
        if (ends_.load(std::memory_order_relaxed)) return;
        Prepare(index, opener);
      }
      const bool slow = Clock::now() - start > kLongForAFile * (piece.end - piece.first);
      slowPieces_.store(slow ? slowPieces_.load(std::memory_order_relaxed) + 1 : 0, std::memory_order_relaxed);
      length = slow ? 1 : std::min(2 * length, kLargestPiece);
    }
  }

  void AwaitCurrent() {
    if (ends_.load(std::memory_order_relaxed)) return;  // see OpenNow
    while (!Current().done.load(std::memory_order_acquire)) {
      // Several threads are there for a slow disk, on which the reader would keep its caller waiting.
      const Piece piece = threads_.size() > 1 ? Piece() : TakePiece(1);
      if (piece.first < piece.end) {
        Prepare(piece.first, *ownOpener_);
      } else {
        awaited_.store(current_);
        reader_.WaitUntil([this] { return Current().done.load(); });
        awaited_.store(kNone, std::memory_order_relaxed);
      }
    }
  }

  // Of the reader's thread:
  std::size_t count_;
  PathList::Iterator upcoming_;
  NeedsOf needs_;
  MakeFileOpener makeOpener_;
  std::size_t mostThreads_;
  std::vector<Slot> slots_;  // the files from current_ on; their number is a power of two
  std::unique_ptr<FileOpener> ownOpener_;
  std::unique_ptr<ByteSource> opened_;
  std::size_t current_ = 0;
  bool started_ = false;
  std::vector<std::thread> threads_;
  // Of all threads:
  alignas(64) std::atomic<std::size_t> announced_ = 0;
  std::atomic<bool> ends_ = false;
  std::atomic<std::size_t> awaited_ = kNone;  // the file that the reader waits for
  WaitingThreads idle_;
  WaitingThreads reader_;
  alignas(64) std::atomic<std::size_t> nextPiece_ = 0;
  alignas(64) std::atomic<int> slowPieces_ = 0;
};

}  // namespace

std::unique_ptr<FilesInTurn> MakeReadAhead(const PathList& list, NeedsOf needs, MakeFileOpener makeOpener,
                                           const ReadAheadLimits& limits) {
  return std::make_unique<ReadAhead>(list, std::move(needs), std::move(makeOpener), limits);
}

}  // namespace quillon
