#include "connections/cConnectionMDBs.h"

#include <algorithm>

#include "vb/Failure.h"

namespace tessel {

std::shared_ptr<cConnectionMDBs> gConnectionMDBs;

namespace {

constexpr std::int32_t KeyInUse = 457;

template <class Items>
auto Find(Items& items, StringView key) {
  return std::find_if(items.begin(), items.end(),
                      [&](const auto& item) { return item.first == key; });
}

[[noreturn]] void Missing(StringView key) {
  throw vb::Failure(vb::InvalidCall, u"There is no connection \"" + String(key) + u"\"", u"Tessel");
}

}  // namespace

void cConnectionMDBs::Add(const std::shared_ptr<cConnectionMDB>& object, StringView key) {
  if (Find(items_, key) != items_.end()) {
    throw vb::Failure(KeyInUse, u"There is a connection \"" + String(key) + u"\" already",
                      u"Tessel");
  }
  items_.emplace_back(String(key), object);
}

void cConnectionMDBs::Remove(StringView key) {
  const auto found = Find(items_, key);
  if (found == items_.end()) Missing(key);
  items_.erase(found);
}

const std::shared_ptr<cConnectionMDB>& cConnectionMDBs::item(StringView key) const {
  const auto found = Find(items_, key);
  if (found == items_.end()) Missing(key);
  return found->second;
}

}  // namespace tessel
