// The tree of typed values in which the settings live.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

#include "vb/Text.h"

namespace tessel::platform {

/// Roots of the tree, with the operating system's numbers.
enum class RootKey : std::uint32_t { CurrentUser = 0x80000001, LocalMachine = 0x80000002 };

/// A value: text (REG_SZ, without its closing NUL), 32-bit number (REG_DWORD) or bytes (any other
/// type).
using RegistryValue = std::variant<String, std::uint32_t, std::vector<std::byte>>;

/// Keys are paths separated by "\", found without regard to case, as are value names. Every call
/// stands alone and is complete, also beside other processes. Failures are vb::Failure.
class Registry {
 public:
  virtual ~Registry() = default;
  /// Nothing when the key or the value is absent.
  [[nodiscard]] virtual std::optional<RegistryValue> GetValue(RootKey root, StringView key,
                                                              StringView name) = 0;
  /// Creates the key when needed.
  virtual void SetValue(RootKey root, StringView key, StringView name,
                        const RegistryValue& value) = 0;
  /// False when the key is absent or has subkeys; its values go with it.
  virtual bool DeleteKey(RootKey root, StringView key) = 0;
  /// Names of the values in the order in which they were first written; nothing for an absent key.
  [[nodiscard]] virtual std::optional<std::vector<String>> ValueNames(RootKey root,
                                                                      StringView key) = 0;
};

}  // namespace tessel::platform
