// Counts what a program allocates, in programs that link CountedMemory.cpp.
#pragma once

#include <cstddef>

namespace tessel::bench {

struct Allocations {
  std::size_t Times = 0, Bytes = 0;
};
/// Since the start of the program, by its one thread.
[[nodiscard]] Allocations AllocationsSoFar();

}  // namespace tessel::bench
