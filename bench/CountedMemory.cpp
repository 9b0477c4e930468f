#include "CountedMemory.h"

#include <cstdlib>
#include <new>

namespace {
tessel::bench::Allocations soFar;
}  // namespace

void* operator new(std::size_t size) {
  ++soFar.Times;
  soFar.Bytes += size;
  if (void* const memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

tessel::bench::Allocations tessel::bench::AllocationsSoFar() { return soFar; }
