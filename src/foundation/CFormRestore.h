// Puts a dialog back where the user left it.
#pragma once

#include <memory>

#include "foundation/CAppSettings.h"

namespace tessel::forms {
class Form;
}

namespace tessel {

/// Failures are 0x80044499 to 0x8004449C.
class CFormRestore {
 public:
  void Init(const std::shared_ptr<CAppSettings>& appSettings, StringView keyName);
  [[nodiscard]] const std::shared_ptr<CAppSettings>& AppSettings() const { return appSettings_; }
  void SetAppSettings(const std::shared_ptr<CAppSettings>& value);
  bool CenteredByDefault = true;
  [[nodiscard]] const String& KeyName() const { return keyName_; }
  void SetKeyName(StringView value);
  bool NeverStartMinimized = false;

  /// Reads the stored placement and applies it; centres a form without one.
  void GetPosition(forms::Form& form);
  void SavePosition(forms::Form& form);

 private:
  std::shared_ptr<CAppSettings> appSettings_;
  String keyName_ = u"Windows settings";
};

}  // namespace tessel
