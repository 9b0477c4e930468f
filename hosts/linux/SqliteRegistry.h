// Settings in one SQLite file.
#pragma once

#include <filesystem>

#include "platform/GroupedChanges.h"
#include "platform/Registry.h"

struct sqlite3;

namespace tessel::linux_host {

/// The file is opened for each call, or group of changes, and locked for each write, so that
/// several processes can share it. It comes into being, with its folder, at the first write.
/// Failures name the file.
class SqliteRegistry : public platform::Registry, public platform::GroupedChanges {
 public:
  explicit SqliteRegistry(std::filesystem::path file) : file_(std::move(file)) {}
  [[nodiscard]] std::optional<platform::RegistryValue> GetValue(platform::RootKey root,
                                                                StringView key,
                                                                StringView name) override;
  void SetValue(platform::RootKey root, StringView key, StringView name,
                const platform::RegistryValue& value) override;
  bool DeleteKey(platform::RootKey root, StringView key) override;
  [[nodiscard]] std::optional<std::vector<String>> ValueNames(platform::RootKey root,
                                                              StringView key) override;

  void Together(const std::function<void()>& changes) override;

 private:
  std::filesystem::path file_;
  /// Within a group of changes the file as it is open for it.
  sqlite3* group_ = nullptr;
};

}  // namespace tessel::linux_host
