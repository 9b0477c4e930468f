// The settings store.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

#include "platform/Registry.h"
#include "vb/Dates.h"

namespace tessel {

/// What a setting reads as: text or a 32-bit number.
using SettingValue = std::variant<String, std::int32_t>;
/// What can be saved. Texts, dates and truth values are stored as text, numbers as 32 bits.
using SettingInput = std::variant<String, vb::Date, bool, std::int32_t, double>;

/// A setting as text, whatever its kind.
[[nodiscard]] String SettingText(const SettingValue& value);

/// Sections of values under one registry branch. Failures are 0x8004427D to 0x80044284.
class CAppSettings {
 public:
  void Init(StringView companyName, StringView appName);
  [[nodiscard]] const String& AppName() const { return appName_; }
  void SetAppName(StringView value);
  [[nodiscard]] const String& CompanyName() const { return companyName_; }
  void SetCompanyName(StringView value);
  [[nodiscard]] const String& MainBranch() const { return mainBranch_; }
  void SetMainBranch(StringView value);
  [[nodiscard]] std::uint32_t RootKey() const { return static_cast<std::uint32_t>(rootKey_); }
  void SetRootKey(std::uint32_t value);

  /// Deletes the key of the section, or its subkey `key` when that isn't empty; values are not
  /// touched.
  void DeleteSetting(StringView section, StringView key);
  /// Value names of the section in the store's order.
  [[nodiscard]] std::vector<String> GetAllKeys(StringView section);
  /// `defaultValue` when the section or the value is absent or of another type.
  [[nodiscard]] SettingValue GetSetting(StringView section, StringView key,
                                        const SettingValue& defaultValue);
  /// The value as text: what nearly all callers compare.
  [[nodiscard]] String GetText(StringView section, StringView key, StringView defaultText);
  /// Answers the number that was stored when `value` was one.
  std::optional<std::int32_t> SaveSetting(StringView section, StringView key,
                                          const SettingInput& value);

 private:
  [[nodiscard]] String KeyOf(StringView section) const;
  String appName_ = u"Quillon", companyName_ = u"Norvane", mainBranch_ = u"Software";
  platform::RootKey rootKey_ = platform::RootKey::CurrentUser;
};

/// The add-in's settings, from the second step of start-up to the last of shut-down.
extern std::shared_ptr<CAppSettings> gAppSettings;

}  // namespace tessel
