#include "help/ChmFile.h"

#include <vector>

namespace quillon::test {
namespace {

std::uint32_t LittleEndian(const std::string& bytes, std::size_t at, std::size_t count) {
  std::uint32_t number = 0;
  for (std::size_t i = count; i > 0; --i) {
    number = number << 8u | static_cast<unsigned char>(bytes.at(at + i - 1));
  }
  return number;
}

std::string UpToZero(const std::string& bytes) {
  return bytes.substr(0, bytes.find('\0'));
}

// The kinds of its entries.
constexpr std::uint32_t kContents = 0;
constexpr std::uint32_t kIndex = 1;
constexpr std::uint32_t kDefaultTopic = 2;
constexpr std::uint32_t kTitle = 3;
constexpr std::uint32_t kLanguage = 4;

void Keep(ChmSystem& system, std::uint32_t kind, const std::string& data) {
  switch (kind) {
    case kContents: system.contents = UpToZero(data); break;
    case kIndex: system.index = UpToZero(data); break;
    case kDefaultTopic: system.defaultTopic = UpToZero(data); break;
    case kTitle: system.title = UpToZero(data); break;
    case kLanguage: system.language = LittleEndian(data, 0, 4); break;
    default: break;
  }
}

}  // namespace

std::optional<std::string> ChmFile::Read(const std::string& name) const {
  chmUnitInfo unit{};
  if (!file_ || chm_resolve_object(file_.get(), ("/" + name).c_str(), &unit) != CHM_RESOLVE_SUCCESS) {
    return std::nullopt;
  }
  std::vector<unsigned char> bytes(unit.length);
  const LONGINT64 read = chm_retrieve_object(file_.get(), &unit, bytes.data(), 0, static_cast<LONGINT64>(unit.length));
  if (read != static_cast<LONGINT64>(unit.length)) return std::nullopt;
  return std::string(bytes.begin(), bytes.end());
}

// A version number, then entries: kind, length (two bytes each) and data.
ChmSystem ChmFile::System() const {
  ChmSystem system;
  const std::string bytes = Read("#SYSTEM").value_or("");
  for (std::size_t at = 4; at + 4 <= bytes.size();) {
    const std::size_t length = LittleEndian(bytes, at + 2, 2);
    Keep(system, LittleEndian(bytes, at, 2), bytes.substr(at + 4, length));
    at += 4 + length;
  }
  return system;
}

}  // namespace quillon::test
