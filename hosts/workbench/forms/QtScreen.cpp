#include "hosts/workbench/forms/QtScreen.h"

#include <QApplication>
#include <QCursor>
#include <utility>

#include "forms/Form.h"
#include "hosts/workbench/forms/MenuView.h"
#include "hosts/workbench/forms/ScreenPlace.h"
#include "hosts/workbench/platform/Text.h"

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

Qt::CursorShape ShapeOf(platform::Pointer shape) {
  switch (shape) {
    case platform::Pointer::Cross:
      return Qt::CrossCursor;
    case platform::Pointer::IBeam:
      return Qt::IBeamCursor;
    case platform::Pointer::SizeAll:
      return Qt::SizeAllCursor;
    case platform::Pointer::Hourglass:
      return Qt::WaitCursor;
    default:
      return Qt::ArrowCursor;
  }
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

forms::MenuItem* QtScreen::PopUp(forms::Surface& surface, forms::MenuItem& menu,
                                 std::optional<platform::SurfacePoint> place) {
  auto* const over = dynamic_cast<QWidget*>(surface.GetView());
  forms::MenuItem* result = nullptr;
  QMenu popup(over);
  popup.setObjectName(ToQt(menu.Name()));
  FillMenu(popup, menu, [&](forms::MenuItem& item) { result = &item; });
  const bool placed = place && over != nullptr;
  popup.exec(placed ? over->mapToGlobal(QPoint(place->X, place->Y)) : QCursor::pos());
  return result;
}

platform::Pointer QtScreen::SetPointer(platform::Pointer shape) {
  if (pointer_ != platform::Pointer::Default) QApplication::restoreOverrideCursor();
  if (shape != platform::Pointer::Default) QApplication::setOverrideCursor(ShapeOf(shape));
  return std::exchange(pointer_, shape);
}

std::optional<WindowPlacement> QtScreen::DesktopPlacement() {
  const QPoint place = front_.Parent ? front_.Parent->frameGeometry().center() : QPoint();
  return PlacementOf(ScreenAround(place), ShowNormal);
}

}  // namespace tessel::workbench
