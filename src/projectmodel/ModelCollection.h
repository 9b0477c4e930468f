// What the four levels of the project model have in common.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "vb/Failure.h"
#include "vb/SharedText.h"

namespace tessel {

/// Key of a child. It is told from others by its capitals, which are made when they are asked for.
class ModelKey {
 public:
  /// `exact`: the key is `given` itself and not its capitals.
  ModelKey(vb::SharedText given, bool exact, StringView key)
      : given_(std::move(given)), hash_(HashOf(key)), exact_(exact) {}

  [[nodiscard]] String Text() const {
    return exact_ ? String(given_) : given_.Read([](StringView text) { return vb::UCase(text); });
  }
  operator String() const { return Text(); }  // NOLINT: stands where a text does
  [[nodiscard]] std::uint32_t Hash() const { return hash_; }
  [[nodiscard]] bool Is(StringView key, std::uint32_t hash) const {
    return hash_ == hash && given_.size() == key.size() && Text() == key;
  }
  [[nodiscard]] static std::uint32_t HashOf(StringView key) {
    return static_cast<std::uint32_t>(std::hash<StringView>()(key));
  }

 private:
  vb::SharedText given_;
  std::uint32_t hash_;
  bool exact_;
};

/// Children in the order of insertion. `item` finds a child in any case and makes the one that it
/// doesn't find, so keys never clash by case and the first spelling wins. There is no look-up
/// without creating. Tens of thousands of members lie in these: a child costs little beside itself.
template <class Child>
class ModelCollection {
 public:
  struct Entry {
    ModelKey first;
    std::shared_ptr<Child> second;
  };

  /// The child under `key`; a new one is named by `key` as given.
  std::shared_ptr<Child> item(const vb::SharedText& key) {
    const String known = key.Read([](StringView text) { return vb::UCase(text); });
    const std::size_t at = Find(known);
    if (at < Count()) return entries_[at].second;
    auto made = std::make_shared<Child>();
    NameByKey(*made, key);
    Enter({{key, false, known}, made});
    return made;
  }
  /// Adds under `key` exactly as given, where `item` may not find it. Hands back the stored child;
  /// fails with 457 when the key is in use.
  void Add(std::shared_ptr<Child>& object, StringView key) {
    if (Find(key) < Count()) {
      throw vb::Failure(KeyInUse, u"There is an entry \"" + String(key) + u"\" already", u"Tessel");
    }
    Enter({{key, true, key}, object});
  }
  /// Removes what `item` finds under `key`; fails with 5 when there is nothing.
  void Remove(StringView key) {
    const std::size_t at = Find(vb::UCase(key));
    if (at == Count()) {
      throw vb::Failure(vb::InvalidCall, u"There is no entry \"" + String(key) + u"\"", u"Tessel");
    }
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(at));
    Index();
  }
  [[nodiscard]] std::size_t Count() const { return entries_.size(); }
  void Clear() { Reserve(0); }
  /// Drops all children and makes room for as many.
  void Reserve(std::size_t count) {
    entries_ = {};
    places_ = {};
    entries_.reserve(count);
  }

  /// Pairs of key and child, good until a child comes or goes.
  [[nodiscard]] auto begin() const { return entries_.begin(); }
  [[nodiscard]] auto end() const { return entries_.end(); }

 private:
  static constexpr std::int32_t KeyInUse = 457;
  static constexpr std::size_t Few = 8;
  static constexpr std::uint32_t Free = UINT32_MAX;

  /// Where the entry of a key stands, `Count()` for none.
  [[nodiscard]] std::size_t Find(StringView key) const {
    const std::uint32_t hash = ModelKey::HashOf(key);
    if (places_.empty()) {
      const auto is = [&](const Entry& entry) { return entry.first.Is(key, hash); };
      const auto found = std::find_if(entries_.begin(), entries_.end(), is);
      return static_cast<std::size_t>(found - entries_.begin());
    }
    for (std::size_t at = hash & (places_.size() - 1); places_[at] != Free; at = Next(at)) {
      if (entries_[places_[at]].first.Is(key, hash)) return places_[at];
    }
    return Count();
  }
  void Enter(Entry entry) {
    entries_.push_back(std::move(entry));
    if (places_.size() * 7 / 8 > Count()) {
      Place(Count() - 1);
    } else {
      Index();
    }
  }
  /// Many entries are found by their hash: each has its number at the first free place from there
  /// on. An eighth of the places at least stays free.
  void Index() {
    places_.clear();
    if (Count() <= Few) return;
    std::size_t size = 2 * Few;
    while (size * 7 / 8 <= Count()) size *= 2;
    places_.assign(size, Free);
    for (std::size_t at = 0; at < Count(); ++at) Place(at);
  }
  void Place(std::size_t number) {
    std::size_t at = entries_[number].first.Hash() & (places_.size() - 1);
    while (places_[at] != Free) at = Next(at);
    places_[at] = static_cast<std::uint32_t>(number);
  }
  [[nodiscard]] std::size_t Next(std::size_t at) const { return (at + 1) & (places_.size() - 1); }

  std::vector<Entry> entries_;
  std::vector<std::uint32_t> places_;  // none for few entries, else a power of two
};

}  // namespace tessel
