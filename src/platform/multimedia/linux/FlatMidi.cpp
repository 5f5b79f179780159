#include "platform/multimedia/linux/FlatMidi.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>
#include <vector>

namespace quillon {
namespace {

constexpr std::uint64_t kLargestFile = 32U << 20U;
constexpr std::size_t kChunkHeader = 8;

constexpr unsigned kMeta = 0xFF;
constexpr unsigned kMetaText = 0x01;
constexpr unsigned kMetaEnd = 0x2F;
constexpr unsigned kMetaTempo = 0x51;

struct Message {
  std::uint64_t tick = 0;
  std::string_view bytes;
  unsigned status = 0;  // of `bytes`, which are the data behind it
};

struct Tempo {
  std::uint64_t tick = 0;
  double microseconds = 500000;  // a quarter note
};

/// How many messages are taken between two looks at the time.
constexpr std::size_t kMessagesAtOnce = 4096;

struct Score {
  std::vector<Message> messages;
  std::vector<Tempo> tempos;
  std::uint64_t end = 0;
};

/// Bytes taken one after the other; `Good` is false once there were too few.
class Bytes {
 public:
  explicit Bytes(std::string_view bytes) : rest_(bytes) {}

  [[nodiscard]] bool Good() const { return good_; }
  [[nodiscard]] bool AtEnd() const { return rest_.empty(); }
  [[nodiscard]] unsigned Peek() const { return rest_.empty() ? 0 : static_cast<unsigned char>(rest_.front()); }

  std::string_view Take(std::size_t count) {
    good_ = good_ && count <= rest_.size();
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(taken.size());
    return taken;
  }

  unsigned Number(std::size_t count) {
    unsigned number = 0;
    for (const char c : Take(count)) number = number << 8U | static_cast<unsigned char>(c);
    return number;
  }

  /// A variable-length quantity.
  unsigned Quantity() {
    constexpr int kMostBytes = 4;
    unsigned number = 0;
    for (int i = 0; i < kMostBytes; ++i) {
      const unsigned byte = Number(1);
      number = number << 7U | (byte & 0x7FU);
      if (byte < 0x80U) return number;
    }
    good_ = false;
    return number;
  }

 private:
  std::string_view rest_;
  bool good_ = true;
};

/// How many data bytes follow the status of a channel or a system message.
std::size_t DataLength(unsigned status) {
  const unsigned kind = status & 0xF0U;
  if (kind == 0xC0U || kind == 0xD0U || status == 0xF1U || status == 0xF3U) return 1;
  return kind != 0xF0U || status == 0xF2U ? 2 : 0;
}

class TrackReader {
 public:
  TrackReader(std::string_view track, std::uint64_t start, Score& score) : bytes_(track), tick_(start), score_(score) {}

  void Read(const Deadline& deadline) {
    while (!ended_ && !bytes_.AtEnd()) {
      if (score_.messages.size() % kMessagesAtOnce == 0 && deadline.Passed()) break;
      const unsigned delta = bytes_.Quantity();
      if (!bytes_.Good()) break;
      tick_ += delta;
      ReadEvent();
      if (!bytes_.Good()) break;
    }
    score_.end = std::max(score_.end, tick_);
  }

 private:
  void ReadEvent() {
    const unsigned status = bytes_.Peek() >= 0x80U ? bytes_.Number(1) : running_;
    if (status == kMeta) {
      ReadMeta();
    } else if (status == 0xF0U || status == 0xF7U) {
      Keep(status, bytes_.Take(bytes_.Quantity()));
    } else if (status >= 0xF0U) {
      bytes_.Take(DataLength(status));
    } else if (status == 0) {
      ended_ = true;  // data with no message that it could belong to
    } else {
      running_ = status;
      Keep(status, bytes_.Take(DataLength(status)));
    }
  }

  void ReadMeta() {
    const unsigned type = bytes_.Number(1);
    Bytes data(bytes_.Take(bytes_.Quantity()));
    ended_ = type == kMetaEnd;
    if (type != kMetaTempo) return;
    const unsigned microseconds = data.Number(3);
    if (data.Good() && microseconds != 0) score_.tempos.push_back({tick_, static_cast<double>(microseconds)});
  }

  void Keep(unsigned status, std::string_view data) {
    if (bytes_.Good()) score_.messages.push_back({tick_, data, status});
  }

  Bytes bytes_;
  std::uint64_t tick_;
  Score& score_;
  unsigned running_ = 0;
  bool ended_ = false;
};

struct TimeBase {
  double ticks = 1;  // of a quarter note, or of a second
  bool quarterNotes = true;
};

std::optional<TimeBase> ReadTimeBase(unsigned division) {
  if (division == 0) return std::nullopt;
  if (division < 0x8000U) return TimeBase{static_cast<double>(division), true};
  const unsigned framesPerSecond = 0x100U - (division >> 8U);
  const double exact = framesPerSecond == 29 ? 30000.0 / 1001.0 : static_cast<double>(framesPerSecond);
  const double ticksPerFrame = division & 0xFFU;
  if (ticksPerFrame == 0) return std::nullopt;
  return TimeBase{exact * ticksPerFrame, false};
}

/// Turns rising ticks into microseconds.
class Clock {
 public:
  Clock(const TimeBase& base, const std::vector<Tempo>& tempos)
      : base_(base), next_(tempos.begin()), end_(tempos.end()) {
    if (!base.quarterNotes) tempo_ = 1e6;
  }

  double At(std::uint64_t tick) {
    for (; base_.quarterNotes && next_ != end_ && next_->tick <= tick; ++next_) {
      Advance(next_->tick);
      tempo_ = next_->microseconds;
    }
    Advance(tick);
    return microseconds_;
  }

