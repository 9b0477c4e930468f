#include "foundation/CFormRestore.h"

#include "forms/Form.h"
#include "foundation/ServiceClass.h"
#include "platform/Platform.h"
#include "vb/Numbers.h"

namespace tessel {
namespace {

constexpr std::uint32_t NotInitialized = 0x80044499, InvalidSettings = 0x8004449A,
                        InvalidKeyName = 0x8004449B, ComponentFailure = 0x8004449C;
constexpr ServiceClass Service{u"CFormRestore", NotInitialized, ComponentFailure,
                               u"CFormRestore component failure"};

using platform::WindowPlacement;

struct PlaceValue {
  StringView Name;
  int WindowPlacement::*Field;
};
constexpr PlaceValue PlaceValues[] = {
    {u"MinPosX", &WindowPlacement::MinX},         {u"MinPosY", &WindowPlacement::MinY},
    {u"MaxPosX", &WindowPlacement::MaxX},         {u"MaxPosY", &WindowPlacement::MaxY},
    {u"NormalPosLeft", &WindowPlacement::Left},   {u"NormalPosTop", &WindowPlacement::Top},
    {u"NormalPosRight", &WindowPlacement::Right}, {u"NormalPosBottom", &WindowPlacement::Bottom}};

constexpr int ShowNormal = 1, ShowMinimized = 2, ShowMaximized = 3, ShowPresent = 5;

/// The show command that a stored state asks for. States 8 and 10 leave the form as it is.
int RestoredState(int stored, bool neverMinimized) {
  switch (stored) {
    case 2:
    case 6:
    case 7:
      return neverMinimized ? ShowNormal : ShowMinimized;
    case 3:
      return ShowMaximized;
    case 8:
    case 10:
      return 0;
    default:
      return ShowNormal;
  }
}

/// Moves the normal rectangle to the middle of the desktop, keeping its size.
void CenterWindow(WindowPlacement& placement, const WindowPlacement& desktop) {
  const int width = placement.Right - placement.Left, height = placement.Bottom - placement.Top;
  placement.Left = desktop.Left + (desktop.Right - desktop.Left - width) / 2;
  placement.Top = desktop.Top + (desktop.Bottom - desktop.Top - height) / 2;
  placement.Right = placement.Left + width;
  placement.Bottom = placement.Top + height;
}

void CheckSettings(const std::shared_ptr<CAppSettings>& settings) {
  if (!settings) throw Service.Own(InvalidSettings, u"Invalid AppSettings object");
}

}  // namespace

void CFormRestore::Init(const std::shared_ptr<CAppSettings>& appSettings, StringView keyName) {
  SetAppSettings(appSettings);
  SetKeyName(keyName);
}

void CFormRestore::SetAppSettings(const std::shared_ptr<CAppSettings>& value) {
  CheckSettings(value);
  appSettings_ = value;
}

void CFormRestore::SetKeyName(StringView value) {
  if (value.empty()) throw Service.Own(InvalidKeyName, u"Invalid KeyName value");
  keyName_ = value;
}

void CFormRestore::GetPosition(forms::Form& form) {
  Service.Guard([&] {
    if (!appSettings_) throw Service.Own(NotInitialized, u"Object not properly initialized");
    const String section = keyName_ + u"\\" + form.Name();
    platform::Screen& screen = platform::Current().Screen();
    const int state = vb::CLng(appSettings_->GetText(section, u"WindowState", u"-1"));
    if (state > -1) {
      WindowPlacement placement;
      placement.ShowCommand = RestoredState(state, NeverStartMinimized);
      for (const PlaceValue& value : PlaceValues) {
        placement.*value.Field = vb::CLng(vb::Val(appSettings_->GetText(section, value.Name, u"")));
      }
      screen.SetPlacement(form, placement);
    } else if (CenteredByDefault) {
      auto placement = screen.GetPlacement(form);
      const auto desktop = screen.DesktopPlacement();
      if (!placement || !desktop) return;
      CenterWindow(*placement, *desktop);
      placement->ShowCommand = form.Visible() ? ShowPresent : ShowMinimized;
      screen.SetPlacement(form, *placement);
    }
  });
}

void CFormRestore::SavePosition(forms::Form& form) {
  Service.Guard([&] {
    if (!appSettings_) throw Service.Own(NotInitialized, u"Object not properly initialized");
    const auto placement = platform::Current().Screen().GetPlacement(form);
    if (!placement) return;
    const String section = keyName_ + u"\\" + form.Name();
    appSettings_->SaveSetting(section, u"WindowState", vb::Str(placement->ShowCommand));
    for (const PlaceValue& value : PlaceValues) {
      appSettings_->SaveSetting(section, value.Name, vb::Str((*placement).*value.Field));
    }
  });
}

}  // namespace tessel
