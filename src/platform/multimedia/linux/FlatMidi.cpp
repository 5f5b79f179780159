#include "platform/multimedia/linux/FlatMidi.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <queue>
#include <string_view>
#include <utility>
#include <vector>

namespace quillon {
namespace {

constexpr std::uint64_t kLargestFile = ByteSource::kLongestRead;
constexpr std::size_t kChunkHeader = 8;
constexpr std::size_t kMostTracks = 10000;

constexpr unsigned kMeta = 0xFF;
constexpr unsigned kMetaText = 0x01;
constexpr unsigned kMetaEnd = 0x2F;
constexpr unsigned kMetaTempo = 0x51;

/// A message or a tempo change.
struct Event {
  std::uint64_t tick = 0;
  std::string_view bytes = {};
  unsigned status = 0;        // the message's status byte; `bytes` are its data
  unsigned microseconds = 0;  // for a tempo change: the length of a quarter note; 0 for messages
};

/// Checks the deadline only now and then, because a check takes as long as reading several events.
class Patience {
 public:
  explicit Patience(const Deadline& deadline) : deadline_(deadline) {}

  [[nodiscard]] bool Ended() {
    constexpr unsigned kSteps = 4096;
    if (++steps_ % kSteps == 0) ended_ = ended_ || deadline_.Passed();
    return ended_;
  }

 private:
  const Deadline& deadline_;
  unsigned steps_ = 0;
  bool ended_ = false;
};

/// Reads bytes sequentially; `Good` is false after reading past the end.
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

/// The number of data bytes behind the status byte of a channel or system message.
std::size_t DataLength(unsigned status) {
  const unsigned kind = status & 0xF0U;
  if (kind == 0xC0U || kind == 0xD0U || status == 0xF1U || status == 0xF3U) return 1;
  return kind != 0xF0U || status == 0xF2U ? 2 : 0;
}

/// Reads the events of one track.
class Track {
 public:
  Track(std::string_view bytes, std::uint64_t start) : bytes_(bytes), tick_(start) {}

  /// Returns nothing at the end of the track or at damage in it.
  std::optional<Event> Next() {
    while (!ended_ && !bytes_.AtEnd()) {
      const unsigned delta = bytes_.Quantity();
      if (!bytes_.Good()) break;
      tick_ += delta;
      const std::optional<Event> event = ReadEvent();
      ended_ = ended_ || !bytes_.Good();
      if (event) return event;
    }
    ended_ = true;
    return std::nullopt;
  }

  /// The tick of the last event that Next has read, whether or not it returned the event.
  [[nodiscard]] std::uint64_t Tick() const { return tick_; }

 private:
  std::optional<Event> ReadEvent() {
    const unsigned status = bytes_.Peek() >= 0x80U ? bytes_.Number(1) : running_;
    if (status == kMeta) return ReadMeta();
    if (status == 0xF0U || status == 0xF7U) return Message(status, bytes_.Take(bytes_.Quantity()));
    if (status >= 0xF0U) {
      bytes_.Take(DataLength(status));
      return std::nullopt;
    }
    if (status == 0) {
      ended_ = true;  // data bytes without a running status
      return std::nullopt;
    }
    running_ = status;
    return Message(status, bytes_.Take(DataLength(status)));
  }

  std::optional<Event> ReadMeta() {
    const unsigned type = bytes_.Number(1);
    Bytes data(bytes_.Take(bytes_.Quantity()));
    ended_ = type == kMetaEnd;
    if (type != kMetaTempo) return std::nullopt;
    const unsigned microseconds = data.Number(3);
    if (!data.Good() || microseconds == 0) return std::nullopt;
    return Event{.tick = tick_, .microseconds = microseconds};
  }

  std::optional<Event> Message(unsigned status, std::string_view data) const {
    if (!bytes_.Good()) return std::nullopt;
    return Event{.tick = tick_, .bytes = data, .status = status};
  }

  Bytes bytes_;
  std::uint64_t tick_;
  unsigned running_ = 0;
  bool ended_ = false;
};

struct Score {
  std::vector<Track> tracks;  // each at its beginning
  std::uint64_t end = 0;      // the tick of the last event
};

/// Calls `visit` for the events of all tracks in the order of time, simultaneous ones in the order of the tracks.
/// Returns false when the time is up.
template <class Visit>
bool ForEachEvent(std::vector<Track> tracks, Patience& patience, Visit visit) {
  using Entry = std::pair<std::uint64_t, std::size_t>;  // the tick of a track's next event, and the track's index
  std::priority_queue<Entry, std::vector<Entry>, std::greater<>> queue;
  std::vector<Event> next(tracks.size());
  const auto advance = [&](std::size_t track) {
    const std::optional<Event> event = tracks[track].Next();
    if (!event) return;
    next[track] = *event;
    queue.emplace(event->tick, track);
  };
  for (std::size_t track = 0; track < tracks.size(); ++track) advance(track);
  while (!queue.empty()) {
    if (patience.Ended()) return false;
    const std::size_t track = queue.top().second;
    queue.pop();
    visit(next[track]);
    advance(track);
  }
  return true;
}

struct TimeBase {
  double ticks = 1;  // per quarter note, or per second
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

/// Converts ticks to microseconds. Ticks must not decrease.
class Clock {
 public:
  explicit Clock(const TimeBase& base) : base_(base) {
    if (!base.quarterNotes) tempo_ = 1e6;
  }

