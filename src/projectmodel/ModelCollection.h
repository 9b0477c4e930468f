// What the four levels of the project model have in common.
#pragma once

#include "vb/Collection.h"

namespace tessel {

/// Children in the order of insertion. `item` finds a child in any case and makes the one that it
/// doesn't find, so keys never clash by case and the first spelling wins. There is no look-up
/// without creating.
template <class Child>
class ModelCollection {
 public:
  /// The child under `key`; a new one is named by `key` as given.
  const std::shared_ptr<Child>& item(StringView key) {
    const String known = vb::UCase(key);
    if (!children_.Find(known)) {
      auto made = std::make_shared<Child>();
      NameByKey(*made, key);
      children_.Add(std::move(made), known);
    }
    return children_.item(known);
  }
  /// Adds under `key` exactly as given, where `item` may not find it. Hands back the stored child;
  /// fails with 457 when the key is in use.
  void Add(std::shared_ptr<Child>& object, StringView key) {
    children_.Add(object, key);
    object = children_.item(key);
  }
  /// Removes what `item` finds under `key`; fails with 5 when there is nothing.
  void Remove(StringView key) { children_.Remove(vb::UCase(key)); }
  [[nodiscard]] std::size_t Count() const { return children_.Count(); }
  void Clear() { children_.Clear(); }

  /// Pairs of key and child.
  [[nodiscard]] auto begin() const { return children_.begin(); }
  [[nodiscard]] auto end() const { return children_.end(); }

 private:
  vb::Collection<Child> children_{u"entry"};
};

}  // namespace tessel
