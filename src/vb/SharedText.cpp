#include "vb/SharedText.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace tessel::vb {

/// Stands ahead of the units.
struct SharedText::Block {
  std::uint32_t Sharers, Size;

  static Block* At(std::uint64_t bits) {
    return reinterpret_cast<Block*>(static_cast<std::uintptr_t>(bits));
  }
  [[nodiscard]] const char16_t* Units() const {
    return reinterpret_cast<const char16_t*>(this + 1);
  }
};

std::uint64_t SharedText::BitsOf(StringView text) {
  const bool small =
      text.size() <= MostSmall &&
      std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 256; });
  if (small) {
    std::uint64_t bits = Empty | (static_cast<std::uint64_t>(text.size()) << 1);
    for (std::size_t at = 0; at < text.size(); ++at) {
      bits |= static_cast<std::uint64_t>(text[at]) << (8 * (at + 1));
    }
    return bits;
  }
  const std::size_t bytes = text.size() * sizeof(char16_t);
  void* const memory = ::operator new(sizeof(Block) + bytes);
  Block* const block = new (memory) Block{1, static_cast<std::uint32_t>(text.size())};
  std::memcpy(block + 1, text.data(), bytes);
  return static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(block));
}

StringView SharedText::Shared() const {
  const Block* const block = Block::At(bits_);
  return {block->Units(), block->Size};
}

void SharedText::Share() const {
  if (!IsSmall()) ++Block::At(bits_)->Sharers;
}

void SharedText::Release() const {
  if (IsSmall()) return;
  Block* const block = Block::At(bits_);
  if (--block->Sharers > 0) return;
  ::operator delete(block);
}

}  // namespace tessel::vb
