#pragma once

namespace quillon::test {

/// While it exists, it replaces the sound server's sink with one that fails every time it is used.
class FailingSoundSink {
 public:
  /// kItself: at its third block of sound the sink reports that its device is gone. kStream: at that block it stops
  /// accepting data, and the sending element reports the error. kNobody: after it has played and was flushed, its
  /// stream never ends, as can happen with PulseAudio.
  enum class Blames { kItself, kStream, kNobody };

  /// Fails the test when GStreamer does not register it.
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
