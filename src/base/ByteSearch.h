#pragma once

#include <cstddef>
#include <string_view>
#include <utility>

/// Byte searches whose time depends only on the number of bytes, not on their values: near matches do not slow them
/// down.
namespace quillon {

/// Returns 1 when `bytes` (without the literal's terminating zero) are found at `place`, otherwise 0.
template <std::size_t kCount>
[[nodiscard]] unsigned StandsAt(const char* place, const char (&bytes)[kCount]) {
  return [&]<std::size_t... kIndex>(std::index_sequence<kIndex...>) {
    return (... & static_cast<unsigned>(place[kIndex] == bytes[kIndex]));
  }
  (std::make_index_sequence<kCount - 1>());
}

/// Finds the first offset in `data`, from `from` on, whose `kLength` bytes satisfy `matches`, which gets a pointer to
/// the first of them; npos when there is none. `matches` must not branch, so that the compiler can compare many places
/// at once.
template <std::size_t kLength, class Matches>
[[nodiscard]] std::size_t FindWhere(std::string_view data, std::size_t from, Matches matches) {
  constexpr std::size_t kBlock = 64;
  std::size_t at = from;
  for (; at + kBlock + kLength - 1 <= data.size(); at += kBlock) {
    unsigned char found = 0;
    for (std::size_t i = 0; i < kBlock; ++i) found |= static_cast<unsigned char>(matches(data.data() + at + i));
    if (found != 0) break;
  }
  for (; at + kLength <= data.size(); ++at) {
    if (matches(data.data() + at)) return at;
  }
  return std::string_view::npos;
}

/// The same for matches that all begin with `first`: the bytes between such candidates are skipped faster.
template <std::size_t kLength, class Matches>
[[nodiscard]] std::size_t FindWhere(std::string_view data, std::size_t from, char first, Matches matches) {
  constexpr std::size_t kPiece = 1024;
  while (from < data.size()) {
    from = FindWhere<1>(data, from, [first](const char* place) { return *place == first; });
    if (from == std::string_view::npos) break;
    const std::size_t found = FindWhere<kLength>(data.substr(from, kPiece + kLength - 1), 0, matches);
    if (found != std::string_view::npos) return from + found;
    from += kPiece;
  }
  return std::string_view::npos;
}

/// Finds the first occurrence of `bytes` at or after `from`; npos when there is none.
template <std::size_t kCount>
[[nodiscard]] std::size_t FindBytes(std::string_view data, std::size_t from, const char (&bytes)[kCount]) {
  return FindWhere<kCount - 1>(data, from, bytes[0], [&](const char* place) { return StandsAt(place, bytes) != 0; });
}

}  // namespace quillon
