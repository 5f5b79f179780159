#pragma once

#include <string>

/// Small files with pictures, made by GStreamer's encoders: colour bars, 320 by 240, 25 pictures a second, with a tone.
namespace quillon::test {

enum class AviCodec { kMpeg4, kMotionJpeg, kUncompressed };

/// An MPEG-1 program stream. A test failure when it cannot be made.
void MakeMpeg(const std::string& path, int milliseconds);
/// Only the video stream of such a file, without packs, time stamps or sound.
void MakeMpegPictures(const std::string& path, int milliseconds);
void MakeAvi(const std::string& path, int milliseconds, AviCodec codec);

}  // namespace quillon::test
