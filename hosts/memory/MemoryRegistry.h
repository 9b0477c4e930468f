// A registry that lives as long as the program.
#pragma once

#include <map>
#include <optional>
#include <vector>

#include "platform/Registry.h"

namespace tessel::memory {

class MemoryRegistry : public platform::Registry {
 public:
  [[nodiscard]] std::optional<platform::RegistryValue> GetValue(platform::RootKey root,
                                                                StringView key,
                                                                StringView name) override;
  void SetValue(platform::RootKey root, StringView key, StringView name,
                const platform::RegistryValue& value) override;
  bool DeleteKey(platform::RootKey root, StringView key) override;
  [[nodiscard]] std::optional<std::vector<String>> ValueNames(platform::RootKey root,
                                                              StringView key) override;

 private:
  struct NamedValue {
    String Name;
    platform::RegistryValue Value;
  };
  struct Key {
    String Path;
    std::vector<NamedValue> Values;
  };
  [[nodiscard]] Key* Find(platform::RootKey root, StringView key);
  std::map<platform::RootKey, std::vector<Key>> keys_;
};

}  // namespace tessel::memory
