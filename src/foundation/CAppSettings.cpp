#include "foundation/CAppSettings.h"

#include "foundation/ServiceClass.h"
#include "platform/Platform.h"
#include "vb/Numbers.h"

namespace tessel {

std::shared_ptr<CAppSettings> gAppSettings;

namespace {

constexpr std::uint32_t InvalidAppName = 0x8004427D, InvalidCompanyName = 0x8004427E,
                        InvalidMainBranch = 0x8004427F, InvalidRootKey = 0x80044280,
                        SaveFailed = 0x80044281, DeleteFailed = 0x80044282, KeysFailed = 0x80044283,
                        ComponentFailure = 0x80044284;
constexpr StringView General = u"CAppSettings component failure";
constexpr ServiceClass Service{u"CAppSettings", InvalidAppName, ComponentFailure, General};
/// Three operations name the class without its last letter, and callers may look for it.
constexpr ServiceClass ShortService{u"CAppSetting", InvalidAppName, ComponentFailure, General};

void CheckFilled(StringView value, std::uint32_t number, StringView text) {
  if (value.empty()) throw Service.Own(number, text);
}

void CheckAppName(StringView value) {
  CheckFilled(value, InvalidAppName, u"Invalid AppName value");
}
void CheckCompanyName(StringView value) {
  CheckFilled(value, InvalidCompanyName, u"Invalid CompanyName value");
}

/// A value as the registry takes it.
struct Encode {
  platform::RegistryValue operator()(const String& text) const { return text; }
  platform::RegistryValue operator()(const vb::Date& date) const {
    return vb::FormatDateTime(date);
  }
  platform::RegistryValue operator()(bool value) const {
    return String(value ? u"True" : u"False");
  }
  platform::RegistryValue operator()(std::int32_t number) const {
    return static_cast<std::uint32_t>(number);
  }
  platform::RegistryValue operator()(double number) const {
    return static_cast<std::uint32_t>(vb::CLng(number));
  }
};

/// Turns any failure of the system into the operation's own.
template <class F>
auto Translated(std::uint32_t number, StringView text, F&& body) {
  try {
    return body();
  } catch (...) {
    throw ShortService.Own(number, text);
  }
}

}  // namespace

String SettingText(const SettingValue& value) {
  if (const auto* text = std::get_if<String>(&value)) return *text;
  return vb::Str(std::get<std::int32_t>(value));
}

void CAppSettings::Init(StringView companyName, StringView appName) {
  CheckCompanyName(companyName);
  CheckAppName(appName);
  companyName_ = companyName;
  appName_ = appName;
}

void CAppSettings::SetAppName(StringView value) {
  CheckAppName(value);
  appName_ = value;
}

void CAppSettings::SetCompanyName(StringView value) {
  CheckCompanyName(value);
  companyName_ = value;
}

void CAppSettings::SetMainBranch(StringView value) {
  CheckFilled(value, InvalidMainBranch, u"Invalid MainBranch value");
  mainBranch_ = value;
}

void CAppSettings::SetRootKey(std::uint32_t value) {
  const auto key = static_cast<platform::RootKey>(value);
  if (key != platform::RootKey::CurrentUser && key != platform::RootKey::LocalMachine) {
    throw Service.Own(InvalidRootKey, u"Invalid root key value");
  }
  rootKey_ = key;
}

String CAppSettings::KeyOf(StringView section) const {
  return mainBranch_ + u"\\" + companyName_ + u"\\" + appName_ + u"\\" + String(section);
}

void CAppSettings::DeleteSetting(StringView section, StringView key) {
  Translated(DeleteFailed, u"Failed deleting the application setting", [&] {
    const String path = key.empty() ? KeyOf(section) : KeyOf(section) + u"\\" + String(key);
    if (!platform::Current().Registry().DeleteKey(rootKey_, path)) {
      throw vb::RuntimeFailure(vb::InternalError);
    }
  });
}

std::vector<String> CAppSettings::GetAllKeys(StringView section) {
  return Translated(KeysFailed, u"Failed getting all the application keys", [&] {
    return platform::Current().Registry().ValueNames(rootKey_, KeyOf(section)).value();
  });
}

SettingValue CAppSettings::GetSetting(StringView section, StringView key,
                                      const SettingValue& defaultValue) {
  return Service.Guard([&]() -> SettingValue {
    const auto stored = platform::Current().Registry().GetValue(rootKey_, KeyOf(section), key);
    if (!stored) return defaultValue;
    if (const auto* text = std::get_if<String>(&*stored)) return *text;
    if (const auto* number = std::get_if<std::uint32_t>(&*stored)) {
      return static_cast<std::int32_t>(*number);
    }
    return defaultValue;
  });
}

String CAppSettings::GetText(StringView section, StringView key, StringView defaultText) {
  return SettingText(GetSetting(section, key, String(defaultText)));
}

std::optional<std::int32_t> CAppSettings::SaveSetting(StringView section, StringView key,
                                                      const SettingInput& value) {
  return Translated(
      SaveFailed, u"Failed saving the application setting", [&]() -> std::optional<std::int32_t> {
        const platform::RegistryValue encoded = std::visit(Encode{}, value);
        platform::Current().Registry().SetValue(rootKey_, KeyOf(section), key, encoded);
        const auto* number = std::get_if<std::uint32_t>(&encoded);
        if (number == nullptr) return std::nullopt;
        return static_cast<std::int32_t>(*number);
      });
}

}  // namespace tessel
