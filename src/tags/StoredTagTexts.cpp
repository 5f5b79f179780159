#include "tags/StoredTagTexts.h"

#include <id3v1tag.h>
#include <id3v2tag.h>
#include <infotag.h>
#include <tdebuglistener.h>

#include <string>
#include <string_view>

#include "media/StoredText.h"

namespace quillon {
namespace {

std::string_view View(const TagLib::ByteVector& data) {
  return {data.data(), data.size()};
}

TagLib::String Utf8(const std::string& text) {
  return {text, TagLib::String::UTF8};
}

TagLib::String WholeText(const TagLib::ByteVector& data) {
  const std::string_view bytes = View(data);
  return Utf8(DecodeStoredText(bytes.substr(0, bytes.find('\0')), StoredText::kUtf8OrAnsi));
}

class FieldTexts final : public TagLib::ID3v1::StringHandler {
 public:
  [[nodiscard]] TagLib::String parse(const TagLib::ByteVector& data) const override {
    return Utf8(DecodeStoredField(View(data), StoredText::kUtf8OrAnsi));
  }
};

class FrameTexts final : public TagLib::ID3v2::Latin1StringHandler {
 public:
  [[nodiscard]] TagLib::String parse(const TagLib::ByteVector& data) const override { return WholeText(data); }
};

class ChunkTexts final : public TagLib::RIFF::Info::StringHandler {
 public:
  [[nodiscard]] TagLib::String parse(const TagLib::ByteVector& data) const override { return WholeText(data); }
};

class NoMessages final : public TagLib::DebugListener {
 public:
  void printMessage(const TagLib::String& /*message*/) override {}
};

struct Handlers {
  FieldTexts fields;
  FrameTexts frames;
  ChunkTexts chunks;
  NoMessages messages;

  Handlers() {
    TagLib::ID3v1::Tag::setStringHandler(&fields);
    TagLib::ID3v2::Tag::setLatin1StringHandler(&frames);
    TagLib::RIFF::Info::Tag::setStringHandler(&chunks);
    TagLib::setDebugListener(&messages);
  }
};

}  // namespace

void UseStoredTagTexts() {
  static Handlers handlers;
}

}  // namespace quillon
