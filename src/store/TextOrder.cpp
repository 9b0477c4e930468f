#include "store/TextOrder.h"

#include <algorithm>
#include <new>

#include "store/Engine.h"
#include "store/StoredText.h"

namespace tessel::store {
namespace {

constexpr unsigned char FirstBeyondAscii = 0x80;

unsigned char Small(char unit) {
  const auto byte = static_cast<unsigned char>(unit);
  return byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte + 32) : byte;
}

/// Both texts are compared in their own bytes while these are plain; from the first other one on
/// they are read as text.
int CompareStored(std::string_view left, std::string_view right) {
  const std::size_t shorter = std::min(left.size(), right.size());
  for (std::size_t at = 0; at < shorter; ++at) {
    const unsigned char mine = Small(left[at]), theirs = Small(right[at]);
    if (mine >= FirstBeyondAscii || theirs >= FirstBeyondAscii) {
      return vb::StrComp(FromStored(left.substr(at)), FromStored(right.substr(at)));
    }
    if (mine != theirs) return mine - theirs;
  }
  return left.size() < right.size() ? -1 : left.size() > right.size() ? 1 : 0;
}

int Compare(void*, int leftSize, const void* left, int rightSize, const void* right) noexcept {
  const std::string_view mine(static_cast<const char*>(left), static_cast<std::size_t>(leftSize));
  const std::string_view theirs(static_cast<const char*>(right),
                                static_cast<std::size_t>(rightSize));
  try {
    return CompareStored(mine, theirs);
  } catch (const std::bad_alloc&) {
    return mine.compare(theirs);
  }
}

}  // namespace

void RegisterTextOrder(sqlite3* db) {
  const std::string name = vb::ToUtf8(TextOrderName);
  if (sqlite3_create_collation(db, name.c_str(), SQLITE_UTF8, nullptr, Compare) != SQLITE_OK) {
    throw engine::Error(db, name);
  }
}

}  // namespace tessel::store
