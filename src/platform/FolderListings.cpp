#include "platform/FolderListings.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <iterator>
#include <mutex>
#include <thread>
#include <utility>

#include "platform/FileSystem.h"
#include "platform/Worker.h"

namespace quillon {
namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kBetweenQuestions = std::chrono::milliseconds(20);
/// What is listed before it is asked for.
constexpr std::size_t kMostFolders = 128;
constexpr std::size_t kMostEntries = 100'000;
/// A waiting reader gets as many folders at once, because waking it costs more than listing a small folder; sooner when
/// a folder takes long.
constexpr std::size_t kWakeForFolders = 32;
constexpr auto kLongForAFolder = std::chrono::microseconds(200);

class OneByOne final : public FolderListings {
 public:
  explicit OneByOne(FileReads& files) : files_(files) {}
  std::optional<Listing> Read(const std::string& folder, Progress& /*progress*/) override {
    return files_.ReadFolder(folder);
  }
  std::optional<std::string> RealPath(const std::string& folder, Progress& /*progress*/) override {
    return files_.RealPath(folder);
  }

 private:
  FileReads& files_;
};

struct ListedFolder {
  std::string folder;
  std::optional<Listing> listing;
  std::exception_ptr thrown;  ///< instead of the listing
};

/// What the reader and its thread share. It lives as long as either of them.
class Exchange {
 public:
  Exchange(FolderQuestions ask, bool subfolders, char separator)
      : ask_(std::move(ask)), subfolders_(subfolders), separator_(separator) {}

  /// What the thread does.
  void Work() {
    try {
      Answer();
    } catch (const std::exception&) {  // no memory
      const std::lock_guard lock(mutex_);
      failure_ = std::current_exception();
      asks_ = false;
      listing_.reset();
      forReader_.notify_one();
    }
  }

  /// Adds what is listed to `listed`, once this folder, which the reader wants next, is among it. False when `progress`
  /// cancels.
  bool Take(const std::string& folder, std::deque<ListedFolder>& listed, Progress& progress) {
    std::unique_lock lock(mutex_);
    if (listing_ != folder && Find(folder) == listed_.end()) wanted_ = folder;
    forThread_.notify_one();
    if (!Await(lock, progress, [&] { return Find(folder) != listed_.end(); })) return false;
    // While the reader has others, because a link leads elsewhere first, the rest stays here, where its number is
    // bounded.
    const auto first = Find(folder);
    const auto last = first == listed_.begin() && listed.empty() ? listed_.end() : std::next(first);
    for (auto one = first; one != last; ++one) entries_ -= EntriesOf(*one);
    std::move(first, last, std::back_inserter(listed));
    listed_.erase(first, last);
    return true;
  }

  /// Nothing when `progress` cancels.
  std::optional<std::string> RealPath(const std::string& folder, Progress& progress) {
    std::unique_lock lock(mutex_);
    unresolved_ = folder;
    realPath_.reset();
    forThread_.notify_one();
    if (!Await(lock, progress, [&] { return realPath_.has_value(); })) return std::nullopt;
    return *std::exchange(realPath_, std::nullopt);
  }

  /// Ends the thread; false when it asks the system, which may never answer.
  bool End() {
    const std::lock_guard lock(mutex_);
    abandoned_ = true;
    forThread_.notify_one();
    return !asks_;
  }

 private:
  template <class Ready>
  bool Await(std::unique_lock<std::mutex>& lock, Progress& progress, const Ready& ready) {
    while (!ready()) {
      if (failure_) std::rethrow_exception(failure_);
      if (forReader_.wait_for(lock, kBetweenQuestions) == std::cv_status::no_timeout) continue;
      lock.unlock();
      const bool goesOn = progress.Continue();
      lock.lock();
      if (!goesOn) return false;
    }
    return true;
  }

  void Answer() {
    std::unique_lock lock(mutex_);
    for (;;) {
      forThread_.wait(lock, [this] { return abandoned_ || HasWork(); });
      if (abandoned_) return;
      asks_ = true;
      if (unresolved_) {
        Resolve(lock);
      } else {
        ListNext(lock);
      }
      asks_ = false;
    }
  }

  void Resolve(std::unique_lock<std::mutex>& lock) {
    const std::string folder = *std::exchange(unresolved_, std::nullopt);
    lock.unlock();
    std::string found = ask_.realPath(folder);
    lock.lock();
    realPath_ = std::move(found);
    forReader_.notify_one();
  }

  void ListNext(std::unique_lock<std::mutex>& lock) {
    listing_ = TakeFolder();
    lock.unlock();
    const Clock::time_point start = Clock::now();
    ListedFolder listed = List(*listing_);  // which only this thread changes
    std::vector<std::string> below = FoldersBelow(listed);
    const bool tookLong = Clock::now() - start > kLongForAFolder;
    lock.lock();
    if (wanted_ == listed.folder) wanted_.reset();
    listing_.reset();
    // The last one is next.
    upcoming_.insert(upcoming_.end(), std::move_iterator(below.rbegin()), std::move_iterator(below.rend()));
    entries_ += EntriesOf(listed);
    listed_.push_back(std::move(listed));
    if (tookLong || listed_.size() >= kWakeForFolders || !HasWork()) forReader_.notify_one();
  }

