#pragma once

#include <id3v2frame.h>
#include <id3v2framefactory.h>

namespace quillon {

/// Lets TagLib make only the frames of an ID3v2 tag that SongDetails needs. All others stay unknown frames whose data
/// is not looked at: chapters are read recursively, compressed frames expand a thousandfold, and lists of frames may
/// have millions of entries. One object serves one file.
class TagFrames final : public TagLib::ID3v2::FrameFactory {
 public:
  static constexpr int kMostFrames = 10'000;
  static constexpr int kMostTexts = 32;

  TagFrames() = default;

 private:
  /// The type of a frame's header is known to derived classes only.
  struct FrameNames : TagLib::ID3v2::Frame {
    using FrameHeader = TagLib::ID3v2::Frame::Header;
  };

  bool updateFrame(FrameNames::FrameHeader* header) const override;

  // TagLib's function is const.
  mutable int framesLeft_ = kMostFrames;
  mutable int textsLeft_ = kMostTexts;
};

}  // namespace quillon
