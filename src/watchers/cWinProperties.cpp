#include "watchers/cWinProperties.h"

#include "foundation/Routine.h"
#include "platform/Platform.h"

namespace tessel {

void cWinProperties::Start(const std::shared_ptr<host::VBE>& VBInstance) {
  Routine(u"cWinProperties.Start", [&](const Statements& run) {
    const auto window = run([&] { return Need(VBInstance).MainWindow(); });
    const platform::WindowHandle main = run([&] { return window ? window->HWnd() : 0; });
    if (main == 0) return;
    const platform::WindowHandle properties =
        run([&] { return platform::Current().Windows().Find(main, 0, u"wndclass_pbrs", {}); });
    subclass_.Subclass(properties, weak_from_this());
    subclass_.AddMsg(platform::WM_Command, cSubclass::After);
  });
}

void cWinProperties::UnSubClass() {
  Routine(u"cWinProperties.UnSubClass", [&] { subclass_.UnSubClass(); });
}

}  // namespace tessel
