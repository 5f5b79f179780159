#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/Seeds.h"

// Each fuzzer is compiled with its own name for libFuzzer's entry point.
extern "C" {
using FuzzerEntry = int(const std::uint8_t* data, std::size_t size);
FuzzerEntry AnsiFuzzer, ArgumentsFuzzer, CommandFuzzer, DeviceFuzzer, HtmlFuzzer, Id3v1Fuzzer, Id3v2Fuzzer, MidiFuzzer,
    ModifyFuzzer, PatternFuzzer, PlanFuzzer, RegexFuzzer, RiffFuzzer, SettingsFuzzer, TagsFuzzer;
}

namespace quillon::test {
namespace {

struct Fuzzer {
  const char* name;
  FuzzerEntry* run;
};

constexpr Fuzzer kFuzzers[] = {
    {"AnsiFuzzer", AnsiFuzzer},       {"ArgumentsFuzzer", ArgumentsFuzzer}, {"CommandFuzzer", CommandFuzzer},
    {"DeviceFuzzer", DeviceFuzzer},   {"HtmlFuzzer", HtmlFuzzer},           {"Id3v1Fuzzer", Id3v1Fuzzer},
    {"Id3v2Fuzzer", Id3v2Fuzzer},     {"MidiFuzzer", MidiFuzzer},           {"ModifyFuzzer", ModifyFuzzer},
    {"PatternFuzzer", PatternFuzzer}, {"PlanFuzzer", PlanFuzzer},           {"RegexFuzzer", RegexFuzzer},
    {"RiffFuzzer", RiffFuzzer},       {"SettingsFuzzer", SettingsFuzzer},   {"TagsFuzzer", TagsFuzzer},
};

int DigitOf(char c) {
  constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  const std::size_t digit = kDigits.find(c);
  return digit == std::string_view::npos ? -1 : static_cast<int>(digit);
}

/// Base64 (RFC 4648); what stands behind it, and its padding, is left out.
std::string Decoded(std::string_view text) {
  std::string bytes;
  unsigned bits = 0;
  int count = 0;
  for (const char c : text) {
    const int digit = DigitOf(c);
    if (digit < 0) break;
    bits = bits << 6u | static_cast<unsigned>(digit);
    count += 6;
    if (count < 8) continue;
    count -= 8;
    bytes += static_cast<char>(bits >> static_cast<unsigned>(count) & 0xFFu);
  }
  return bytes;
}

/// One input a line.
std::vector<std::string> InputsOf(const std::string& path) {
  std::vector<std::string> inputs;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    if (!line.empty() && line[0] != '#') inputs.push_back(Decoded(line));
  }
  return inputs;
}

class FuzzerReplay : public testing::TestWithParam<Fuzzer> {
 protected:
  /// A violated promise ends the program, as in the fuzzer.
  static void Run(const std::vector<std::string>& inputs) {
    for (const std::string& input : inputs) {
      // Memory of its own, so that reading beyond it is noticed.
      const std::vector<std::uint8_t> bytes(input.begin(), input.end());
      EXPECT_EQ(GetParam().run(bytes.data(), bytes.size()), 0);
    }
  }
  static std::vector<std::string> Kept(const std::string& kind) {
    return InputsOf(std::string(QUILLON_SOURCE_DIR "/tests/fuzz/") + kind + "/" + GetParam().name + ".txt");
  }
};

TEST_P(FuzzerReplay, SeedsHoldItsPromises) {
  const std::map<std::string, std::vector<std::string>> seeds = FuzzerSeeds();
  ASSERT_TRUE(seeds.contains(GetParam().name));
  Run(seeds.at(GetParam().name));
}

TEST_P(FuzzerReplay, LearnedInputsHoldItsPromises) {
  const std::vector<std::string> inputs = Kept("corpora");
  EXPECT_FALSE(inputs.empty()) << "./fuzz.sh --keep makes them";
  Run(inputs);
}

TEST_P(FuzzerReplay, FindingsStayMended) {
  EXPECT_TRUE(std::filesystem::is_directory(QUILLON_SOURCE_DIR "/tests/fuzz/findings"));
  Run(Kept("findings"));
}

INSTANTIATE_TEST_SUITE_P(All, FuzzerReplay, testing::ValuesIn(kFuzzers),
                         [](const auto& fuzzer) { return std::string(fuzzer.param.name); });

TEST(FuzzerInputs, AreDecoded) {
  EXPECT_EQ(Decoded("Zm9vYmE="), "fooba");
  EXPECT_EQ(Decoded("AP/+ a remark"), std::string("\0\xFF\xFE", 3));
  EXPECT_EQ(Decoded(""), "");
}

TEST(FuzzerInputs, BelongToFuzzersThatAreReplayed) {
  EXPECT_EQ(FuzzerSeeds().size(), std::size(kFuzzers));
}

}  // namespace
}  // namespace quillon::test
