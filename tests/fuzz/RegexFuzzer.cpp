#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "bregexp/bregexp.h"
#include "fuzz/Require.h"

extern "C" BregexpReplace Replace;

namespace {

using quillon::test::Require;

constexpr std::size_t kCapacity = 4096;

std::string Answer(std::string_view command, std::string_view target, void** slot) {
  std::string result(kCapacity, '\0');
  const std::size_t length =
      Replace(command.data(), command.size(), target.data(), target.size(), result.data(), result.size(), slot);
  result.resize(std::min(length, kCapacity));
  return result;
}

/// Requires the same answer with and without a slot, and at the second call.
std::string CheckedAnswer(std::string_view command, std::string_view target) {
  void* slot = nullptr;
  std::string answer = Answer(command, target, &slot);
  Require(answer == Answer(command, target, &slot));
  Require(answer == Answer(command, target, nullptr));
  Replace(nullptr, 0, nullptr, 0, nullptr, 0, &slot);
  Require(slot == nullptr);
  return answer;
}

std::string_view Take(std::string_view& rest, std::size_t count) {
  const std::string_view taken = rest.substr(0, count);
  rest.remove_prefix(taken.size());
  return taken;
}

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

// The input: flags, the lengths of pattern and replacement, a byte each, then pattern, replacement and target.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 3 || size > 1024) return 0;
  const std::string bytes(data + 3, data + size);
  std::string_view rest = bytes;
  const std::string pattern(Take(rest, data[1]));
  const std::string replacement(Take(rest, data[2]));
  std::string command = "s/";
  command.append(pattern).append("/").append(replacement).append("/");
  if ((data[0] & 1u) != 0) command += 'g';
  if ((data[0] & 2u) != 0) command += 'i';
  CheckedAnswer(command, rest);
  const std::string inAnsi = CheckedAnswer(command + "k", rest);
  const std::string inUtf8 = CheckedAnswer(command + "u", rest);
  // Text in ASCII is the same in both, unless the replacement makes other characters.
  const bool same = IsAscii(inAnsi) && IsAscii(inUtf8);
  if (IsAscii(bytes) && same && replacement.find('\\') == std::string::npos) Require(inAnsi == inUtf8);
  return 0;
}
