// A desktop of Qt over the services of the tests, and hands that work on it.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>

#include "hosts/workbench/forms/FormWindow.h"
#include "hosts/workbench/forms/QtDesktop.h"
#include "hosts/workbench/platform/QtClock.h"
#include "hosts/workbench/platform/Text.h"
#include "support/MemoryPlatform.h"

namespace tessel::test {

class ScreenPlatform : public platform::Platform {
 public:
  memory::MemoryRegistry RegistryService;
  workbench::QtDesktop DesktopService;
  workbench::QtClock ClockService;
  model::WindowService WindowsService;
  memory::MemoryIdentity IdentityService;
  memory::MemoryApp AppService;
  files::SystemFiles FilesService;
  [[nodiscard]] platform::Registry& Registry() override { return RegistryService; }
  [[nodiscard]] platform::Boxes& Boxes() override { return DesktopService.Boxes(); }
  [[nodiscard]] platform::Screen& Screen() override { return DesktopService.Screen(); }
  [[nodiscard]] platform::Clipboard& Clipboard() override { return DesktopService.Clipboard(); }
  [[nodiscard]] platform::Shell& Shell() override { return DesktopService.Shell(); }
  [[nodiscard]] platform::Clock& Clock() override { return ClockService; }
  [[nodiscard]] platform::Windows& Windows() override { return WindowsService.Get(); }
  [[nodiscard]] platform::Identity& Identity() override { return IdentityService; }
  [[nodiscard]] platform::App& App() override { return AppService; }
  [[nodiscard]] platform::Files& Files() override { return FilesService; }
};

/// Installs the desktop for the length of a test.
struct Desk {
  Desk() : Scope(Services) {}

  [[nodiscard]] workbench::QtDesktop& Desktop() { return Services.DesktopService; }
  /// The window that shows a form.
  [[nodiscard]] workbench::FormWindow& Window(const forms::Form& form) {
    workbench::FormWindow* const window = Desktop().WindowOf(form);
    if (window == nullptr) throw std::runtime_error("the form has no window");
    return *window;
  }
  /// The widget of a control by name.
  template <class Widget>
  [[nodiscard]] Widget& Find(const forms::Form& form, const char* name) {
    auto* const found = Window(form).template findChild<Widget*>(QLatin1String(name));
    if (found == nullptr) throw std::runtime_error(std::string("no such widget: ") + name);
    return *found;
  }
  /// Opens a form and waits until it has the keys.
  void Open(forms::Form& form) {
    form.Show(platform::ShowStyle::Modeless);
    static_cast<void>(QTest::qWaitForWindowActive(&Window(form)));
    Turn();
  }

  /// Lets the event loop do what it has.
  static void Turn() {
    // A change of a size travels up to the window, and its new size down again.
    for (int round = 0; round < 6; ++round) QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  /// Does something as soon as a modal window of that type is open.
  template <class Window>
  static void WhenOpen(const std::function<void(Window&)>& act) {
    QTimer::singleShot(1, qApp, [act] {
      auto* const window = dynamic_cast<Window*>(QApplication::activeModalWidget());
      if (window != nullptr) {
        act(*window);
      } else {
        WhenOpen(act);
      }
    });
  }
  /// Notes the next message box and presses a button of it.
  void Answer(QMessageBox::StandardButton button) {
    WhenOpen<QMessageBox>([this, button](QMessageBox& box) {
      Boxes.push_back(box.text());
      box.button(button)->click();
    });
  }

  QStringList Boxes;
  ScreenPlatform Services;
  platform::ScopedPlatform Scope;
};

}  // namespace tessel::test
