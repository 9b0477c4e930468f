// Keeps the font of a text box.
#pragma once

#include <memory>

#include "forms/Control.h"
#include "foundation/CAppSettings.h"

namespace tessel {

/// Failures are 0x800444AD to 0x800444B0.
class CFontRestore {
 public:
  void Init(const std::shared_ptr<CAppSettings>& appSettings, StringView keyName);
  [[nodiscard]] const std::shared_ptr<CAppSettings>& AppSettings() const { return appSettings_; }
  void SetAppSettings(const std::shared_ptr<CAppSettings>& value);
  [[nodiscard]] const String& KeyName() const { return keyName_; }
  void SetKeyName(StringView value);

  void GetFont(StringView owner, forms::Font& font);
  void SaveFont(StringView owner, const forms::Font& font);

 private:
  std::shared_ptr<CAppSettings> appSettings_;
  String keyName_ = u"Font settings";
};

}  // namespace tessel
