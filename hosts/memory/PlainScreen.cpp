#include "hosts/memory/PlainScreen.h"

namespace tessel::memory {
namespace {

using platform::WindowPlacement;

constexpr int ShowNormal = 1, ShowMaximized = 3;
constexpr int ScreenWidth = 1024, ScreenHeight = 768, FormWidth = 480, FormHeight = 360;

WindowPlacement Corner(int width, int height) {
  WindowPlacement placement;
  placement.Right = width;
  placement.Bottom = height;
  return placement;
}

}  // namespace

std::optional<WindowPlacement> PlainScreen::GetPlacement(forms::Form& form) {
  const auto found = places_.find(&form);
  return found == places_.end() ? Corner(FormWidth, FormHeight) : found->second;
}

void PlainScreen::SetPlacement(forms::Form& form, const WindowPlacement& placement) {
  WindowPlacement& place = places_[&form] = placement;
  if (place.ShowCommand != ShowMaximized) place.ShowCommand = ShowNormal;
}

std::optional<WindowPlacement> PlainScreen::DesktopPlacement() {
  return Corner(ScreenWidth, ScreenHeight);
}

}  // namespace tessel::memory
