#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "base/Text.h"
#include "bregexp/bregexp.h"
#include "fuzz/Parts.h"
#include "fuzz/Require.h"
#include "rename/ModifyName.h"

extern "C" BregexpReplace Replace;

using namespace quillon;
using test::Require;

namespace {

constexpr std::size_t kLongestName = 32767;

/// The library is compiled in, because a loaded one would not be instrumented.
class CompiledIn final : public RegexEngine {
 public:
  std::optional<std::string> Replace(std::string_view command, std::string_view target) override {
    std::string answer(65536, '\0');
    const std::size_t length =
        ::Replace(command.data(), command.size(), target.data(), target.size(), answer.data(), answer.size(), nullptr);
    answer.resize(std::min(length, answer.size()));
    return answer;
  }
};

/// Cancels what takes long.
class Bounded final : public Progress {
 public:
  bool Continue(std::size_t, std::size_t, const std::string&) override { return true; }
  bool Continue() override { return --left_ > 0; }

 private:
  int left_ = 2000;
};

OptionValues::Modify RulesFrom(test::Parts& parts) {
  const unsigned flags = parts.Byte();
  OptionValues::Modify rules;
  rules.replaceInvalid = (flags & 1u) != 0;
  rules.method = (flags & 2u) != 0 ? FindMethod::kRegex : FindMethod::kText;
  rules.ignoreCase = (flags & 4u) != 0;
  rules.upper = (flags & 8u) != 0;
  rules.lower = (flags & 16u) != 0;
  rules.proper = (flags & 32u) != 0;
  rules.wide = (flags & 64u) != 0;
  rules.narrow = (flags & 128u) != 0;
  const unsigned active = parts.Byte();
  rules.invalidReplacement = parts.Text();
  for (std::size_t i = 0; i < rules.rules.size(); ++i) {
    rules.rules[i].active = (active >> i & 1u) != 0;
    rules.rules[i].find = parts.Text();
    rules.rules[i].replacement = parts.Text();
  }
  return rules;
}

// One rule that is applied several times does what applying it once does several times.
void RequireRepetition(const std::string& name, const OptionValues::Modify& all) {
  constexpr std::size_t kTimes = 7;
  OptionValues::Modify rules;
  rules.method = all.method;
  rules.ignoreCase = all.ignoreCase;
  rules.rules[0] = all.rules[0];
  CompiledIn regex;
  Bounded progress;
  const ModifyResult together = ModifyName(name, rules, kTimes, regex, progress);
  if (together.leftAlone || together.cancelled) return;
  std::string one = name;
  for (std::size_t i = 0; i < kTimes; ++i) {
    const ModifyResult next = ModifyName(one, rules, 1, regex, progress);
    if (next.leftAlone || next.cancelled) return;
    one = next.name;
  }
  Require(together.name == one);
}

}  // namespace

// The input: flags, the active rules, how many rows the list has, the rules' texts, and the name.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 1024) return 0;
  test::Parts parts(data, size);
  const std::size_t rows = 1 + parts.Byte() * parts.Byte();
  const OptionValues::Modify rules = RulesFrom(parts);
  const std::string name = parts.Rest();
  if (!IsValidUtf8(name)) return 0;
  CompiledIn regex;
  Bounded progress;
  const ModifyResult result = ModifyName(name, rules, rows, regex, progress);
  Require(CharacterCount(result.name) <= std::max(kLongestName, CharacterCount(name)));
  if (result.leftAlone || result.cancelled) Require(result.name == name);
  RequireRepetition(name, rules);
  return 0;
}
