#include "platform/FolderOrder.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "base/FirstBytes.h"
#include "base/Text.h"

namespace quillon {
namespace {

struct Key {
  std::uint64_t start = 0;  ///< the first eight bytes after the prefix that all names share, big-endian
  std::size_t offset = 0;   ///< the upper-case name's offset in the arena
  std::uint32_t length = 0;
  std::uint32_t entry = 0;
};

// East Asian scripts have no letter case. Skipping the lookup matters because most names are in them.
bool MayHaveCase(char32_t codePoint) {
  return codePoint < 0x2E80 || codePoint > 0xA63F;
}

// The same as ToUpper, without a string per name.
void AppendUpper(std::string& arena, std::string_view name) {
  for (std::size_t i = 0; i < name.size();) {
    const char byte = name[i];
    if (static_cast<unsigned char>(byte) < 0x80) {
      arena += byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - ('a' - 'A')) : byte;
      ++i;
      continue;
    }
    const Character c = CharacterAt(name, i);
    if (c.valid && MayHaveCase(c.codePoint)) {
      AppendUtf8(arena, UpperCharacter(c.codePoint));
    } else {
      arena.append(name, i, c.length);
    }
    i += c.length;
  }
}

std::string_view UpperName(const std::string& arena, const Key& key) {
  return std::string_view(arena).substr(key.offset, key.length);
}

std::size_t SharedPrefix(const std::string& arena, const std::vector<Key>& keys) {
  const std::string_view first = UpperName(arena, keys.front());
  std::size_t shared = first.size();
  for (const Key& key : keys) {
    const std::string_view name = UpperName(arena, key);
    shared = std::min(shared, name.size());
    const auto end = first.begin() + static_cast<std::ptrdiff_t>(shared);
    shared = static_cast<std::size_t>(std::mismatch(first.begin(), end, name.begin()).first - first.begin());
  }
  return shared;
}

// An estimate: a few letters change their length by a byte when upper-cased.
void ReserveFor(std::string& arena, const std::vector<FolderEntry>& entries) {
  std::size_t bytes = 0;
  for (const FolderEntry& entry : entries) bytes += entry.name.size();
  arena.reserve(bytes);
}

// Sorts in place, because there may be a million entries.
void PutInOrder(std::vector<FolderEntry>& entries, std::vector<Key>& keys) {
  for (std::uint32_t start = 0; start < keys.size(); ++start) {
    std::uint32_t place = start;
    while (keys[place].entry != start) {
      const std::uint32_t from = std::exchange(keys[place].entry, place);
      std::swap(entries[place], entries[from]);
      place = from;
    }
    keys[place].entry = place;
  }
}

}  // namespace

void SortAsVolumeLists(std::vector<FolderEntry>& entries) {
  if (entries.size() < 2) return;
  std::string arena;
  ReserveFor(arena, entries);
  std::vector<Key> keys;
  keys.reserve(entries.size());
  for (const FolderEntry& entry : entries) {
    const std::size_t offset = arena.size();
    AppendUpper(arena, entry.name);
    keys.push_back(
        {0, offset, static_cast<std::uint32_t>(arena.size() - offset), static_cast<std::uint32_t>(keys.size())});
  }
  const std::size_t shared = SharedPrefix(arena, keys);
  for (Key& key : keys) key.start = FirstBytes(UpperName(arena, key).substr(shared));
  std::sort(keys.begin(), keys.end(), [&](const Key& left, const Key& right) {
    if (left.start != right.start) return left.start < right.start;
    const int order = UpperName(arena, left).substr(shared).compare(UpperName(arena, right).substr(shared));
    return order != 0 ? order < 0 : entries[left.entry].name < entries[right.entry].name;
  });
  PutInOrder(entries, keys);
}

}  // namespace quillon
