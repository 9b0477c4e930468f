#include "hosts/memory/MemoryRegistry.h"

#include <algorithm>

namespace tessel::memory {

MemoryRegistry::Key* MemoryRegistry::Find(platform::RootKey root, StringView key) {
  auto& keys = keys_[root];
  const auto found = std::find_if(keys.begin(), keys.end(),
                                  [&](const Key& one) { return vb::SameText(one.Path, key); });
  return found == keys.end() ? nullptr : &*found;
}

std::optional<platform::RegistryValue> MemoryRegistry::GetValue(platform::RootKey root,
                                                                StringView key, StringView name) {
  if (const Key* found = Find(root, key)) {
    for (const auto& value : found->Values) {
      if (vb::SameText(value.Name, name)) return value.Value;
    }
  }
  return std::nullopt;
}

void MemoryRegistry::SetValue(platform::RootKey root, StringView key, StringView name,
                              const platform::RegistryValue& value) {
  Key* found = Find(root, key);
  if (found == nullptr) found = &keys_[root].emplace_back(Key{String(key), {}});
  for (auto& one : found->Values) {
    if (vb::SameText(one.Name, name)) {
      one.Value = value;
      return;
    }
  }
  found->Values.push_back({String(name), value});
}

bool MemoryRegistry::DeleteKey(platform::RootKey root, StringView key) {
  auto& keys = keys_[root];
  const String below = String(key) + u"\\";
  if (std::any_of(keys.begin(), keys.end(),
                  [&](const Key& one) { return vb::StartsWithText(one.Path, below); })) {
    return false;
  }
  return std::erase_if(keys, [&](const Key& one) { return vb::SameText(one.Path, key); }) > 0;
}

std::optional<std::vector<String>> MemoryRegistry::ValueNames(platform::RootKey root,
                                                              StringView key) {
  const Key* found = Find(root, key);
  if (found == nullptr) return std::nullopt;
  std::vector<String> names;
  for (const auto& value : found->Values) names.push_back(value.Name);
  return names;
}

}  // namespace tessel::memory
