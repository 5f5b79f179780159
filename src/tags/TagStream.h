#pragma once

#include <tiostream.h>

#include <cstdint>
#include <vector>

#include "base/ByteSource.h"
#include "media/BlockReader.h"

namespace quillon {

/// An opened file as TagLib reads it: small reads come from blocks, nothing is ever written, and a file's numbers
/// cannot make TagLib read without end. Beyond the limits reads give nothing, like those behind the end of the file.
class TagStream final : public TagLib::IOStream {
 public:
  static constexpr std::uint64_t kMostBytes = std::uint64_t{48} << 20u;
  /// The longest block of a FLAC file, which may be a picture in front of the texts.
  static constexpr std::uint64_t kLongestRead = std::uint64_t{16} << 20u;
  /// TagLib searches in small reads: a file of the wrong contents is not searched to its end.
  static constexpr std::uint64_t kMostSmallBytes = std::uint64_t{4} << 20u;
  static constexpr int kMostReads = 50'000;
  static constexpr std::size_t kDeepestAtom = 32;
  /// Items of an APE tag.
  static constexpr std::uint32_t kMostItems = 1000;

  explicit TagStream(ByteSource& file);

  /// Ends all reading when atoms of an MP4 file are nested deeper than kDeepestAtom: TagLib reads them recursively.
  void LimitAtoms() { limitsAtoms_ = true; }

  [[nodiscard]] TagLib::FileName name() const override { return ""; }
  TagLib::ByteVector readBlock(unsigned long length) override;
  void writeBlock(const TagLib::ByteVector& /*data*/) override {}
  void insert(const TagLib::ByteVector& /*data*/, unsigned long /*start*/, unsigned long /*replace*/) override {}
  void removeBlock(unsigned long /*start*/, unsigned long /*length*/) override {}
  [[nodiscard]] bool readOnly() const override { return true; }
  [[nodiscard]] bool isOpen() const override { return true; }
  void seek(long offset, Position from) override;
  [[nodiscard]] long tell() const override { return position_; }
  long length() override { return length_; }
  void truncate(long /*length*/) override {}

 private:
  /// A container whose inner atoms are being read.
  struct Container {
    long start = 0;
    std::uint64_t end = 0;
  };

  TagLib::ByteVector ReadSmall(std::uint64_t from, std::uint64_t wanted);
  TagLib::ByteVector ReadLarge(std::uint64_t from, std::uint64_t wanted);
  void EnterAtom(long start, const TagLib::ByteVector& header);

  ByteSource& file_;
  BlockReader blocks_;
  long length_;
  long position_ = 0;
  std::uint64_t bytesLeft_ = kMostBytes;  // of large reads
  std::uint64_t smallBytesLeft_ = kMostSmallBytes;
  int readsLeft_ = kMostReads;
  bool limitsAtoms_ = false;
  std::vector<Container> containers_;
};

}  // namespace quillon
