#pragma once

namespace quillon::test {

/// While it exists, what the program takes for the sound server fails at its third block of sound, each time anew.
class FailingSoundSink {
 public:
  /// kItself: the sink reports that its device is gone. kStream: it takes no more, and whoever sends to it reports
  /// that.
  enum class Blames { kItself, kStream };

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
