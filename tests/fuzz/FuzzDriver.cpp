// Feeds a target its seeds, their beginnings, and as many mutations of them as the command line
// says. Always the same ones.

#include "fuzz/FuzzDriver.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <random>

namespace {

using Random = std::mt19937;

std::size_t Below(Random& random, std::size_t bound) { return bound == 0 ? 0 : random() % bound; }

void Run(const std::string& input) {
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

/// Changes a byte, cuts, doubles, or takes a piece of another seed in.
void Mutate(std::string& input, const std::vector<std::string>& seeds, Random& random) {
  const std::size_t at = Below(random, input.size() + 1);
  const std::size_t length = Below(random, std::min<std::size_t>(32, input.size() - at + 1));
  switch (random() % 5) {
    case 0:
      if (at < input.size()) input[at] = static_cast<char>(random() & 0xFF);
      break;
    case 1:
      input.erase(at, length);
      break;
    case 2:
      input.insert(at, input.substr(at, length));
      break;
    case 3: {
      const std::string& other = seeds[Below(random, seeds.size())];
      input.insert(at, other.substr(Below(random, other.size()), 1 + random() % 40));
      break;
    }
    default:
      input.insert(at, 1, "\r\n\"':_{}\\ \t#"[random() % 12]);
  }
}

}  // namespace

int main(int argc, char** argv) {
  const int rounds = argc > 1 ? std::atoi(argv[1]) : 1000;
  const std::vector<std::string> seeds = FuzzSeeds();
  Run({});
  for (const std::string& seed : seeds) {
    for (std::size_t length = 0; length <= seed.size(); ++length) Run(seed.substr(0, length));
  }
  Random random(1);
  for (int round = 0; round < rounds; ++round) {
    std::string input = seeds[Below(random, seeds.size())];
    for (auto count = 1 + random() % 8; count > 0; --count) Mutate(input, seeds, random);
    if (input.size() < 20000) Run(input);
  }
  std::cout << rounds << " mutations of " << seeds.size() << " seeds\n";
  return 0;
}
