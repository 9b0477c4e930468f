#include "connections/cConnectReestr.h"

#include <algorithm>

#include "foundation/ServiceClass.h"
#include "platform/GroupedChanges.h"
#include "platform/Platform.h"

namespace tessel {

std::shared_ptr<cConnectReestr> gConnectReestr;

namespace {

constexpr std::uint32_t NotInitialized = 0x80044511, InvalidSettings = 0x80044512,
                        InvalidKeyName = 0x80044513, ComponentFailure = 0x80044514;
constexpr ServiceClass Service{u"cConnectReestr", NotInitialized, ComponentFailure,
                               u"cConnectReestr component failure", ServiceClass::Title};

void Need(const std::shared_ptr<CAppSettings>& settings) {
  if (!settings) throw Service.Own(NotInitialized, u"Object not properly initialized");
}

/// Whether the list was ever written; a store that can't be read is a failure, not an empty list.
bool HasKey(const CAppSettings& settings, StringView name) {
  const String key = settings.MainBranch() + u"\\" + settings.CompanyName() + u"\\" +
                     settings.AppName() + u"\\" + String(name);
  const auto root = static_cast<platform::RootKey>(settings.RootKey());
  return platform::Current().Registry().ValueNames(root, key).has_value();
}

}  // namespace

void cConnectReestr::Init(const std::shared_ptr<CAppSettings>& appSettings) {
  SetAppSettings(appSettings);
}

void cConnectReestr::SetAppSettings(const std::shared_ptr<CAppSettings>& value) {
  if (!value) throw Service.Own(InvalidSettings, u"Invalid AppSettings object");
  appSettings_ = value;
}

void cConnectReestr::SetKeyName(StringView value) {
  if (value.empty()) throw Service.Own(InvalidKeyName, u"Invalid KeyName value");
  keyName_ = value;
}

std::optional<std::vector<RegisteredConnection>> cConnectReestr::GetAllConnect() const {
  return Service.Guard([&]() -> std::optional<std::vector<RegisteredConnection>> {
    Need(appSettings_);
    if (!HasKey(*appSettings_, keyName_)) return std::nullopt;
    std::vector<String> names = appSettings_->GetAllKeys(keyName_);
    if (names.empty()) return std::nullopt;
    std::vector<RegisteredConnection> rows;
    for (String& name : names) {
      String file = appSettings_->GetText(keyName_, name, u"");
      rows.push_back({std::move(name), std::move(file)});
    }
    return rows;
  });
}

void cConnectReestr::SaveConnect(StringView name, StringView fileName) {
  Service.Guard([&] {
    Need(appSettings_);
    // Each start registers the delivered files again, also where the store can only be read.
    if (!fileName.empty() && appSettings_->GetText(keyName_, name, u"") == fileName) return;
    appSettings_->SaveSetting(keyName_, name, String(fileName));
  });
}

bool cConnectReestr::AddNewConnection(StringView fileName) {
  return Service.Guard([&] {
    bool added = false;
    // Another process may be taking the same number.
    platform::ChangeTogether(platform::Current().Registry(), [&] {
      const auto known = GetAllConnect().value_or(std::vector<RegisteredConnection>{});
      const auto has = [&](auto&& test) { return std::any_of(known.begin(), known.end(), test); };
      if (has([&](const auto& row) { return vb::SameText(row.FileName, fileName); })) return;
      // Numbers that deleted entries left are used again.
      int number = 1;
      String name;
      do {
        name = u"UserConnect" + vb::Str(number++);
      } while (has([&](const auto& row) { return vb::SameText(row.Name, name); }));
      SaveConnect(name, fileName);
      added = true;
    });
    return added;
  });
}

void cConnectReestr::DeleteConnection(StringView fileName) {
  Service.Guard([&] {
    // An end between the two would leave no connection at all, and one that another process adds
    // behind the reading would go.
    platform::ChangeTogether(platform::Current().Registry(), [&] {
      const auto known = GetAllConnect();
      if (!known) return;
      appSettings_->DeleteSetting(keyName_, u"");
      for (const RegisteredConnection& row : *known) {
        if (!vb::SameText(row.FileName, fileName)) SaveConnect(row.Name, row.FileName);
      }
    });
  });
}

}  // namespace tessel
