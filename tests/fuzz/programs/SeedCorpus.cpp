// Writes the inputs that the fuzzers start from: SeedCorpus FOLDER makes one folder for each fuzzer in it.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "fuzz/Seeds.h"

namespace {

bool WriteSeeds(const std::filesystem::path& folder, const std::vector<std::string>& seeds) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  for (std::size_t i = 0; i < seeds.size(); ++i) {
    std::ofstream file(folder / ("seed" + std::to_string(i)), std::ios::binary);
    file.write(seeds[i].data(), static_cast<std::streamsize>(seeds[i].size()));
    file.close();
    if (!file) return false;
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: SeedCorpus FOLDER\n";
    return 2;
  }
  bool written = true;
  for (const auto& [fuzzer, seeds] : quillon::test::FuzzerSeeds()) {
    written = WriteSeeds(std::filesystem::path(argv[1]) / fuzzer, seeds) && written;
  }
  return written ? 0 : 1;
}
