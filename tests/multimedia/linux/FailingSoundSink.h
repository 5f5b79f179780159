#pragma once

namespace quillon::test {

/// While it exists, what the program takes for the sound server fails, each time anew.
class FailingSoundSink {
 public:
  /// kItself: at its third block of sound the sink reports that its device is gone. kStream: there it takes no more,
  /// and whoever sends to it reports that. kNobody: once it has played and is flushed, its stream never comes to an
  /// end, as it may be with PulseAudio.
  enum class Blames { kItself, kStream, kNobody };

  /// A test failure when GStreamer does not take it.
  explicit FailingSoundSink(Blames blames);
  FailingSoundSink(const FailingSoundSink&) = delete;
  FailingSoundSink& operator=(const FailingSoundSink&) = delete;
  ~FailingSoundSink();

  /// How often it has failed.
  [[nodiscard]] int Failures() const;

 private:
  void* replaced_ = nullptr;
};

}  // namespace quillon::test