  [[nodiscard]] bool HasWork() const {
    return unresolved_ || wanted_ || (!upcoming_.empty() && listed_.size() < kMostFolders && entries_ < kMostEntries);
  }

  std::deque<ListedFolder>::iterator Find(const std::string& folder) {
    return std::find_if(listed_.begin(), listed_.end(),
                        [&](const ListedFolder& listed) { return listed.folder == folder; });
  }

  static std::size_t EntriesOf(const ListedFolder& listed) {
    return listed.listing && *listed.listing ? (**listed.listing).size() : 0;
  }

  std::string TakeFolder() {
    std::string folder = wanted_ ? *std::exchange(wanted_, std::nullopt) : upcoming_.back();
    // Wanted or not, it is the last one, unless it lies behind a link.
    const auto found = std::find(upcoming_.rbegin(), upcoming_.rend(), folder);
    if (found != upcoming_.rend()) upcoming_.erase(std::next(found).base());
    return folder;
  }

  ListedFolder List(const std::string& folder) {
    try {
      return {folder, ask_.list(folder, abandoned_), nullptr};
    } catch (const std::exception&) {
      return {folder, std::nullopt, std::current_exception()};
    }
  }

  [[nodiscard]] std::vector<std::string> FoldersBelow(const ListedFolder& listed) const {
    std::vector<std::string> below;
    if (!subfolders_ || !listed.listing || !*listed.listing) return below;
    for (const FolderEntry& entry : **listed.listing) {
      if (entry.isFolder && !entry.isLink) below.push_back(listed.folder + entry.name + separator_);
    }
    return below;
  }

  const FolderQuestions ask_;
  const bool subfolders_;
  const char separator_;
  std::atomic<bool> abandoned_ = false;
  std::mutex mutex_;
  std::condition_variable forThread_;
  std::condition_variable forReader_;
  bool asks_ = false;                      // the thread does not hold the lock, because it asks the system
  std::optional<std::string> unresolved_;  // whose real path the reader waits for
  std::optional<std::string> realPath_;    // the answer
  std::optional<std::string> wanted_;      // what the reader waits for, unless it is being listed
  std::optional<std::string> listing_;     // what the thread is listing
  std::vector<std::string> upcoming_;
  std::deque<ListedFolder> listed_;
  std::size_t entries_ = 0;     // of listed_
  std::exception_ptr failure_;  // what has ended the thread
};

class ListingsAhead final : public FolderListings {
 public:
  ListingsAhead(FolderQuestions ask, bool subfolders, char separator)
      : ask_(ask), exchange_(std::make_shared<Exchange>(std::move(ask), subfolders, separator)) {
    thread_ = StartWorker([exchange = exchange_] { exchange->Work(); });
  }
  ListingsAhead(const ListingsAhead&) = delete;
  ListingsAhead& operator=(const ListingsAhead&) = delete;

  ~ListingsAhead() override {
    if (!thread_) return;
    if (exchange_->End()) {
      thread_->join();
    } else {
      thread_->detach();
    }
  }

  std::optional<Listing> Read(const std::string& folder, Progress& progress) override {
    if (!thread_) return ask_.list(folder, std::atomic<bool>(false));
    for (;;) {
      // Nearly always it is the first one.
      const auto found = std::find_if(listed_.begin(), listed_.end(),
                                      [&](const ListedFolder& listed) { return listed.folder == folder; });
      if (found != listed_.end()) {
        ListedFolder listed = std::move(*found);
        listed_.erase(found);
        if (listed.thrown) std::rethrow_exception(listed.thrown);
        return std::move(listed.listing);
      }
      if (!exchange_->Take(folder, listed_, progress)) return std::nullopt;
    }
  }

  std::optional<std::string> RealPath(const std::string& folder, Progress& progress) override {
    return thread_ ? exchange_->RealPath(folder, progress) : ask_.realPath(folder);
  }

 private:
  FolderQuestions ask_;
  std::shared_ptr<Exchange> exchange_;
  std::optional<std::thread> thread_;
  std::deque<ListedFolder> listed_;  // and not asked for yet
};

}  // namespace

std::unique_ptr<FolderListings> MakeListingsAhead(FolderQuestions ask, bool subfolders, char separator) {
  return std::make_unique<ListingsAhead>(std::move(ask), subfolders, separator);
}

std::unique_ptr<FolderListings> FileReads::ListFolders(bool /*subfolders*/) {
  return std::make_unique<OneByOne>(*this);
}

}  // namespace quillon