 private:
  void Advance(std::uint64_t tick) {
    microseconds_ += static_cast<double>(tick - tick_) * tempo_ / base_.ticks;
    tick_ = tick;
  }

  TimeBase base_;
  std::vector<Tempo>::const_iterator next_;
  std::vector<Tempo>::const_iterator end_;
  double tempo_ = Tempo().microseconds;
  std::uint64_t tick_ = 0;
  double microseconds_ = 0;
};

void AppendNumber(std::string& bytes, unsigned number, unsigned count) {
  while (count-- > 0) bytes += static_cast<char>(static_cast<unsigned char>(number >> 8U * count));
}

void AppendQuantity(std::string& bytes, unsigned number) {
  for (unsigned shift = 21; shift > 0; shift -= 7) {
    if (number >> shift != 0) AppendNumber(bytes, (number >> shift & 0x7FU) | 0x80U, 1);
  }
  AppendNumber(bytes, number & 0x7FU, 1);
}

// A quarter note of a second, of so many ticks, is the one tempo.
constexpr unsigned kTicks = 10000;
constexpr unsigned kTempo = 1000000;

class TrackWriter {
 public:
  TrackWriter() {
    AppendMeta(0, kMetaTempo, 3);
    AppendNumber(track_, kTempo, 3);
  }

  void Append(double microseconds, const Message& message) {
    AppendDelta(microseconds);
    AppendNumber(track_, message.status, 1);
    if (message.status >= 0xF0U) AppendQuantity(track_, static_cast<unsigned>(message.bytes.size()));
    track_ += message.bytes;
  }

  std::string End(double microseconds) {
    AppendMeta(microseconds, kMetaEnd, 0);
    constexpr unsigned kHeaderLength = 6;
    std::string file = "MThd";
    AppendNumber(file, kHeaderLength, 4);
    AppendNumber(file, 0, 2);
    AppendNumber(file, 1, 2);
    AppendNumber(file, kTicks, 2);
    file += "MTrk";
    AppendNumber(file, static_cast<unsigned>(track_.size()), 4);
    return file + track_;
  }

 private:
  void AppendMeta(double microseconds, unsigned type, unsigned length) {
    AppendDelta(microseconds);
    for (const unsigned byte : {kMeta, type, length}) AppendNumber(track_, byte, 1);
  }

  void AppendDelta(double microseconds) {
    constexpr unsigned kMost = 0x0FFFFFFF;  // what a quantity can hold; empty texts divide a longer pause
    const auto tick = static_cast<std::uint64_t>(std::llround(microseconds * kTicks / kTempo));
    for (; tick - tick_ > kMost; tick_ += kMost) {
      AppendQuantity(track_, kMost);
      for (const unsigned byte : {kMeta, kMetaText, 0U}) AppendNumber(track_, byte, 1);
    }
    AppendQuantity(track_, static_cast<unsigned>(tick - tick_));
    tick_ = tick;
  }

  std::string track_;
  std::uint64_t tick_ = 0;
};

/// Of a file in RIFF, what is in it.
std::string_view WithoutRiff(std::string_view file) {
  constexpr std::size_t kRiffHeader = 12;
  if (!file.starts_with("RIFF") || !file.substr(kChunkHeader).starts_with("RMID")) return file;
  const std::size_t song = file.find("MThd", kRiffHeader);
  return song == std::string_view::npos ? std::string_view() : file.substr(song);
}

Score ReadTracks(Bytes& file, unsigned format, const Deadline& deadline) {
  Score score;
  while (!file.AtEnd() && !deadline.Passed()) {
    const std::string_view id = file.Take(4);
    const std::string_view track = file.Take(file.Number(4));
    // The patterns of format 2 follow each other.
    if (id == "MTrk") TrackReader(track, format == 2 ? score.end : 0, score).Read(deadline);
  }
  if (deadline.Passed()) return score;
  const auto earlier = [](const auto& left, const auto& right) { return left.tick < right.tick; };
  std::stable_sort(score.messages.begin(), score.messages.end(), earlier);
  std::stable_sort(score.tempos.begin(), score.tempos.end(), earlier);
  return score;
}

std::optional<FlatMidiSong> Write(const Score& score, const TimeBase& base, const Deadline& deadline) {
  constexpr double kMost = std::numeric_limits<int>::max();
  const double end = Clock(base, score.tempos).At(score.end);
  if (end / 1000 > kMost) return std::nullopt;
  Clock clock(base, score.tempos);
  TrackWriter writer;
  std::size_t written = 0;
  for (const Message& message : score.messages) {
    if (written++ % kMessagesAtOnce == 0 && deadline.Passed()) return std::nullopt;
    writer.Append(clock.At(message.tick), message);
  }
  return FlatMidiSong{writer.End(end), static_cast<int>(std::lround(end / 1000))};
}

}  // namespace

bool IsMidi(ByteSource& source) {
  constexpr std::size_t kEnough = 12;
  const std::string start = source.Read(0, kEnough);
  return start.starts_with("MThd") || (start.starts_with("RIFF") && start.ends_with("RMID"));
}

std::optional<FlatMidiSong> FlattenMidi(ByteSource& source, const Deadline& deadline) {
  if (!IsMidi(source) || source.Size() > kLargestFile) return std::nullopt;
  const std::string whole = source.Read(0, source.Size());
  Bytes file(WithoutRiff(whole));
  file.Take(4);
  Bytes header(file.Take(file.Number(4)));
  const unsigned format = header.Number(2);
  header.Take(2);
  const std::optional<TimeBase> base = ReadTimeBase(header.Number(2));
  if (!file.Good() || !header.Good() || !base) return std::nullopt;
  const Score score = ReadTracks(file, format, deadline);
  if (deadline.Passed()) return std::nullopt;
  return Write(score, *base, deadline);
}

}  // namespace quillon