  void ChangeTempo(const Event& event) {
    if (!base_.quarterNotes) return;
    At(event.tick);
    tempo_ = event.microseconds;
  }

  double At(std::uint64_t tick) {
    microseconds_ += static_cast<double>(tick - tick_) * tempo_ / base_.ticks;
    tick_ = tick;
    return microseconds_;
  }

 private:
  TimeBase base_;
  double tempo_ = 500000;  // microseconds per quarter note, or per second
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

// The song's only tempo: a quarter note lasts one second and has this many ticks.
constexpr unsigned kTicks = 10000;
constexpr unsigned kTempo = 1000000;

/// Writes a MIDI file with one track.
class SongWriter {
 public:
  /// `room` is the expected largest length of the file. Unused room costs nothing.
  explicit SongWriter(std::size_t room) {
    constexpr unsigned kHeaderLength = 6;
    file_.reserve(room);
    file_ = "MThd";
    AppendNumber(file_, kHeaderLength, 4);
    AppendNumber(file_, 0, 2);
    AppendNumber(file_, 1, 2);
    AppendNumber(file_, kTicks, 2);
    file_ += "MTrk";
    AppendNumber(file_, 0, 4);
    start_ = file_.size();
    AppendMeta(0, kMetaTempo, 3);
    AppendNumber(file_, kTempo, 3);
  }

  void Append(double microseconds, const Event& message) {
    AppendDelta(microseconds);
    AppendNumber(file_, message.status, 1);
    if (message.status >= 0xF0U) AppendQuantity(file_, static_cast<unsigned>(message.bytes.size()));
    file_ += message.bytes;
  }

  std::string End(double microseconds) {
    AppendMeta(microseconds, kMetaEnd, 0);
    std::string length;
    AppendNumber(length, static_cast<unsigned>(file_.size() - start_), 4);
    file_.replace(start_ - length.size(), length.size(), length);
    return std::move(file_);
  }

 private:
  void AppendMeta(double microseconds, unsigned type, unsigned length) {
    AppendDelta(microseconds);
    for (const unsigned byte : {kMeta, type, length}) AppendNumber(file_, byte, 1);
  }

  void AppendDelta(double microseconds) {
    constexpr unsigned kMost = 0x0FFFFFFF;  // the largest quantity; empty texts divide longer pauses
    const auto tick = static_cast<std::uint64_t>(std::llround(microseconds * kTicks / kTempo));
    for (; tick - tick_ > kMost; tick_ += kMost) {
      AppendQuantity(file_, kMost);
      for (const unsigned byte : {kMeta, kMetaText, 0U}) AppendNumber(file_, byte, 1);
    }
    AppendQuantity(file_, static_cast<unsigned>(tick - tick_));
    tick_ = tick;
  }

  std::string file_;
  std::size_t start_ = 0;  // the offset of the track's events
  std::uint64_t tick_ = 0;
};

/// The content of a RIFF wrapper, or the whole file when there is none.
std::string_view WithoutRiff(std::string_view file) {
  constexpr std::size_t kRiffHeader = 12;
  if (!file.starts_with("RIFF") || !file.substr(kChunkHeader).starts_with("RMID")) return file;
  const std::size_t song = file.find("MThd", kRiffHeader);
  return song == std::string_view::npos ? std::string_view() : file.substr(song);
}

/// Returns nothing when the time is up.
std::optional<Score> FindTracks(Bytes& file, unsigned format, Patience& patience) {
  Score score;
  while (!file.AtEnd() && score.tracks.size() < kMostTracks) {
    if (patience.Ended()) return std::nullopt;
    const std::string_view id = file.Take(4);
    const std::string_view bytes = file.Take(file.Number(4));
    if (id != "MTrk") continue;
    // In format 2 the tracks are played one after the other.
    Track track(bytes, format == 2 ? score.end : 0);
    score.tracks.push_back(track);
    while (track.Next()) {
      if (patience.Ended()) return std::nullopt;
    }
    score.end = std::max(score.end, track.Tick());
  }
  return score;
}

/// The song's end in microseconds; nothing when the time is up.
std::optional<double> FindEnd(const Score& score, const TimeBase& base, Patience& patience) {
  Clock clock(base);
  const bool inTime = ForEachEvent(score.tracks, patience, [&](const Event& event) {
    if (event.microseconds != 0) clock.ChangeTempo(event);
  });
  return inTime ? std::optional(clock.At(score.end)) : std::nullopt;
}

std::optional<FlatMidiSong> Write(const Score& score, const TimeBase& base, std::size_t room, Patience& patience) {
  constexpr double kMost = std::numeric_limits<int>::max();
  const std::optional<double> end = FindEnd(score, base, patience);
  if (!end || *end / 1000 > kMost) return std::nullopt;
  Clock clock(base);
  SongWriter writer(room);
  const bool inTime = ForEachEvent(score.tracks, patience, [&](const Event& event) {
    if (event.microseconds != 0) {
      clock.ChangeTempo(event);
    } else {
      writer.Append(clock.At(event.tick), event);
    }
  });
  if (!inTime) return std::nullopt;
  return FlatMidiSong{writer.End(*end), static_cast<int>(std::lround(*end / 1000))};
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
  Patience patience(deadline);
  const std::optional<Score> score = FindTracks(file, format, patience);
  // Events grow, because each gets its own status byte and a finer time.
  return score ? Write(*score, *base, 4 * whole.size() + 64, patience) : std::nullopt;
}

}  // namespace quillon
