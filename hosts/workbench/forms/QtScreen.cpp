#include "hosts/workbench/forms/QtScreen.h"

#include "forms/Form.h"
#include "hosts/workbench/forms/ScreenPlace.h"

namespace tessel::workbench {
namespace {

using platform::WindowPlacement;

constexpr int ShowNormal = 1, ShowMinimized = 2, ShowMaximized = 3;

int CommandOf(const QWidget& window) {
  if (window.isMaximized()) return ShowMaximized;
  return window.isMinimized() ? ShowMinimized : ShowNormal;
}

WindowPlacement PlacementOf(const QRect& place, int command) {
  WindowPlacement placement;
  placement.ShowCommand = command;
  placement.Left = place.left();
  placement.Top = place.top();
  placement.Right = place.left() + place.width();
  placement.Bottom = place.top() + place.height();
  return placement;
}

QRect PlaceOf(const WindowPlacement& placement) {
  return {placement.Left, placement.Top, placement.Right - placement.Left,
          placement.Bottom - placement.Top};
}

}  // namespace

QtScreen::~QtScreen() {
  for (const auto& [form, window] : windows_) delete window.data();
}

FormWindow* QtScreen::WindowOf(const forms::Form& form) const {
  const auto found = windows_.find(&form);
  return found == windows_.end() ? nullptr : found->second.data();
}

FormWindow& QtScreen::Window(forms::Form& form) {
  QPointer<FormWindow>& window = windows_[&form];
  if (!window) window = new FormWindow(form.shared_from_this(), gate_, front_.Parent);
  return *window;
}

void QtScreen::Show(forms::Form& form, platform::ShowStyle style) {
  const bool modal = style == platform::ShowStyle::Modal;
  QWidget* const front = front_.Get();
  const QPointer<FormWindow> window(&Window(form));
  window->Open(modal || gate_.IsBusy(), front);
  if (!modal) return;
  window->WaitUntilHidden();
  // The program is being closed around an open form.
  if (form.Visible()) form.CloseByFrame();
  if (form.Visible()) form.Hide();
}

void QtScreen::Hidden(forms::Form& form) {
  if (FormWindow* const window = WindowOf(form)) window->Leave();
}

void QtScreen::Gone(forms::Form& form) {
  const QPointer<FormWindow> window = WindowOf(form);
  windows_.erase(&form);
  form.SetView(nullptr);
  if (!window) return;
  window->Detach();
  window->deleteLater();
}

void QtScreen::SetForeground(forms::Form& form) {
  FormWindow* const window = WindowOf(form);
  if (window == nullptr || !window->isVisible()) return;
  if (window->isMinimized()) window->showNormal();
  window->raise();
  window->activateWindow();
}

void QtScreen::StopBlocking() {
  for (const auto& [form, window] : windows_) {
    if (window) window->StopBlocking();
  }
}

std::optional<WindowPlacement> QtScreen::GetPlacement(forms::Form& form) {
  FormWindow& window = Window(form);
  return PlacementOf(window.Place().Get(), CommandOf(window));
}

void QtScreen::SetPlacement(forms::Form& form, const WindowPlacement& placement) {
  Window(form).Place().Set(PlaceOf(placement), placement.ShowCommand == ShowMaximized);
}

std::optional<WindowPlacement> QtScreen::DesktopPlacement() {
  const QPoint place = front_.Parent ? front_.Parent->frameGeometry().center() : QPoint();
  return PlacementOf(ScreenAround(place), ShowNormal);
}

}  // namespace tessel::workbench
