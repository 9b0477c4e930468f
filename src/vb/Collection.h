// The language's keyed collection.
#pragma once

#include <list>
#include <memory>
#include <unordered_map>
#include <utility>

#include "vb/Failure.h"

namespace tessel::vb {

inline constexpr std::int32_t KeyInUse = 457;

/// Objects in the order of adding, each under a key that is compared exactly.
template <class T>
class Collection {
 public:
  using Entry = std::pair<String, std::shared_ptr<T>>;

  /// `noun` says in failures what the objects are.
  explicit Collection(StringView noun) : noun_(noun) {}
  Collection(const Collection&) = delete;
  Collection& operator=(const Collection&) = delete;

  /// Fails with 457 when the key is in use.
  void Add(std::shared_ptr<T> object, StringView key) {
    String name(key);
    if (places_.contains(name)) {
      throw Failure(KeyInUse, u"There is a " + noun_ + u" \"" + name + u"\" already", u"Tessel");
    }
    entries_.emplace_back(name, std::move(object));
    places_.emplace(std::move(name), std::prev(entries_.end()));
  }
  /// Fails with 5 when there is no such key.
  void Remove(StringView key) {
    const auto found = places_.find(String(key));
    if (found == places_.end()) Missing(key);
    entries_.erase(found->second);
    places_.erase(found);
  }
  /// Fails with 5 when there is no such key.
  [[nodiscard]] const std::shared_ptr<T>& item(StringView key) const {
    const auto found = places_.find(String(key));
    if (found == places_.end()) Missing(key);
    return found->second->second;
  }
  /// Nothing when there is no such key.
  [[nodiscard]] std::shared_ptr<T> Find(StringView key) const {
    const auto found = places_.find(String(key));
    return found == places_.end() ? nullptr : found->second->second;
  }
  [[nodiscard]] std::size_t Count() const { return entries_.size(); }
  void Clear() {
    places_.clear();
    entries_.clear();
  }

  [[nodiscard]] auto begin() const { return entries_.begin(); }
  [[nodiscard]] auto end() const { return entries_.end(); }

 private:
  using Entries = std::list<Entry>;

  [[noreturn]] void Missing(StringView key) const {
    throw Failure(InvalidCall, u"There is no " + noun_ + u" \"" + String(key) + u"\"", u"Tessel");
  }

  String noun_;
  Entries entries_;
  std::unordered_map<String, typename Entries::iterator> places_;
};

}  // namespace tessel::vb
