#include "foundation/CFontRestore.h"

#include "foundation/ServiceClass.h"
#include "vb/Numbers.h"

namespace tessel {
namespace {

constexpr std::uint32_t NotInitialized = 0x800444AD, InvalidSettings = 0x800444AE,
                        InvalidKeyName = 0x800444AF, ComponentFailure = 0x800444B0;
constexpr ServiceClass Service{u"CFontRestore", NotInitialized, ComponentFailure,
                               u"CFontRestore component failure"};

String Flag(bool value) { return value ? u"1" : u"0"; }

}  // namespace

void CFontRestore::Init(const std::shared_ptr<CAppSettings>& appSettings, StringView keyName) {
  SetAppSettings(appSettings);
  SetKeyName(keyName);
}

void CFontRestore::SetAppSettings(const std::shared_ptr<CAppSettings>& value) {
  if (!value) throw Service.Own(InvalidSettings, u"Invalid AppSettings object");
  appSettings_ = value;
}

void CFontRestore::SetKeyName(StringView value) {
  if (value.empty()) throw Service.Own(InvalidKeyName, u"Invalid KeyName value");
  keyName_ = value;
}

void CFontRestore::GetFont(StringView owner, forms::Font& font) {
  Service.Guard([&] {
    if (!appSettings_) throw Service.Own(NotInitialized, u"Object not properly initialized");
    const String section = keyName_ + u"\\" + String(owner);
    const auto read = [&](StringView name, StringView byDefault) {
      return appSettings_->GetText(section, name, byDefault);
    };
    font.Bold = read(u"Bold", u"0") == u"1";
    font.Charset = vb::CLng(vb::Val(read(u"Charset", u"0")));
    font.Italic = read(u"Italic", u"0") == u"1";
    font.Name = read(u"Name", u"Courier New");
    font.Size = vb::Val(read(u"Size", u"9"));
    font.Strikethrough = read(u"Strikethrough", u"0") == u"1";
    font.Underline = read(u"Underline", u"0") == u"1";
    font.Weight = vb::CLng(vb::Val(read(u"Weight", u"400")));
  });
}

void CFontRestore::SaveFont(StringView owner, const forms::Font& font) {
  Service.Guard([&] {
    if (!appSettings_) throw Service.Own(NotInitialized, u"Object not properly initialized");
    const String section = keyName_ + u"\\" + String(owner);
    const auto write = [&](StringView name, const String& value) {
      appSettings_->SaveSetting(section, name, value);
    };
    write(u"Bold", Flag(font.Bold));
    write(u"Charset", vb::Str(font.Charset));
    write(u"Italic", Flag(font.Italic));
    write(u"Name", font.Name);
    write(u"Size", vb::NumberText(font.Size));
    write(u"Strikethrough", Flag(font.Strikethrough));
    write(u"Underline", Flag(font.Underline));
    write(u"Weight", vb::Str(font.Weight));
  });
}

}  // namespace tessel
