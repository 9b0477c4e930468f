// The registered databases, one setting each: value name = connection name, text = full path.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "foundation/CAppSettings.h"

namespace tessel {

/// One registered database.
struct RegisteredConnection {
  String Name;
  String FileName;
  bool operator==(const RegisteredConnection&) const = default;
};

/// Failures are 0x80044511 to 0x80044514 with the program's title and ".cConnectReestr" as source.
class cConnectReestr {
 public:
  void Init(const std::shared_ptr<CAppSettings>& appSettings);
  [[nodiscard]] const std::shared_ptr<CAppSettings>& AppSettings() const { return appSettings_; }
  void SetAppSettings(const std::shared_ptr<CAppSettings>& value);
  [[nodiscard]] const String& KeyName() const { return keyName_; }
  void SetKeyName(StringView value);

  /// In the store's order; nothing when there are none.
  [[nodiscard]] std::optional<std::vector<RegisteredConnection>> GetAllConnect() const;
  void SaveConnect(StringView name, StringView fileName);
  /// Registers a file under the first free "UserConnect" number; false when it is registered
  /// already.
  [[nodiscard]] bool AddNewConnection(StringView fileName);
  /// Removes the entry of that path by writing the others anew.
  void DeleteConnection(StringView fileName);

 private:
  std::shared_ptr<CAppSettings> appSettings_;
  String keyName_ = u"Connect MDB";
};

/// The registered list, between connection and disconnection of the add-in.
extern std::shared_ptr<cConnectReestr> gConnectReestr;

}  // namespace tessel
